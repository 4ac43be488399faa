// The lines of a transcript. Only the newest are kept, so that a server that never stops talking does not
// fill the memory; the oldest go in blocks, which is cheaper than one by one.
#pragma once

#include "net/ClientPorts.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace tarveth {

struct TranscriptLine {
    std::string text; // in the wire's code page, without a line end
    LineKind kind = LineKind::Others;
};

class TranscriptLines {
public:
    static constexpr std::size_t kMostLines = 5000;
    static constexpr std::size_t kMostCharacters = std::size_t{1024} * 1024; // each line's end included
    // The most characters of a line. The toolkit lays out a line as a whole and takes minutes for a very long
    // one.
    static constexpr std::size_t kLongestLine = 2000;

    // Adds a line at the end. One that is too long is cut and then ends in "...".
    void Add(std::string_view text, LineKind kind);
    void Clear();
    const std::deque<TranscriptLine>& Lines() const { return lines_; }

    // The difference between the lines now and at the last TakeUpdate, for a window that shows the latter.
    struct Update {
        std::size_t gone = 0;     // characters to remove at the window's beginning
        std::size_t firstNew = 0; // the first of the lines to add at its end
    };
    Update TakeUpdate();

private:
    void DropOldest();

    std::deque<TranscriptLine> lines_;
    std::size_t characters_ = 0;
    std::size_t shown_ = 0; // lines that were there at the last TakeUpdate and still are
    std::size_t gone_ = 0; // characters of lines that were there at the last TakeUpdate and have been dropped
};

} // namespace tarveth
