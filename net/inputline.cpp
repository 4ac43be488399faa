#include "net/inputline.h"

#include "net/wire/framing.h"
#include "net/wire/plaintext.h"
#include "text/foldcase.h"

#include <string>

namespace tarveth {

namespace {

constexpr std::string_view kPrivately = "/p ";
constexpr std::string_view kGenerally = "/g ";

// A marker that is typed would begin a message.
std::string WithoutMarkers(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if (c == kMarker)
            plain += "(c)";
        else
            plain += c;
    }
    return plain;
}

} // namespace

InputLine::InputLine(ClientWindowPort& window, modSockets& connection, const Nicknames& nicks, Chat& chat,
                     GameLink& link)
    : window_(window), connection_(connection), nicks_(nicks), chat_(chat), link_(link) {}

void InputLine::SetPrivateMode(bool privateMode) {
    privateMode_ = privateMode;
    window_.ShowPrivateMode(privateMode);
}

void InputLine::Enter(std::string_view line) {
    if (FoldCase(line.substr(0, kPrivately.size())) == kPrivately)
        SayPrivately(line.substr(kPrivately.size()));
    else if (!privateMode_)
        SayToAll(line);
    else if (line.starts_with(kGenerally))
        SayToAll(line.substr(kGenerally.size()));
    else
        SayPrivately(line);
}

void InputLine::SayPrivately(std::string_view text) {
    if (text.empty())
        return;
    const std::string line = BalancedLine(WithoutMarkers(text));
    chat_.AppendTranscript(nicks_.mine + ":[p] " + line, false);
    if (link_.IsOn())
        link_.SendGameMessage("X(" + line + ")");
    else
        chat_.ShowNotice("Nobody has seen that line: you have no opponent.");
}

void InputLine::SayToAll(std::string_view text) {
    if (!text.empty())
        connection_.SendRawText(WithoutMarkers(text));
}

} // namespace tarveth
