// What a screen reader is told about a control.
#pragma once

#include <string>

namespace tarveth::platform {

// Gives a control its name for programs (`name`, such as "lblMessage") and what is read out for it
// (`description`, such as "Message"). A label still reads out its text first; `description` comes after it.
// `nativeWidget` is what the toolkit's GetHandle() gives; UTF-8 texts. May be called again at any time to
// change the texts.
void SetAccessible(void* nativeWidget, const std::string& name, const std::string& description);

} // namespace tarveth::platform
