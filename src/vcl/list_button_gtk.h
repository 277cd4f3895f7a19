// The part of a GTK list that has the keyboard.
#pragma once

#include <gtk/gtk.h>

namespace zu::vcl::platform {

// Returns `widget` itself when it is no list.
GtkWidget* find_list_button(GtkWidget* widget);

}  // namespace zu::vcl::platform
