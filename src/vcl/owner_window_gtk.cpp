#include "vcl/owner_window.h"

#include <wx/toplevel.h>

#include <cstdint>
#include <memory>

// Included last: Xlib's macros break the headers that come after them.
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace zu::vcl {
namespace {

// The server never gives ids above this one.
constexpr std::uintptr_t largest_window_id = 0x1FFFFFFF;

// The host may destroy its window at any moment. A request with the id of that window must not
// end the process.
class Tzu_x_error_scope {
 public:
  explicit Tzu_x_error_scope(GdkDisplay* display) : display_(display) {
    gdk_x11_display_error_trap_push(display_);
  }
  ~Tzu_x_error_scope() { gdk_x11_display_error_trap_pop_ignored(display_); }

  Tzu_x_error_scope(Tzu_x_error_scope const&) = delete;
  Tzu_x_error_scope& operator=(Tzu_x_error_scope const&) = delete;

 private:
  GdkDisplay* display_;
};

struct Tzu_unref {
  void operator()(GdkWindow* window) const { g_object_unref(window); }
};
using Tzu_gdk_window = std::unique_ptr<GdkWindow, Tzu_unref>;

bool has_wm_state(Display* display, Window window, Atom wm_state) {
  Atom type = None;
  int format = 0;
  unsigned long count = 0;
  unsigned long rest = 0;
  unsigned char* data = nullptr;
  XGetWindowProperty(display, window, wm_state, 0, 0, False, AnyPropertyType, &type, &format,
                     &count, &rest, &data);
  if (data != nullptr) XFree(data);
  return type != None;
}

// A host may pass the window of a control. But only a window that the window manager knows can
// own another window. None when the server has no such window.
Window find_top_level(Display* display, Window window) {
  Atom const wm_state = XInternAtom(display, "WM_STATE", False);
  while (true) {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return None;
    if (children != nullptr) XFree(children);
    if (window == root) return None;
    if (parent == root || has_wm_state(display, window, wm_state)) return window;
    window = parent;
  }
}

GtkWindow* find_own_window(GdkWindow* window) {
  gpointer data = nullptr;
  gdk_window_get_user_data(window, &data);
  if (data == nullptr || !GTK_IS_WIDGET(data)) return nullptr;
  GtkWidget* const top = gtk_widget_get_toplevel(GTK_WIDGET(data));
  return GTK_IS_WINDOW(top) ? GTK_WINDOW(top) : nullptr;
}

std::optional<wxRect> set_owner(wxTopLevelWindow& form, void* owner) {
  GdkDisplay* const display = gdk_display_get_default();
  auto const id = reinterpret_cast<std::uintptr_t>(owner);
  if (id == 0 || id > largest_window_id || !GDK_IS_X11_DISPLAY(display)) return std::nullopt;

  Tzu_x_error_scope const errors(display);
  Window const top = find_top_level(gdk_x11_display_get_xdisplay(display), id);
  if (top == None) return std::nullopt;
  Tzu_gdk_window window(gdk_x11_window_foreign_new_for_display(display, top));
  if (window == nullptr || gdk_window_is_destroyed(window.get()) != FALSE) return std::nullopt;

  GtkWidget* const widget = form.GetHandle();
  GdkRectangle frame{};
  gdk_window_get_frame_extents(window.get(), &frame);
  wxRect const place(frame.x, frame.y, frame.width, frame.height);

  GtkWindow* const own = find_own_window(window.get());
  if (own == GTK_WINDOW(widget)) return std::nullopt;
  if (own != nullptr) {
    gtk_window_set_transient_for(GTK_WINDOW(widget), own);
  } else {
    gtk_widget_realize(widget);
    gdk_window_set_transient_for(gtk_widget_get_window(widget), window.get());
    // The form's window has no reference count on the owner.
    g_object_set_data_full(G_OBJECT(widget), "zu_owner", window.release(), g_object_unref);
  }
  return place;
}

}  // namespace

// The window system itself blocks the input of windows under a modal form.
class Tzu_owner_window::Timpl {
 public:
  std::optional<wxRect> place;
};

Tzu_owner_window::Tzu_owner_window(wxTopLevelWindow& form, void* owner)
    : impl_(std::make_unique<Timpl>(Timpl{set_owner(form, owner)})) {}
Tzu_owner_window::~Tzu_owner_window() = default;

std::optional<wxRect> const& Tzu_owner_window::get_place() const { return impl_->place; }
void Tzu_owner_window::release() {}

}  // namespace zu::vcl
