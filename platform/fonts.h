// Starts reading the system's list of fonts early.
#pragma once

namespace tarveth::platform {

// Starts reading the list of fonts on another thread. Otherwise the toolkit reads it when it first measures a
// text, and waits. To be called on the user-interface thread after the toolkit has started and before the
// first window is made.
void BeginReadingFonts();

} // namespace tarveth::platform
