#include "host_controls_gtk.h"

#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

typedef struct {
  GtkWidget* host;
  char const* file;
} watch;

static void add_line(GString* lines, char const* kind, GtkWidget* widget, char const* state,
                     char const* text) {
  GtkWidget* const window = gtk_widget_get_toplevel(widget);
  int left = 0;
  int top = 0;
  int window_left = 0;
  int window_top = 0;
  gtk_widget_translate_coordinates(widget, window, 0, 0, &left, &top);
  gdk_window_get_origin(gtk_widget_get_window(window), &window_left, &window_top);
  g_string_append_printf(lines, "%s\t%d\t%d\t%s\t%s\n", kind,
                         window_left + left + gtk_widget_get_allocated_width(widget) / 2,
                         window_top + top + gtk_widget_get_allocated_height(widget) / 2, state,
                         text);
}

static char const* on_or_off(gboolean on) { return on ? "on" : "off"; }

static void add_widget(GtkWidget* widget, gpointer context) {
  GString* const lines = context;
  if (!gtk_widget_get_mapped(widget)) return;
  gboolean const on = gtk_widget_is_sensitive(widget);
  if (GTK_IS_BUTTON(widget)) {
    char const* const label = gtk_button_get_label(GTK_BUTTON(widget));
    if (label != NULL) add_line(lines, "button", widget, on_or_off(on), label);
  } else if (GTK_IS_ENTRY(widget)) {
    add_line(lines, "edit", widget,
             on_or_off(on && gtk_editable_get_editable(GTK_EDITABLE(widget))),
             gtk_entry_get_text(GTK_ENTRY(widget)));
  }
  if (GTK_IS_CONTAINER(widget)) gtk_container_forall(GTK_CONTAINER(widget), add_widget, lines);
}

static void add_window(GString* lines, GtkWidget* window, char const* title) {
  char id[32] = "";
#ifdef GDK_WINDOWING_X11
  GdkWindow* const native = gtk_widget_get_window(window);
  if (GDK_IS_X11_WINDOW(native)) g_snprintf(id, sizeof id, "%lu", GDK_WINDOW_XID(native));
#endif
  add_line(lines, "window", window, id, title);
}

static gboolean on_timer(gpointer context) {
  watch const* const self = context;
  GString* const lines = g_string_new(NULL);
  GList* const windows = gtk_window_list_toplevels();
  for (GList const* item = windows; item != NULL; item = item->next) {
    GtkWidget* const window = item->data;
    char const* const title = gtk_window_get_title(GTK_WINDOW(window));
    if (window == self->host || title == NULL || !gtk_widget_get_mapped(window)) continue;
    add_window(lines, window, title);
    add_widget(window, lines);
  }
  g_list_free(windows);
  /* Replaced as a whole: a reader never sees half a list. */
  GError* error = NULL;
  if (!g_file_set_contents(self->file, lines->str, (gssize)lines->len, &error)) {
    g_printerr("zu_demo_host: %s\n", error->message);
    g_error_free(error);
  }
  g_string_free(lines, TRUE);
  return G_SOURCE_CONTINUE;
}

void host_controls_watch(GtkWidget* host, char const* file) {
  static watch self;
  self.host = host;
  self.file = file;
  g_timeout_add(200, on_timer, &self);
}
