#include "engine/TextQueue.h"

#include <algorithm>
#include <charconv>

namespace tarveth {

void TextQueue::Append(std::string_view item) {
    text_ += item;
    text_ += '|';
}

void TextQueue::Clear() {
    text_.clear();
    taken_ = 0;
}

std::string PopQueueItem(TextQueue& queue) {
    const std::string_view left = queue.Text();
    std::string item(left.substr(0, left.find('|')));
    queue.taken_ += std::min(item.size() + 1, left.size());
    if (queue.taken_ >= queue.text_.size() / 2) { // so that each character is moved once at most
        queue.text_.erase(0, queue.taken_);
        queue.taken_ = 0;
    }
    return item;
}

std::int16_t QueueNumber(const std::string& item) {
    const std::size_t start = item.find_first_not_of(" \t");
    if (start == std::string::npos)
        return -1;
    std::int16_t number = 0;
    const auto result = std::from_chars(item.data() + start, item.data() + item.size(), number);
    return result.ec == std::errc{} ? number : std::int16_t{-1};
}

} // namespace tarveth
