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
    // Of a line. The toolkit lays out a line as a whole, and takes minutes over a very long one.
    static constexpr std::size_t kLongestLine = 2000;

    // A line that is too long is cut, and ends in "...".
    void Add(std::string_view text, LineKind kind);
    void Clear();
    const std::deque<TranscriptLine>& Lines() const { return lines_; }

    // What is to be done to a window that shows the lines as they were when last asked.
    struct Update {
        std::size_t gone = 0;     // characters to be taken away at its beginning
        std::size_t firstNew = 0; // the lines from this one on are to be added at its end
    };
    Update TakeUpdate();

private:
    void DropOldest();

    std::deque<TranscriptLine> lines_;
    std::size_t characters_ = 0;
    std::size_t shown_ = 0; // so many of the lines were there when last asked
    std::size_t gone_ = 0;  // characters of such lines that are kept no more
};

} // namespace tarveth
