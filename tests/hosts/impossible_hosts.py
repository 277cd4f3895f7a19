#!/usr/bin/python3
"""usage: impossible_hosts.py LIBRARY

Calls the dialog in hosts where it cannot open. Each case is a process that calls twice. The
call must return its input and 0 and print one line with the reason, and the process must go
on.
"""
import ctypes
import os
import subprocess
import sys
import tempfile
import threading
import time

INPUT = b"+proj=utm +zone=37"


def run_loop_on_another_thread():
    glib = ctypes.CDLL("libglib-2.0.so.0")
    glib.g_main_loop_new.restype = ctypes.c_void_p
    loop = ctypes.c_void_p(glib.g_main_loop_new(None, 0))
    threading.Thread(target=glib.g_main_loop_run, args=(loop,), daemon=True).start()
    while not glib.g_main_loop_is_running(loop):
        time.sleep(0.01)


# What a host does before the call, and the reason that the library gives.
CASES = {
    "no display": (lambda: None, "no display can be opened"),
    "GTK 2": (lambda: ctypes.CDLL("libgtk-x11-2.0.so.0"), "another GTK than 3"),
    "GTK 4": (lambda: ctypes.CDLL("libgtk-4.so.1", ctypes.RTLD_GLOBAL), "another GTK than 3"),
    "another thread": (run_loop_on_another_thread, "main loop runs on another thread"),
    "no keyboard": (lambda: None, "no keyboard"),
}


def be_host(library, case):
    CASES[case][0]()
    execute = ctypes.CDLL(library).zu_proj4_form_execute
    execute.restype = ctypes.c_char_p
    for _ in range(2):
        changed = ctypes.c_ubyte(7)
        assert execute(None, INPUT, ctypes.byref(changed)) == INPUT
        assert changed.value == 0


def judge(case, environment):
    host = subprocess.run([sys.executable, __file__, sys.argv[1], case], env=environment,
                          stderr=subprocess.PIPE, text=True, timeout=60, check=False)
    # GTK also complains about a display without a keyboard.
    lines = [line for line in host.stderr.splitlines() if line and "Gdk-CRITICAL" not in line]
    good = (host.returncode == 0 and len(lines) == 2 and
            all(line.startswith("zu_pj_edit: no dialog: ") and CASES[case][1] in line
                for line in lines))
    print(case, "passed" if good else f"FAILED with {host.returncode}: {host.stderr}", flush=True)
    return good


def main():
    environment = {key: value for key, value in os.environ.items()
                   if key not in ("DISPLAY", "WAYLAND_DISPLAY", "GDK_BACKEND")}
    good = [judge(case, environment) for case in CASES if case != "no keyboard"]
    with tempfile.TemporaryDirectory() as folder:
        environment |= {"XDG_RUNTIME_DIR": folder, "WAYLAND_DISPLAY": "wayland-zu"}
        with subprocess.Popen(["weston", "--backend=headless-backend.so", "--socket=wayland-zu",
                               f"--log={folder}/log"], env=environment) as compositor:
            for _ in range(200):
                if os.path.exists(f"{folder}/wayland-zu"):
                    break
                time.sleep(0.1)
            good.append(judge("no keyboard", environment))
            compositor.terminate()
    sys.exit(not all(good))


if len(sys.argv) == 3:
    be_host(sys.argv[1], sys.argv[2])
else:
    main()
