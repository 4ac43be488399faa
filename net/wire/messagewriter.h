// Writes messages as the other side's parser reads them.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tarveth {

// name(field,field), without the marker. Every field is made fit to stand inside a message, wherever it came
// from (see BalancedLine).
std::string WriteMessage(std::string_view name, std::initializer_list<std::string_view> fields);

} // namespace tarveth
