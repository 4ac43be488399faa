#include "net/wire/modPARSER.h"

namespace tarveth {

namespace {

// Calls split(position from 0) for every separator that splits.
template <class Split>
void ForEachSeparator(std::string_view text, std::string_view separators, unsigned options, Split split) {
    int depth = 0;
    bool inQuotes = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '(' && (options & kGroupParentheses) != 0)
            ++depth;
        else if (c == ')' && (options & kGroupParentheses) != 0)
            depth -= depth > 0 ? 1 : 0;
        else if (c == '"' && (options & kGroupQuotes) != 0)
            inQuotes = !inQuotes;
        if (depth == 0 && !inQuotes && separators.find(c) != std::string_view::npos)
            split(at);
    }
}

} // namespace

int CountSeparators(std::string_view text, std::string_view separators, unsigned options) {
    int count = 0;
    ForEachSeparator(text, separators, options, [&count](std::size_t) { ++count; });
    return count;
}

std::vector<std::string_view> SplitFields(std::string_view text, std::string_view separators,
                                          unsigned options) {
    std::vector<std::string_view> fields;
    std::size_t begin = 0;
    ForEachSeparator(text, separators, options, [&](std::size_t at) {
        fields.push_back(text.substr(begin, at - begin));
        begin = at + 1;
    });
    fields.push_back(text.substr(begin));
    return fields;
}

std::size_t SplitFields(std::string_view text, std::string_view separators, unsigned options,
                        std::span<std::string_view> fields) {
    std::size_t count = 0;
    std::size_t begin = 0;
    const auto put = [&](std::size_t end) {
        if (count < fields.size())
            fields[count] = text.substr(begin, end - begin);
        ++count;
        begin = end + 1;
    };
    ForEachSeparator(text, separators, options, put);
    put(text.size());
    return count;
}

void MessageFields::SplitArgs(std::string_view text, std::string_view separators, unsigned options) {
    Args.assign(1, {});
    ArgSeparators.assign(1, {});
    std::size_t begin = 0;
    ForEachSeparator(text, separators, options, [&](std::size_t at) {
        Args.emplace_back(text.substr(begin, at - begin));
        ArgSeparators.emplace_back(1, text[at]);
        begin = at + 1;
    });
    Args.emplace_back(text.substr(begin));
}

std::string MessageFields::GetArg(int i) const {
    return i >= 1 && i <= ArgCount() ? Args[static_cast<std::size_t>(i)] : std::string();
}

int FindClosingParen(std::string_view text) {
    int depth = 1;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '(')
            ++depth;
        else if (text[at] == ')' && --depth == 0)
            return static_cast<int>(at) + 1;
    }
    return 0;
}

std::optional<std::string_view> TakeShortArgs(std::string_view& text) {
    constexpr std::size_t kHead = 2;
    const std::string_view behind = text.substr(text.size() < kHead ? text.size() : kHead);
    const int closing = FindClosingParen(behind);
    if (closing == 0) {
        text = {};
        return std::nullopt;
    }
    const auto length = static_cast<std::size_t>(closing) - 1;
    text.remove_prefix(kHead + length + 1);
    return behind.substr(0, length);
}

} // namespace tarveth
