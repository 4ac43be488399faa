// The system's fonts.
#pragma once

namespace tarveth::platform {

// Begins to read which fonts the system has, beside the caller. The toolkit would begin with the first text
// it measures, and wait for the end; called before the first window is made, the two go on side by side. To
// be called on the user-interface thread, once the toolkit has started.
void BeginReadingFonts();

} // namespace tarveth::platform
