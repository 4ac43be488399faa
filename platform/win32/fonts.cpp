#include "platform/fonts.h"

namespace tarveth::platform {

// Nothing to do: Windows has its list of fonts loaded already.
void BeginReadingFonts() {}

} // namespace tarveth::platform
