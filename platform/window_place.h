// Where a window first comes up on the screen.
#pragma once

namespace tarveth::platform {

// Makes a top-level window that is about to be shown come up with its frame's corner at (x, y), in the
// toolkit's units. To be called right after its Show(). `nativeWidget` is what the toolkit's GetHandle()
// gives.
void PlaceAtFirstShow(void* nativeWidget, int x, int y);

} // namespace tarveth::platform
