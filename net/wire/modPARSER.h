// The syntax of the text that travels between game and lobby: messages are name(arguments), arguments are
// separated by single characters, and parentheses nest. Positions and field numbers count from 1.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// Bits of the options of a split.
inline constexpr unsigned kGroupParentheses = 1; // a separator inside parentheses does not split
inline constexpr unsigned kGroupQuotes = 2;      // nor does one between two double quotes, which are kept

// How many characters of the text are separators that split. A ")" that closes nothing groups nothing: the
// separators behind it split as if it were not there.
int CountSeparators(std::string_view text, std::string_view separators, unsigned options);

// The fields of the text, untrimmed, as views into it; an empty text is one empty field.
std::vector<std::string_view> SplitFields(std::string_view text, std::string_view separators,
                                          unsigned options);
// The same into fields, as many as it takes. How many there are in all.
std::size_t SplitFields(std::string_view text, std::string_view separators, unsigned options,
                        std::span<std::string_view> fields);

// The fields of the last split, and what stood between them.
struct MessageFields {
    std::vector<std::string> Args{1};          // element 0 is not used
    std::vector<std::string> ArgSeparators{1}; // the one after each field but the last; element 0 is not used

    void SplitArgs(std::string_view text, std::string_view separators, unsigned options);
    int ArgCount() const { return static_cast<int>(Args.size()) - 1; }
    // Empty beyond the last field, and below the first.
    std::string GetArg(int i) const;
};

// The position of the ")" that closes a "(" just before the text; 0 if none does.
int FindClosingParen(std::string_view text);

// Takes one message with a two-character head, such as "M(", from the front of the text and gives what its
// parentheses hold. If they never close, the whole text is taken and nothing given.
std::optional<std::string_view> TakeShortArgs(std::string_view& text);

} // namespace tarveth
