// Text of a server's for a message box.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// As much of the text as a box has room for: 20 lines of 200 characters; a line behind them says how many
// more there are. Text is bytes in the wire's code page.
std::string BoxText(std::string_view text);

} // namespace tarveth
