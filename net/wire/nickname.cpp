#include "net/wire/nickname.h"

#include "net/wire/framing.h"
#include "net/wire/plaintext.h"
#include "text/trim.h"

namespace tarveth {

namespace {

// Those that have a meaning in messages or in the list of users.
constexpr std::string_view kForbidden = "(),\"|\xAE";
constexpr std::string_view kNobody = "Player";

// Those that show nothing, or that look like a blank: such nicknames would be taken for others.
constexpr std::string_view kUnseen = "\x7F\x81\x8D\x8F\x90\x9D\xA0\xAD";

bool MayBeInNickname(char c) {
    const bool control = static_cast<unsigned char>(c) < ' ';
    return !control && c != kMarker && kForbidden.find(c) == std::string_view::npos &&
           kUnseen.find(c) == std::string_view::npos;
}

} // namespace

std::string CleanNickname(std::string_view wanted) {
    std::string clean;
    for (const char c : wanted) {
        const bool idleBlank = c == ' ' && (clean.empty() || clean.back() == ' ');
        if (MayBeInNickname(c) && !idleBlank && clean.size() < kLongestNickname)
            clean += c;
    }
    clean = TrimBlanks(clean);
    return clean.empty() || LooksLikeConfirmation(clean) ? std::string(kNobody) : clean;
}

} // namespace tarveth
