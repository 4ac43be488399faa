#include "platform/accessible.h"

#include <gtk/gtk.h>

namespace tarveth::platform {

namespace {

// Gives the inner control of one that can scroll: the toolkit wraps it in a frame, but it is the inner one
// that gets the focus and is read out.
GtkWidget* Spoken(GtkWidget* widget) {
    return GTK_IS_SCROLLED_WINDOW(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : widget;
}

} // namespace

void SetAccessible(void* nativeWidget, const std::string& name, const std::string& description) {
    AtkObject* control = gtk_widget_get_accessible(Spoken(static_cast<GtkWidget*>(nativeWidget)));
    atk_object_set_accessible_id(control, name.c_str());
    // As long as a label is given no name, its text is its accessible name.
    if (atk_object_get_role(control) == ATK_ROLE_LABEL) {
        atk_object_set_description(control, description.c_str());
    } else {
        atk_object_set_name(control, description.c_str());
    }
}

} // namespace tarveth::platform
