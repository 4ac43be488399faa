// Finds the messages in a stream of bytes: each begins with the marker and ends where its parentheses close.
// What is incomplete is kept for the next bytes. Shared by the game and the lobby.
//
// Forgiven: a message that never closes is given up at the next marker (so no text can hold a marker), and
// one that is too long is left out, up to its end.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

inline constexpr char kMarker = '\xA9';
inline constexpr std::string_view kMarkerText(&kMarker, 1);
inline constexpr std::size_t kLongestMessage = 32767;

// One item of the stream.
struct Frame {
    enum class Kind {
        Message, // name, arguments and whole are set; whole is name(arguments) without the marker
        Text,    // whole holds bytes outside any message; the rest of a text may follow as another frame
        TooLong  // a message has passed the limit; said once, nothing else of it will come
    };
    Kind kind = Kind::Text;
    std::string_view name;
    std::string_view arguments;
    std::string_view whole;
};

enum class MessageNames {
    Any,    // all that stands before the first "("
    Letters // a marker followed by anything but a word and "(" is no message; what follows it is text
};

class Framer {
public:
    // longest: the most characters of a message, without its marker.
    explicit Framer(std::size_t longest = kLongestMessage, MessageNames names = MessageNames::Any)
        : longest_(longest), names_(names) {}

    // Takes the next frame from the front of the bytes; nothing when they are used up. The frame's views stay
    // valid until the next call, and no longer than the bytes.
    std::optional<Frame> Next(std::string_view& bytes);

    // Whether the beginning of an incomplete message is being kept.
    bool InMessage() const { return inMessage_; }
    // The memory that the beginning of an incomplete message takes, in bytes.
    std::size_t KeptBytes() const { return kept_.capacity(); }

private:
    std::optional<Frame> NextInMessage(std::string_view& bytes);
    std::optional<Frame> Keep(std::string_view& bytes);
    Frame Finish(std::string_view& bytes, std::size_t length, Frame::Kind kind);
    bool EndsName(char c) const;

    std::string kept_; // what came of the message before these bytes, without the marker
    std::size_t longest_;
    std::size_t nameLength_ = 0;
    std::size_t depth_ = 0; // 0: still in the name
    MessageNames names_;
    bool inMessage_ = false;
    bool tooLong_ = false;
};

} // namespace tarveth
