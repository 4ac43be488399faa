#include "platform/window_place.h"

namespace tarveth::platform {

// Here a window keeps the place that the toolkit gives it before it is shown.
void PlaceAtFirstShow(void*, int, int) {}

} // namespace tarveth::platform
