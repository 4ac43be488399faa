#include "platform/accessible.h"

#include <gtk/gtk.h>

namespace tarveth::platform {

void SetAccessible(void* nativeWidget, const std::string& name, const std::string& description) {
    auto* widget = static_cast<GtkWidget*>(nativeWidget);
    AtkObject* control = gtk_widget_get_accessible(widget);
    atk_object_set_accessible_id(control, name.c_str());
    if (atk_object_get_role(control) == ATK_ROLE_LABEL) {
        atk_object_set_description(control, description.c_str());
    } else {
        atk_object_set_name(control, description.c_str());
    }
}

} // namespace tarveth::platform
