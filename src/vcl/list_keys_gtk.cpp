#include "vcl/list_keys.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "text/type_ahead.h"
#include "vcl/event_guard.h"
#include "vcl/list_button_gtk.h"
#include "vcl/selbox.h"

namespace zu::vcl::platform {
namespace {

std::wstring fold(std::wstring text) {
  for (wchar_t& letter : text)
    letter = static_cast<wchar_t>(g_unichar_tolower(static_cast<gunichar>(letter)));
  return text;
}

// The keys of one list. Lives as long as the list.
class Tlist_keys {
 public:
  explicit Tlist_keys(Tzu_vcl_selbox& list) : list_(list), combo_(GTK_COMBO_BOX(list.GetHandle())) {
    g_signal_connect(find_list_button(list.GetHandle()), "key-press-event", G_CALLBACK(on_list_key),
                     this);
    g_signal_connect(combo_, "notify::popup-shown", G_CALLBACK(on_popup), this);
  }

 private:
  // GTK makes the open list when it opens for the first time.
  static void on_popup(GObject* /*combo*/, GParamSpec* /*property*/, Tlist_keys* self) {
    AtkObject* const popup = gtk_combo_box_get_popup_accessible(self->combo_);
    GtkWidget* const rows =
        popup == nullptr ? nullptr : gtk_accessible_get_widget(GTK_ACCESSIBLE(popup));
    if (!GTK_IS_TREE_VIEW(rows) || rows == self->rows_) return;
    self->rows_ = rows;
    gtk_tree_view_set_enable_search(GTK_TREE_VIEW(rows), FALSE);
    // GTK's own key handler does not pass keys on.
    g_signal_connect(rows, "event", G_CALLBACK(on_rows_event), self);
  }

  static gboolean on_list_key(GtkWidget* /*button*/, GdkEventKey* event, Tlist_keys* self) {
    int const active = gtk_combo_box_get_active(self->combo_);
    return self->type(*event, active, [self](int position) {
      // The toolkit gets the same event as for a choice of the user.
      gtk_combo_box_set_active(self->combo_, position);
    });
  }

  static gboolean on_rows_event(GtkWidget* widget, GdkEvent* event, Tlist_keys* self) {
    if (event->type != GDK_KEY_PRESS) return FALSE;
    auto* const rows = GTK_TREE_VIEW(widget);
    GtkTreePath* marked = nullptr;
    gtk_tree_view_get_cursor(rows, &marked, nullptr);
    int const position = marked == nullptr ? -1 : *gtk_tree_path_get_indices(marked);
    gtk_tree_path_free(marked);
    return self->type(event->key, position, [rows](int found) {
      GtkTreePath* const path = gtk_tree_path_new_from_indices(found, -1);
      gtk_tree_view_set_cursor(rows, path, nullptr, FALSE);
      gtk_tree_path_free(path);
    });
  }

  // Whether the key was a letter. `choose` receives the entry that the letters mean.
  template <class Choose>
  gboolean type(GdkEventKey const& event, int current, Choose choose) {
    constexpr unsigned shortcuts = GDK_CONTROL_MASK | GDK_MOD1_MASK | GDK_SUPER_MASK;
    gunichar const letter = gdk_keyval_to_unicode(event.keyval);
    auto const now = Tzu_type_ahead::clock::now();
    bool const is_typed = g_unichar_isgraph(letter) || (letter == ' ' && typed_.is_typing(now));
    if (!is_typed || (event.state & shortcuts) != 0) return FALSE;
    run_guarded(list_, [&] {
      std::vector<std::wstring> captions(list_.get_items_count());
      for (std::size_t i = 0; i < captions.size(); ++i)
        captions[i] = fold(list_.get_item_captions(i));
      auto const start = current < 0 ? std::nullopt : std::optional<std::size_t>(current);
      auto const found =
          typed_.type(static_cast<wchar_t>(g_unichar_tolower(letter)), now, captions, start);
      if (found && found != start) choose(static_cast<int>(*found));
    });
    return TRUE;
  }

  Tzu_vcl_selbox& list_;
  GtkComboBox* combo_;
  GtkWidget* rows_ = nullptr;
  Tzu_type_ahead typed_;
};

}  // namespace

GtkWidget* find_list_button(GtkWidget* widget) {
  if (GTK_IS_TOGGLE_BUTTON(widget) || !GTK_IS_CONTAINER(widget)) return widget;
  GtkWidget* found = widget;
  gtk_container_forall(
      GTK_CONTAINER(widget),
      [](GtkWidget* child, void* result) {
        GtkWidget* const inner = find_list_button(child);
        if (GTK_IS_TOGGLE_BUTTON(inner)) *static_cast<GtkWidget**>(result) = inner;
      },
      &found);
  return found;
}

// The button receives blanks before the list does.
void add_list_keys(Tzu_vcl_selbox& list) {
  auto keys = std::make_unique<Tlist_keys>(list);
  g_object_set_data_full(
      G_OBJECT(list.GetHandle()), "zu-list-keys", keys.release(),
      [](void* owned) { std::unique_ptr<Tlist_keys>(static_cast<Tlist_keys*>(owned)); });
}

}  // namespace zu::vcl::platform
