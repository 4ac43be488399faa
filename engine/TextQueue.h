// A queue kept as text: items, each followed by '|'.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarveth {

class TextQueue {
public:
    TextQueue() = default;
    explicit TextQueue(std::string items) : text_(std::move(items)) {}

    // What has not been taken yet.
    std::string_view Text() const { return std::string_view(text_).substr(taken_); }
    bool IsEmpty() const { return taken_ == text_.size(); }
    void Append(std::string_view item);
    void Clear();

    // Takes the first item; an empty queue gives the empty text.
    friend std::string PopQueueItem(TextQueue& queue);

private:
    std::string text_;
    std::size_t taken_ = 0; // characters: to cut each item off a long text would move all the others
};

std::string PopQueueItem(TextQueue& queue);

// The number an item stands for: its leading decimal digits, with a minus sign or without. Anything that is
// no number or does not fit 16 bits gives -1, which no square, piece or slot is.
std::int16_t QueueNumber(const std::string& item);

} // namespace tarveth
