/* A host of the dialog with Xlib only. Its own loop waits in poll(). While the dialog is open,
   GLib's main loop runs instead. So the host adds its timer and its connection to that loop,
   and its window and timer go on. */
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <glib-unix.h>
#include <poll.h>
#include <stdio.h>
#include <string.h>

#include "host_common.h"

typedef struct {
  host_state host;
  Display* display;
  Window window;
  Atom close_request;
  int is_closed;
} program;

static void edit(program* self);

static void handle_events(program* self) {
  while (XPending(self->display) > 0) {
    XEvent event;
    XNextEvent(self->display, &event);
    if (event.type == Expose) {
      XDrawString(self->display, self->window, DefaultGC(self->display, 0), 20, 40,
                  self->host.definition, (int)strlen(self->host.definition));
    } else if (event.type == ButtonPress) {
      edit(self);
    } else if (event.type == ClientMessage &&
               (Atom)event.xclient.data.l[0] == self->close_request) {
      self->is_closed = 1;
    }
  }
}

static gboolean on_input(gint file, GIOCondition condition, gpointer context) {
  (void)file;
  (void)condition;
  handle_events(context);
  return G_SOURCE_CONTINUE;
}

static gboolean on_timer(gpointer context) {
  program* const self = context;
  host_tick(&self->host);
  /* Its own requests may have read events without on_input. */
  handle_events(self);
  return G_SOURCE_CONTINUE;
}

static void edit(program* self) {
  guint const input = g_unix_fd_add(ConnectionNumber(self->display), G_IO_IN, on_input, self);
  guint const timer = g_timeout_add(host_tick_ms, on_timer, self);
  host_edit(&self->host, (zu_pj_edit_window)(size_t)self->window);
  g_source_remove(timer);
  g_source_remove(input);
  XClearArea(self->display, self->window, 0, 0, 0, 0, True);
}

static void run(program* self) {
  struct pollfd connection = {.fd = ConnectionNumber(self->display), .events = POLLIN};
  int const is_worked = self->host.times > 0;
  int waited = 0;
  while (!self->is_closed) {
    handle_events(self);
    XFlush(self->display);
    if (poll(&connection, 1, host_tick_ms) != 0) continue;
    waited += host_tick_ms;
    if (!is_worked || waited < host_pause_ms) continue;
    waited = 0;
    edit(self);
    if (self->host.times == 0) self->is_closed = 1;
  }
}

int main(int argc, char** argv) {
  program self = {.is_closed = 0};
  if (!host_start(&self.host, argc, argv)) return 1;
  self.display = XOpenDisplay(NULL);
  if (self.display == NULL) {
    (void)fprintf(stderr, "host: cannot open the display\n");
    return 1;
  }
  self.window = XCreateSimpleWindow(self.display, DefaultRootWindow(self.display), 100, 100, 860,
                                    420, 0, 0, WhitePixel(self.display, 0));
  XStoreName(self.display, self.window, "zu_pj_edit host on Xlib");
  XSelectInput(self.display, self.window, ExposureMask | ButtonPressMask);
  self.close_request = XInternAtom(self.display, "WM_DELETE_WINDOW", False);
  XSetWMProtocols(self.display, self.window, &self.close_request, 1);
  XMapWindow(self.display, self.window);
  run(&self);
  XDestroyWindow(self.display, self.window);
  XCloseDisplay(self.display);
  return 0;
}
