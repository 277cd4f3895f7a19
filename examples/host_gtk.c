/* A host of the dialog in plain C and GTK 3. Its window has a definition, a button that opens
   the dialog, and the result.

   usage: zu_demo_host [--times N] [--library FILE] [DEFINITION]

   --times N       press "Edit..." N times without a user, and end
   --library FILE  the library; by default the one in the program's folder */
#include <gdk/gdk.h>
#include <gtk/gtk.h>
#include <stdio.h>
#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

#include "host_common.h"

typedef struct {
  host_state state;
  GtkWidget* window;
  GtkWidget* definition;
  GtkWidget* result;
  GtkWidget* changed;
} host;

/* Null if the display is not X11. The dialog has no owner then. */
static zu_pj_edit_window window_id(GtkWidget* window) {
#ifdef GDK_WINDOWING_X11
  GdkWindow* const native = gtk_widget_get_window(window);
  if (GDK_IS_X11_WINDOW(native)) return GSIZE_TO_POINTER(GDK_WINDOW_XID(native));
#endif
  (void)window;
  return NULL;
}

static void edit(host* self) {
  host_set_definition(&self->state, gtk_entry_get_text(GTK_ENTRY(self->definition)));
  host_edit(&self->state, window_id(self->window));
  gtk_label_set_text(GTK_LABEL(self->result), self->state.definition);
  gtk_label_set_text(GTK_LABEL(self->changed),
                     self->state.changed ? "1 (Apply)" : "0 (not applied)");
  if (self->state.changed) gtk_entry_set_text(GTK_ENTRY(self->definition), self->state.definition);
}

static void on_edit(GtkButton* button, gpointer context) {
  (void)button;
  edit(context);
}

static gboolean on_work(gpointer context) {
  host* const self = context;
  edit(self);
  if (self->state.times > 0) {
    g_timeout_add(host_pause_ms, on_work, self);
  } else {
    gtk_widget_destroy(self->window);
  }
  return G_SOURCE_REMOVE;
}

/* The window must get its place first, because the dialog opens over its middle. */
static gboolean on_map(GtkWidget* widget, GdkEvent* event, gpointer context) {
  (void)widget;
  (void)event;
  g_timeout_add(host_pause_ms, on_work, context);
  return FALSE;
}

static gboolean on_tick(gpointer context) {
  host_tick(context);
  return G_SOURCE_CONTINUE;
}

static GtkWidget* add_line(GtkGrid* grid, int row, char const* caption, GtkWidget* widget) {
  GtkWidget* const label = gtk_label_new(caption);
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_grid_attach(grid, label, 0, row, 1, 1);
  gtk_widget_set_hexpand(widget, TRUE);
  gtk_grid_attach(grid, widget, 1, row, 1, 1);
  return widget;
}

static GtkWidget* new_text(void) {
  GtkWidget* const label = gtk_label_new("-");
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
  gtk_label_set_selectable(GTK_LABEL(label), TRUE);
  return label;
}

static void build_window(host* self, char const* definition) {
  self->window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_title(GTK_WINDOW(self->window), "zu_pj_edit demonstration host");
  gtk_window_set_default_size(GTK_WINDOW(self->window), 860, 420);
  gtk_window_set_position(GTK_WINDOW(self->window), GTK_WIN_POS_CENTER);
  gtk_container_set_border_width(GTK_CONTAINER(self->window), 12);
  g_signal_connect(self->window, "destroy", G_CALLBACK(gtk_main_quit), NULL);

  GtkWidget* const grid = gtk_grid_new();
  gtk_grid_set_row_spacing(GTK_GRID(grid), 8);
  gtk_grid_set_column_spacing(GTK_GRID(grid), 12);
  gtk_container_add(GTK_CONTAINER(self->window), grid);

  self->definition = add_line(GTK_GRID(grid), 0, "Definition", gtk_entry_new());
  gtk_entry_set_text(GTK_ENTRY(self->definition), definition);
  GtkWidget* const button = gtk_button_new_with_label("Edit...");
  g_signal_connect(button, "clicked", G_CALLBACK(on_edit), self);
  gtk_grid_attach(GTK_GRID(grid), button, 2, 0, 1, 1);
  self->result = add_line(GTK_GRID(grid), 1, "Returned text", new_text());
  self->changed = add_line(GTK_GRID(grid), 2, "Changed flag", new_text());

  if (self->state.times > 0) g_signal_connect(self->window, "map-event", G_CALLBACK(on_map), self);
  gtk_widget_show_all(self->window);
}

int main(int argc, char** argv) {
  gint times = 0;
  char* library = NULL;
  char** definitions = NULL;
  GOptionEntry const options[] = {
      {"times", 0, 0, G_OPTION_ARG_INT, &times, "Open the dialog N times by itself, and end", "N"},
      {"library", 0, 0, G_OPTION_ARG_FILENAME, &library, "Where the library is", "FILE"},
      {G_OPTION_REMAINING, 0, 0, G_OPTION_ARG_STRING_ARRAY, &definitions, NULL, "[DEFINITION]"},
      {NULL, 0, 0, G_OPTION_ARG_NONE, NULL, NULL, NULL}};
  GError* error = NULL;
  if (!gtk_init_with_args(&argc, &argv, NULL, options, NULL, &error)) {
    (void)fprintf(stderr, "zu_demo_host: %s\n", error ? error->message : "cannot open the display");
    return 2;
  }
  if (definitions != NULL && definitions[0] != NULL && definitions[1] != NULL) {
    (void)fprintf(stderr, "zu_demo_host: one definition is expected; put it in quotes\n");
    return 2;
  }

  host self = {.state.times = times};
  if (!host_load(library)) return 1;
  build_window(&self, definitions && definitions[0] ? definitions[0] : host_usual_definition);
  g_timeout_add(host_tick_ms, on_tick, &self.state);
  gtk_main();

  g_strfreev(definitions);
  g_free(library);
  return 0;
}
