#include <dlfcn.h>
#include <gtk/gtk.h>
#include <wx/dialog.h>
#include <wx/event.h>
#include <wx/init.h>
#include <wx/textctrl.h>
#include <wx/thread.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>

#include "text/strconv.h"
#include "vcl/list_button_gtk.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

// Included last: Xlib's macros break the headers that come after them.
#include <gdk/gdkx.h>

namespace zu::vcl::platform {
namespace {

// For the theme and the text size of the latest form.
int& theme_control_height() {
  static int height = 0;
  return height;
}

// Only once: a form that comes back from the task bar must stay where the user has moved it.
gboolean on_map(GtkWidget* widget, GdkEvent* /*event*/, gpointer context) {
  auto const settle = std::move(*static_cast<std::function<void()>*>(context));
  g_signal_handlers_disconnect_by_data(widget, context);
  settle();
  return FALSE;
}

void drop_function(gpointer context, GClosure* /*closure*/) {
  std::unique_ptr<std::function<void()>> const owned(static_cast<std::function<void()>*>(context));
}

// For screen readers a list is the button inside it that has the keyboard. That button gets
// the name of the list, and the chosen item as description.
void describe_choice(GtkComboBox* list, void* /*nothing*/) {
  char* const chosen = gtk_combo_box_text_get_active_text(GTK_COMBO_BOX_TEXT(list));
  AtkObject* const button = gtk_widget_get_accessible(find_list_button(GTK_WIDGET(list)));
  atk_object_set_description(button, chosen == nullptr ? "" : chosen);
  g_free(chosen);
}

bool is_loaded(char const* module) {
  void* const handle = dlopen(module, RTLD_LAZY | RTLD_NOLOAD);
  if (handle == nullptr) return false;
  dlclose(handle);
  return true;
}

// The versions of GTK have functions and types with the same names. So no function of GTK may
// be called to find out: it might belong to the other version.
void check_version() {
  for (char const* const module : {"libgtk-x11-2.0.so.0", "libgtk-4.so.1"}) {
    if (is_loaded(module)) {
      throw Tstart_error(std::string("the process has loaded another GTK than 3: ") + module);
    }
  }
}

// When another thread runs the main loop, a dialog on this thread would wait forever.
void check_thread() {
  if (g_main_context_acquire(nullptr) == FALSE) {
    throw Tstart_error("the main loop runs on another thread than the call");
  }
  g_main_context_release(nullptr);
}

}  // namespace

void check_running() {
  check_thread();
  if (!wxThread::IsMain()) throw Tstart_error("the toolkit was started on another thread");
  GdkSeat* const seat = gdk_display_get_default_seat(gdk_display_get_default());
  if (seat == nullptr || gdk_seat_get_keyboard(seat) == nullptr) {
    throw Tstart_error("the display has no keyboard");
  }
}

void prepare_start() {
  check_version();
  check_thread();
}

bool start_toolkit() {
  int argc = 0;
  std::array<wxChar*, 1> argv{nullptr};
  return wxEntryStart(argc, argv.data());
}

void keep_library_loaded() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void const*>(&keep_library_loaded), &info) == 0) return;
  // The handle is dropped on purpose: the library has to stay loaded.
  // cppcheck-suppress leakReturnValNotUsed
  static_cast<void>(dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE));
}

// Not a real tool window: the keys of window managers do not reach those.
void prepare_form(wxDialog& /*form*/) {
  GtkWidget* const entry = gtk_entry_new();
  g_object_ref_sink(entry);
  // A hidden control has no height.
  gtk_widget_show(entry);
  int least = 0;
  int natural = 0;
  gtk_widget_get_preferred_height(entry, &least, &natural);
  theme_control_height() = std::max(natural, design_control_height);
  gtk_widget_destroy(entry);
  g_object_unref(entry);
}

int control_height(wxWindow const& /*window*/) { return theme_control_height(); }

void call_when_framed(wxDialog& form, std::function<void()> const& settle) {
  auto owned = std::make_unique<std::function<void()>>(settle);
  g_signal_connect_data(form.GetHandle(), "map-event", G_CALLBACK(on_map), owned.release(),
                        drop_function, G_CONNECT_AFTER);
}

// A window manager may have moved the form without reporting it yet.
void move_to(wxDialog& form, wxPoint const& place) {
  form.Move(place);
  gtk_window_move(GTK_WINDOW(form.GetHandle()), place.x, place.y);
}

