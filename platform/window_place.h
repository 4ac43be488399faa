// Sets the place at which a window first appears on the screen.
#pragma once

namespace tarveth::platform {

// Makes a top-level window appear with its frame's corner at (x, y), in the toolkit's units. To be called
// right after its Show(). `nativeWidget` is the result of the toolkit's GetHandle().
void PlaceAtFirstShow(void* nativeWidget, int x, int y);

} // namespace tarveth::platform
