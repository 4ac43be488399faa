#include "net/wire/framing.h"

namespace tarveth {

std::optional<Frame> Framer::Next(std::string_view& bytes) {
    while (!bytes.empty() || inMessage_) {
        if (!inMessage_) {
            kept_ = std::string();
            const std::size_t marker = bytes.find(kMarker);
            if (marker != 0) {
                const std::string_view text = bytes.substr(0, marker);
                bytes.remove_prefix(text.size());
                return Frame{Frame::Kind::Text, {}, {}, text};
            }
            bytes.remove_prefix(1);
            inMessage_ = true;
            tooLong_ = false;
            depth_ = 0;
        }
        if (const auto frame = NextInMessage(bytes))
            return frame;
        if (inMessage_)
            return std::nullopt;
    }
    kept_ = std::string();
    return std::nullopt;
}

// Nothing, with inMessage_ false: the message was given up at a marker, or had been too long.
std::optional<Frame> Framer::NextInMessage(std::string_view& bytes) {
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const char c = bytes[at];
        if (c == kMarker) {
            const bool tooLong = !tooLong_ && kept_.size() + at > longest_;
            bytes.remove_prefix(at);
            inMessage_ = false;
            return tooLong ? std::optional(Frame{Frame::Kind::TooLong, {}, {}, {}}) : std::nullopt;
        }
        if (c == '(') {
            if (depth_ == 0)
                nameLength_ = kept_.size() + at;
            ++depth_;
        } else if (depth_ == 0) {
            if (EndsName(c))
                return Finish(bytes, at, Frame::Kind::Text);
        } else if (c == ')' && --depth_ == 0) {
            if (tooLong_) {
                bytes.remove_prefix(at + 1);
                inMessage_ = false;
                return std::nullopt;
            }
            const bool fits = kept_.size() + at + 1 <= longest_;
            return Finish(bytes, at + 1, fits ? Frame::Kind::Message : Frame::Kind::TooLong);
        }
    }
    return Keep(bytes);
}

std::optional<Frame> Framer::Keep(std::string_view& bytes) {
    const std::string_view rest = bytes;
    bytes = {};
    if (tooLong_)
        return std::nullopt;
    if (kept_.size() + rest.size() > longest_) {
        tooLong_ = true;
        kept_ = std::string();
        return Frame{Frame::Kind::TooLong, {}, {}, {}};
    }
    kept_.append(rest);
    return std::nullopt;
}

Frame Framer::Finish(std::string_view& bytes, std::size_t length, Frame::Kind kind) {
    inMessage_ = false;
    std::string_view whole = bytes.substr(0, length);
    bytes.remove_prefix(length);
    if (kind == Frame::Kind::TooLong)
        return {kind, {}, {}, {}};
    if (!kept_.empty()) {
        kept_.append(whole);
        whole = kept_;
    }
    if (kind == Frame::Kind::Text)
        return {kind, {}, {}, whole};
    return {kind, whole.substr(0, nameLength_), whole.substr(nameLength_ + 1, whole.size() - nameLength_ - 2),
            whole};
}

bool Framer::EndsName(char c) const {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return names_ == MessageNames::Letters && !letter;
}

} // namespace tarveth