wxSize frame_size(wxDialog const& form) {
  GdkWindow* const window = gtk_widget_get_window(form.GetHandle());
  if (window == nullptr || !GDK_IS_X11_WINDOW(window)) return form.GetSize() - form.GetClientSize();
  GdkRectangle whole{};
  gdk_window_get_frame_extents(window, &whole);
  return {std::max(0, whole.width - gdk_window_get_width(window)),
          std::max(0, whole.height - gdk_window_get_height(window))};
}

void prepare_scroll_box(wxWindow& box) {
  GtkWidget* const widget = box.m_widget;
  if (GTK_IS_SCROLLED_WINDOW(widget))
    gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(widget), FALSE);
}

void prepare_list(wxWindow& list) {
  // In a menu every item would be a widget, styled and measured before the list opens. In this
  // mode items are drawn when they are visible.
  GtkCssProvider* const style = gtk_css_provider_new();
  gtk_css_provider_load_from_data(style, "* { -GtkComboBox-appears-as-list: true; }", -1, nullptr);
  gtk_style_context_add_provider(gtk_widget_get_style_context(list.GetHandle()),
                                 GTK_STYLE_PROVIDER(style),
                                 GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(style);
  g_signal_connect(list.GetHandle(), "changed", G_CALLBACK(describe_choice), nullptr);
}

void finish_list(wxWindow& list, int /*widest_text*/) {
  // The form's layout gives the width, so the items need not be measured.
  GtkWidget* const cells = gtk_bin_get_child(GTK_BIN(list.GetHandle()));
  if (GTK_IS_CELL_VIEW(cells)) gtk_cell_view_set_fit_model(GTK_CELL_VIEW(cells), FALSE);
}

// A column of GTK's never gets narrower by itself, so a scroll bar stays when it is not needed.
void fit_rows(wxWindow& list) {
  GtkWidget* const rows = gtk_bin_get_child(GTK_BIN(list.GetHandle()));
  if (GTK_IS_TREE_VIEW(rows)) gtk_tree_view_columns_autosize(GTK_TREE_VIEW(rows));
}

bool lists_shorten_captions() { return true; }
void watch_list(wxWindow& /*list*/, std::function<void()> const& /*open*/,
                std::function<void()> const& /*close*/) {}

// By default GTK takes the first control by position, and under some window managers the form
// is not laid out yet. The toolkit would also go on believing that the list has the keyboard:
// it does not know the part of a list that really has it.
void focus_first(wxWindow& list) { gtk_widget_child_focus(list.GetHandle(), GTK_DIR_TAB_FORWARD); }

// The toolkit leaves out controls that cannot have the keyboard when it makes the order. It
// makes the order again only when a control is added.
void renew_tab_order(wxWindow& window) {
  window.m_dirtyTabOrder = true;
  for (wxWindow* const child : window.GetChildren()) renew_tab_order(*child);
}

void accept_dropped_files(wxWindow& window) { window.DragAcceptFiles(true); }

void relate_label(wxWindow& label, wxWindow& control) {
  GtkWidget* const widget = label.GetHandle();
  if (GTK_IS_LABEL(widget)) gtk_label_set_mnemonic_widget(GTK_LABEL(widget), control.GetHandle());
}

void announce_name(wxWindow& control) {
  std::string const name = strconv::to_utf8(control.GetName().ToStdWstring());
  GtkWidget* widget = control.GetHandle();
  // The keyboard is in the scrolled widget, not in the frame around it.
  if (GTK_IS_SCROLLED_WINDOW(widget)) widget = gtk_bin_get_child(GTK_BIN(widget));
  for (GtkWidget* const part : {widget, find_list_button(widget)})
    atk_object_set_name(gtk_widget_get_accessible(part), name.c_str());
}

wchar_t letter_of(wxKeyEvent const& event) {
  gunichar const letter = gdk_keyval_to_unicode(event.GetRawKeyCode());
  return g_unichar_iscntrl(letter) != 0 ? 0 : static_cast<wchar_t>(letter);
}

// The toolkit's own answers change when the edit appears for the first time. Forms laid out
// before that would be too small.
int edit_width(wxTextCtrl const& edit, int text_width) {
  constexpr int frame_width = 24;
  return text_width + edit.FromDIP(frame_width);
}

int best_edit_height(wxTextCtrl const& edit) {
  GtkWidget* const widget = edit.GetHandle();
  int least = 0;
  int natural = 0;
  GTK_WIDGET_GET_CLASS(widget)->get_preferred_height(widget, &least, &natural);
  return natural;
}

}  // namespace zu::vcl::platform
