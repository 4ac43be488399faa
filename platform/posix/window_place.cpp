#include "platform/window_place.h"

#include <gtk/gtk.h>

namespace tarveth::platform {

// Before it shows the window, the toolkit asks the window manager for the size of the frame, and the resizing
// that follows overwrites a position set earlier. So the position is set on the window of the display server
// itself.
void PlaceAtFirstShow(void* nativeWidget, int x, int y) {
    auto* window = static_cast<GtkWidget*>(nativeWidget);
    gtk_window_move(GTK_WINDOW(window), x, y);
    if (GdkWindow* onScreen = gtk_widget_get_window(window); onScreen != nullptr)
        gdk_window_move(onScreen, x, y);
}

} // namespace tarveth::platform
