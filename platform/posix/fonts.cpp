#include "platform/fonts.h"

#include <pango/pangocairo.h>

namespace tarveth::platform {

// Making the toolkit's default font map starts a thread that reads the list.
void BeginReadingFonts() {
    pango_cairo_font_map_get_default();
}

} // namespace tarveth::platform
