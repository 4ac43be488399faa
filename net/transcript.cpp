#include "net/transcript.h"

#include <algorithm>
#include <utility>

namespace tarveth {

namespace {

constexpr std::size_t kBlocks = 8; // an eighth of the lines is dropped at a time
constexpr std::string_view kCut = "...";

std::size_t Length(const TranscriptLine& line) {
    return line.text.size() + 1;
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

} // namespace

void TranscriptLines::Add(std::string_view text, LineKind kind) {
    TranscriptLine line{std::string(text.substr(0, kLongestLine)), kind};
    if (text.size() > kLongestLine)
        line.text.replace(kLongestLine - kCut.size(), kCut.size(), kCut);
    std::replace_if(line.text.begin(), line.text.end(), IsControl, ' '); // a line end would make two of it
    characters_ += Length(line);
    lines_.push_back(std::move(line));
    if (lines_.size() > kMostLines || characters_ > kMostCharacters)
        DropOldest();
}

void TranscriptLines::DropOldest() {
    constexpr std::size_t lines = kMostLines / kBlocks * (kBlocks - 1);
    constexpr std::size_t characters = kMostCharacters / kBlocks * (kBlocks - 1);
    while (lines_.size() > 1 && (lines_.size() > lines || characters_ > characters)) {
        const std::size_t length = Length(lines_.front());
        characters_ -= length;
        if (shown_ > 0) {
            --shown_;
            gone_ += length;
        }
        lines_.pop_front();
    }
}

void TranscriptLines::Clear() {
    for (std::size_t i = 0; i < shown_; ++i)
        gone_ += Length(lines_[i]);
    lines_.clear();
    characters_ = 0;
    shown_ = 0;
}

TranscriptLines::Update TranscriptLines::TakeUpdate() {
    return {std::exchange(gone_, 0), std::exchange(shown_, lines_.size())};
}

} // namespace tarveth
