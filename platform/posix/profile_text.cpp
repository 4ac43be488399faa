#include "platform/posix/profile_text.h"

#include "platform/profile_line.h"

#include <algorithm>

namespace tarveth::platform {

namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

} // namespace

struct ProfileText::Line {
    enum class Kind { Blank, Section, Key, Other };

    Kind kind = Kind::Blank;
    std::string_view name;  // the name of the section or key, trimmed
    std::string_view value; // the key's value, still with blanks and quotes
    std::size_t begin = 0;
    std::size_t end = 0;  // the position behind the content
    std::size_t next = 0; // the position behind the line end
};

// The place of a key, or the place where it would be inserted. Positions are offsets into the text.
struct ProfileText::Place {
    bool hasSection = false;
    std::size_t sectionEnd = 0; // the position behind the section's last line that is not blank
    std::optional<Line> key;
};

ProfileText::Line ProfileText::LineAt(std::size_t begin) const {
    const std::string_view text = text_;
    Line line;
    line.begin = begin == 0 && text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : begin;
    line.end = std::min(text.find_first_of(kLineEnds, line.begin), text.size());
    line.next = line.end + (text.substr(line.end, 2) == kLineEnds ? 2 : line.end < text.size() ? 1 : 0);

    const std::string_view whole = text.substr(line.begin, line.end - line.begin);
    const std::string_view content = TrimmedProfileText(whole.substr(0, whole.find('\0')));
    const std::size_t bracket = content.rfind(']');
    const std::size_t equals = content.find('=');
    if (content.empty()) {
        line.kind = whole.find('\0') == std::string_view::npos ? Line::Kind::Blank : Line::Kind::Other;
    } else if (content.front() == '[' && bracket != std::string_view::npos) {
        line.kind = Line::Kind::Section;
        line.name = TrimmedProfileText(content.substr(1, bracket - 1));
    } else if (content.front() == '[' || content.front() == ';' || equals == std::string_view::npos) {
        line.kind = Line::Kind::Other;
    } else {
        line.kind = Line::Kind::Key;
        line.name = TrimmedProfileText(content.substr(0, equals));
        line.value = content.substr(equals + 1);
    }
    return line;
}

ProfileText::Place ProfileText::Look(std::string_view section, std::string_view key) const {
    Place place;
    for (Line line = LineAt(0); line.begin < text_.size(); line = LineAt(line.next)) {
        if (line.kind == Line::Kind::Section && place.hasSection)
            break;
        if (line.kind == Line::Kind::Section)
            place.hasSection = SameProfileName(line.name, section);
        if (place.hasSection && line.kind != Line::Kind::Blank)
            place.sectionEnd = line.next;
        if (place.hasSection && line.kind == Line::Kind::Key && SameProfileName(line.name, key)) {
            place.key = line;
            break;
        }
    }
    return place;
}

std::optional<std::string_view> ProfileText::Find(std::string_view section, std::string_view key) const {
    const Place place = Look(TrimmedProfileText(section), TrimmedProfileText(key));
    if (!place.key)
        return std::nullopt;
    return BareValue(place.key->value);
}

void ProfileText::InsertLine(std::size_t at, std::string line) {
    const bool startsLine = at == 0 || (at == kByteOrderMark.size() && text_.starts_with(kByteOrderMark)) ||
                            kLineEnds.find(text_[at - 1]) != std::string_view::npos;
    line.append(kLineEnds);
    text_.insert(at, line);
    if (!startsLine)
        text_.insert(at, kLineEnds);
}

bool ProfileText::Put(std::string_view section, std::string_view key, std::string_view value) {
    section = TrimmedProfileText(section);
    key = TrimmedProfileText(key);
    if (!ReadsBack(section, key, value))
        return false;

    const Place place = Look(section, key);
    // An existing line keeps the spelling that the user gave the key.
    std::string line = std::string(place.key ? place.key->name : key) + "=" + std::string(value);
    if (place.key)
        text_.replace(place.key->begin, place.key->end - place.key->begin, line);
    else if (place.hasSection)
        InsertLine(place.sectionEnd, std::move(line));
    else
        InsertLine(text_.size(), std::string("[").append(section).append("]\r\n").append(line));
    return true;
}

} // namespace tarveth::platform
