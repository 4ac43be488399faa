#include "platform/fonts.h"

#include <pango/pangocairo.h>

namespace tarveth::platform {

// The toolkit's own font map, which reads the list on a thread from the moment it is made.
void BeginReadingFonts() {
    pango_cairo_font_map_get_default();
}

} // namespace tarveth::platform
