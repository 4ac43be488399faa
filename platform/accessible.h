// Names controls for screen readers and other accessibility tools.
#pragma once

#include <string>

namespace tarveth::platform {

// Sets the name by which programs find a control (`name`, such as "lblMessage") and what a screen reader says
// of it (`description`, such as "Message"). Of a label its text is read first, then the description.
// `nativeWidget` is the result of the toolkit's GetHandle(); the texts are UTF-8. May be called again to
// change the texts.
void SetAccessible(void* nativeWidget, const std::string& name, const std::string& description);

} // namespace tarveth::platform
