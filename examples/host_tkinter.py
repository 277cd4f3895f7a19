#!/usr/bin/python3
"""A host of the dialog in Python, by ctypes, with the main loop of tkinter.

While the dialog is open, GLib's main loop runs and not Tk's. So the host lets GLib call Tk's
update again and again. Options and output are those of the other sample hosts; see
host_common.h.
"""
import argparse
import ctypes
import os
import tkinter

TICK_MS = 50
PAUSE_MS = 500
DEFINITION = ("+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
              "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m "
              "+lon_wrap=45 +no_defs")

Gsource = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p)


class Host:
    def __init__(self, options):
        self.times = options.times
        self.definition = options.definition
        self.is_open = False
        self.ticks = 0
        self.execute = ctypes.CDLL(options.library).zu_proj4_form_execute
        self.execute.restype = ctypes.c_char_p
        self.execute.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.POINTER(ctypes.c_ubyte)]
        self.glib = ctypes.CDLL("libglib-2.0.so.0")
        self.glib.g_timeout_add.argtypes = [ctypes.c_uint, Gsource, ctypes.c_void_p]

        self.window = tkinter.Tk()
        self.window.title("zu_pj_edit host in tkinter")
        self.window.geometry("860x420")
        self.button = tkinter.Button(self.window, text="Edit...", command=self.edit)
        self.button.pack()
        self.tick()
        if self.times > 0:
            self.window.after(PAUSE_MS, self.work)

    def tick(self):
        self.ticks += self.is_open
        self.window.after(TICK_MS, self.tick)

    def update(self, _context):
        self.window.update()
        return 1

    def edit(self):
        if self.is_open:
            return
        self.is_open, self.ticks = True, 0
        # This variable keeps the function alive while GLib uses it.
        update = Gsource(self.update)
        source = self.glib.g_timeout_add(20, update, None)
        changed = ctypes.c_ubyte(0)
        after = self.execute(self.window.winfo_id(), os.fsencode(self.definition),
                             ctypes.byref(changed))
        self.glib.g_source_remove(source)
        self.is_open = False
        print(f"before: {self.definition}\nafter: {os.fsdecode(after)}\n"
              f"changed: {changed.value}\nticks: {self.ticks}", flush=True)
        self.definition = os.fsdecode(after)

    def work(self):
        self.edit()
        self.times -= 1
        if self.times > 0:
            self.window.after(PAUSE_MS, self.work)
        else:
            self.window.destroy()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--times", type=int, default=0)
    parser.add_argument("--library", default=os.path.join(os.path.dirname(
        os.path.abspath(__file__)), "libzu_pj_edit.so"))
    parser.add_argument("definition", nargs="?", default=DEFINITION)
    Host(parser.parse_args()).window.mainloop()


if __name__ == "__main__":
    main()
