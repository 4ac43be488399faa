#include "server/user_table.h"

#include "text/codepage.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tarveth {

namespace {

using Row = std::array<std::string, 4>;

std::string TwoDigits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// "2:03:04", in hours, minutes and seconds.
std::string ElapsedText(Clock::duration time) {
    const std::chrono::hh_mm_ss parts(std::chrono::duration_cast<std::chrono::seconds>(time));
    return std::to_string(parts.hours().count()) + ":" + TwoDigits(parts.minutes().count()) + ":" +
           TwoDigits(parts.seconds().count());
}

std::string StateText(const Lobby& lobby, const Session& session) {
    if (session.stage == Stage::Dismissed)
        return "is being put out";
    if (!session.IsUser())
        return "in the handshake";
    std::string text = session.partner != nullptr ? "in a game with " + FromWire(session.partner->nick)
                                                  : std::string("free");
    if (lobby.Decisions().Find(Sanction::Kind::Mute, session.address, session.nick, WallNow()) != nullptr)
        text += ", muted";
    return text;
}

std::size_t Letters(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string Aligned(const std::vector<Row>& rows) {
    std::array<std::size_t, 4> widths{};
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths.at(i) = std::max(widths.at(i), Letters(row.at(i)));
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            text.append(row.at(i)).append(widths.at(i) - Letters(row.at(i)) + 2, ' ');
        text += row.back() + "\n";
    }
    return text;
}

} // namespace

std::string UserTable(const Lobby& lobby) {
    std::vector<Session*> sessions = lobby.Sessions();
    std::ranges::sort(sessions, {}, &Session::arrived);
    std::vector<Row> rows = {{"NICKNAME", "ADDRESS", "HERE FOR", "STATE"}};
    for (const Session* session : sessions)
        rows.push_back({session->nick.empty() ? "-" : FromWire(session->nick), AddressText(session->address),
                        ElapsedText(lobby.Now() - session->arrived), StateText(lobby, *session)});
    return Aligned(rows);
}

} // namespace tarveth
