#include "platform/window_place.h"

#include <gtk/gtk.h>

namespace tarveth::platform {

// The toolkit asks the window manager for the frame's size before it shows the window; on the resizing that
// follows, a place that was set before is forgotten. Then only the window on the screen itself keeps it.
void PlaceAtFirstShow(void* nativeWidget, int x, int y) {
    auto* window = static_cast<GtkWidget*>(nativeWidget);
    gtk_window_move(GTK_WINDOW(window), x, y);
    if (GdkWindow* onScreen = gtk_widget_get_window(window); onScreen != nullptr)
        gdk_window_move(onScreen, x, y);
}

} // namespace tarveth::platform
