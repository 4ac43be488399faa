#include "platform/window_place.h"

namespace tarveth::platform {

// Nothing to do: on Windows a window keeps the position that it was given before it is shown.
void PlaceAtFirstShow(void*, int, int) {}

} // namespace tarveth::platform
