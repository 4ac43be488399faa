// The wire's code page, windows-1252, and UTF-8, in which the settings and the windows keep their texts.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// As UTF-8. The five bytes that the code page leaves out are the control characters of the same number.
std::string FromWire(std::string_view bytes);

// As the wire's bytes. A character that the wire cannot carry becomes "?", and so does each byte that is no
// UTF-8.
std::string ToWire(std::string_view utf8);

} // namespace tarveth
