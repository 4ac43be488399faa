#include "platform/fonts.h"

namespace tarveth::platform {

// Here the system has read them already.
void BeginReadingFonts() {}

} // namespace tarveth::platform
