#include <wx/window.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <utility>

#include "gui_support.h"

// Xlib's macros spoil what comes after them.
#include <X11/extensions/XTest.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace gui {
namespace {

bool near(wxPoint const& left, wxPoint const& right) {
  return std::abs(left.x - right.x) <= 2 && std::abs(left.y - right.y) <= 2;
}

}  // namespace

namespace platform {

// As long as the focus goes with the pointer, a window gets it twice.
void prepare_display() {
  XSetInputFocus(gdk_x11_get_default_xdisplay(), None, RevertToNone, CurrentTime);
}

// What the toolkit knows of a window runs ahead of the display server and lags
// behind it; input goes by the server. Without a window manager nobody else
// gives a new window the keyboard.
bool has_keyboard(Tzu_vcl_form& form) {
  GtkWidget* const widget = form.GetHandle();
  GdkWindow* const window = gtk_widget_get_window(widget);
  Display* const display = GDK_WINDOW_XDISPLAY(window);
  Window const id = GDK_WINDOW_XID(window);
  XWindowAttributes attributes{};
  if (XGetWindowAttributes(display, id, &attributes) == 0) return false;
  if (attributes.map_state != IsViewable) return false;
  Window focused = None;
  int revert = 0;
  XGetInputFocus(display, &focused, &revert);
  if (focused == id) return gtk_window_is_active(GTK_WINDOW(widget)) != 0;
  XSetInputFocus(display, id, RevertToNone, CurrentTime);
  return false;
}

// A form that grows is moved and laid out by the toolkit at once, by GTK with
// its next frame, and by the server after that. A click goes by the server.
bool is_settled(wxWindow const& control) {
  GtkWidget* const widget = control.GetHandle();
  GtkWidget* const top = gtk_widget_get_toplevel(widget);
  GdkWindow* const window = gtk_widget_get_window(top);
  Display* const display = GDK_WINDOW_XDISPLAY(window);
  Window const id = GDK_WINDOW_XID(window);
  XWindowAttributes attributes{};
  if (XGetWindowAttributes(display, id, &attributes) == 0) return false;
  wxPoint origin;
  Window child = None;
  XTranslateCoordinates(display, id, attributes.root, 0, 0, &origin.x, &origin.y, &child);
  wxPoint inside;
  gtk_widget_translate_coordinates(widget, top, 0, 0, &inside.x, &inside.y);
  return attributes.width == gtk_widget_get_allocated_width(top) &&
         attributes.height == gtk_widget_get_allocated_height(top) &&
         gtk_widget_get_allocated_width(widget) == control.GetSize().x &&
         near(origin + inside, control.GetScreenPosition());
}

// The server knows a notch as a click of the fifth button.
void turn_wheel() {
  constexpr unsigned button = 5;
  Display* const display = gdk_x11_get_default_xdisplay();
  XTestFakeButtonEvent(display, button, True, CurrentTime);
  XTestFakeButtonEvent(display, button, False, CurrentTime);
  XFlush(display);
}

// The list's own window takes no input from elsewhere, so the event that it
// sends is sent for it.
void pick(Tzu_vcl_selbox& list, int position) {
  list.SetFocus();
  list.SetSelection(position);
  wxCommandEvent event(wxEVT_CHOICE, list.GetId());
  event.SetEventObject(&list);
  event.SetInt(position);
  list.ProcessWindowEvent(event);
}

bool save_picture(wxWindow& window, std::string const& path) {
  GdkWindow* const source = gtk_widget_get_window(window.GetHandle());
  std::unique_ptr<GdkPixbuf, decltype(&g_object_unref)> const picture(
      gdk_pixbuf_get_from_window(source, 0, 0, gdk_window_get_width(source),
                                 gdk_window_get_height(source)),
      g_object_unref);
  return gdk_pixbuf_save(picture.get(), (path + ".png").c_str(), "png", nullptr, nullptr) != 0;
}

}  // namespace platform

class Tforeign_window::Timpl {
 public:
  explicit Timpl(wxRect const& place)
      : display_(XOpenDisplay(nullptr)),
        window_(XCreateSimpleWindow(display_, DefaultRootWindow(display_), place.x, place.y,
                                    static_cast<unsigned>(place.width),
                                    static_cast<unsigned>(place.height), 0, 0, 0)) {
    XMapWindow(display_, window_);
    XSync(display_, False);
  }
  ~Timpl() { destroy(); }
  Timpl(Timpl const&) = delete;
  Timpl& operator=(Timpl const&) = delete;

  Window get_window() const { return window_; }
  void destroy() {
    if (display_ != nullptr) XCloseDisplay(std::exchange(display_, nullptr));
  }

 private:
  Display* display_;
  Window window_;
};

Tforeign_window::Tforeign_window(wxRect const& place) : impl_(std::make_unique<Timpl>(place)) {}
Tforeign_window::~Tforeign_window() = default;

void* Tforeign_window::get_handle() const {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(impl_->get_window()));
}
void Tforeign_window::destroy() { impl_->destroy(); }

void* get_owner(Tzu_vcl_form const& form) {
  GdkWindow* const window = gtk_widget_get_window(form.GetHandle());
  Window owner = None;
  XGetTransientForHint(GDK_WINDOW_XDISPLAY(window), GDK_WINDOW_XID(window), &owner);
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(owner));
}

bool is_form_to_outlive_owner() { return true; }

}  // namespace gui
