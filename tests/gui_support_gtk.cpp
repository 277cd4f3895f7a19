#include <wx/window.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "gui_support.h"

// Xlib's macros spoil what comes after them.
#include <X11/extensions/XTest.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace gui {
namespace {

// A form as the display server knows it.
struct server_window {
  explicit server_window(GtkWidget* form)
      : display(GDK_WINDOW_XDISPLAY(gtk_widget_get_window(form))),
        id(GDK_WINDOW_XID(gtk_widget_get_window(form))),
        is_there(XGetWindowAttributes(display, id, &attributes) != 0) {}

  Display* display;
  Window id;
  XWindowAttributes attributes{};
  bool is_there;
};

bool is_x11() { return GDK_IS_X11_DISPLAY(gdk_display_get_default()); }

// Whether a window manager gives windows the keyboard.
bool is_managed() {
  std::string_view const none = "unknown";
  return !is_x11() || gdk_x11_screen_get_window_manager_name(gdk_screen_get_default()) != none;
}

Window focused_window() {
  Window focused = None;
  int revert = 0;
  XGetInputFocus(gdk_x11_get_default_xdisplay(), &focused, &revert);
  return focused;
}

void* handle_of(Window window) {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(window));
}

}  // namespace

namespace platform {

// If the focus follows the pointer, a window gets it twice.
void prepare_display() {
  if (!is_managed())
    XSetInputFocus(gdk_x11_get_default_xdisplay(), None, RevertToNone, CurrentTime);
}

// The toolkit and the display server may disagree for a moment. The server delivers the
// input, so this asks the server. Without a window manager the test itself must give a
// new window the keyboard.
bool has_keyboard(wxTopLevelWindow& form) {
  GtkWidget* const widget = form.GetHandle();
  if (!is_x11()) return gtk_widget_get_mapped(widget) != 0;
  server_window const window(widget);
  if (!window.is_there || window.attributes.map_state != IsViewable) return false;
  // A window manager may give the focus to a hidden child.
  if (is_managed() || focused_window() == window.id)
    return gtk_window_is_active(GTK_WINDOW(widget)) != 0;
  XSetInputFocus(window.display, window.id, RevertToNone, CurrentTime);
  return false;
}

// The toolkit names a control before it has the focus. An inner part of a list may have it.
bool has_focus(wxWindow const& control) {
  GtkWidget* const outer = control.GetHandle();
  GtkWidget* const focused = gtk_window_get_focus(GTK_WINDOW(gtk_widget_get_toplevel(outer)));
  return focused != nullptr && (focused == outer || gtk_widget_is_ancestor(focused, outer) != 0);
}

// When a form grows, the toolkit moves its controls first, then GTK, then the server. A
// click goes where the server has the control.
bool is_settled(wxWindow const& control) {
  GtkWidget* const widget = control.GetHandle();
  GtkWidget* const top = gtk_widget_get_toplevel(widget);
  server_window const window(top);
  if (!window.is_there) return false;
  wxPoint origin;
  Window child = None;
  XTranslateCoordinates(window.display, window.id, window.attributes.root, 0, 0, &origin.x,
                        &origin.y, &child);
  wxPoint inside;
  gtk_widget_translate_coordinates(widget, top, 0, 0, &inside.x, &inside.y);
  wxPoint const off = origin + inside - control.GetScreenPosition();
  return window.attributes.width == gtk_widget_get_allocated_width(top) &&
         window.attributes.height == gtk_widget_get_allocated_height(top) &&
         gtk_widget_get_allocated_width(widget) == control.GetSize().x && std::abs(off.x) <= 2 &&
         std::abs(off.y) <= 2;
}

// For the server a turn of the wheel is a click of the fifth button.
void turn_wheel() {
  Display* const display = gdk_x11_get_default_xdisplay();
  for (Bool const is_down : {True, False}) XTestFakeButtonEvent(display, 5, is_down, CurrentTime);
  XFlush(display);
}

// The popup of a list takes no simulated input.
void pick(Tzu_vcl_selbox& list, int position) {
  list.SetFocus();
  gtk_combo_box_set_active(GTK_COMBO_BOX(list.GetHandle()), position);
}

// Sends the event that the toolkit makes from the server's messages.
void drop_file(wxWindow& window, std::wstring const& name) {
  // The event deletes an array.
  // NOLINTNEXTLINE(modernize-avoid-c-arrays)
  auto names = std::make_unique<wxString[]>(1);
  names[0] = name;
  wxDropFilesEvent event(wxEVT_DROP_FILES, 1, names.release());
  window.HandleWindowEvent(event);
}

}  // namespace platform

// The window has its own connection to the server. It is destroyed with the connection.
// The server counts in pixels of the screen.
Tforeign_window::Tforeign_window(wxRect const& place) {
  int const scale =
      gdk_monitor_get_scale_factor(gdk_display_get_monitor(gdk_display_get_default(), 0));
  wxRect const real(place.GetPosition() * scale, place.GetSize() * scale);
  Display* const display = XOpenDisplay(nullptr);
  window_.reset(display, XCloseDisplay);
  Window const window = XCreateSimpleWindow(display, DefaultRootWindow(display), real.x, real.y,
                                            static_cast<unsigned>(real.width),
                                            static_cast<unsigned>(real.height), 0, 0, 0);
  XMapWindow(display, window);
  XSync(display, False);
  handle_ = handle_of(window);
}

namespace {

// The outermost parent. A window manager has its frame there.
wxRect find_frame(Display* display, Window window) {
  Window root = None;
  Window parent = None;
  Window* children = nullptr;
  unsigned count = 0;
  if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return {};
  if (children != nullptr) XFree(children);
  if (parent != root) return find_frame(display, parent);
  XWindowAttributes attributes{};
  XGetWindowAttributes(display, window, &attributes);
  return {attributes.x, attributes.y, attributes.width, attributes.height};
}

}  // namespace

wxRect Tforeign_window::get_frame() const {
  return find_frame(gdk_x11_get_default_xdisplay(), reinterpret_cast<std::uintptr_t>(handle_));
}

wxPoint offset_of(Tzu_vcl_form const& form, Tforeign_window const& owner) {
  if (!is_x11()) return {};
  server_window const window(form.GetHandle());
  wxRect const frame = find_frame(window.display, window.id);
  return frame.GetPosition() - frame.CentreIn(owner.get_frame()).GetPosition();
}

bool has_focus(Tforeign_window const& owner) {
  return !is_x11() || !is_managed() || handle_of(focused_window()) == owner.get_handle();
}

void* get_owner(Tzu_vcl_form const& form) {
  server_window const window(form.GetHandle());
  Window owner = None;
  XGetTransientForHint(window.display, window.id, &owner);
  return handle_of(owner);
}

}  // namespace gui
