// A queue in the form of a text: items, each followed by '|'.
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

    // Gives the items that have not been taken yet.
    std::string_view Text() const { return std::string_view(text_).substr(taken_); }
    bool IsEmpty() const { return taken_ == text_.size(); }
    void Append(std::string_view item);
    void Clear();

    // Takes the first item off the queue; gives an empty text when the queue is empty.
    friend std::string PopQueueItem(TextQueue& queue);

private:
    std::string text_;
    std::size_t taken_ = 0; // characters taken; erasing each item at once would move all the others
};

std::string PopQueueItem(TextQueue& queue);

// Gives the number at the beginning of an item, with or without a minus sign. An item that begins with no
// number, or with one that does not fit 16 bits, gives -1, which no square, piece or slot has.
std::int16_t QueueNumber(const std::string& item);

} // namespace tarveth
