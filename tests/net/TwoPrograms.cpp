#include "tests/net/TwoPrograms.h"

#include "engine/rules/checkgame.h"
#include "engine/rules/turns.h"
#include "tests/PickTurn.h"
#include "tests/engine/RandomPosition.h"

#include <algorithm>
#include <stdexcept>

namespace tarveth::test {

namespace {

void Require(bool holds, const std::string& what) {
    if (!holds)
        throw std::logic_error(what);
}

Limits NoLimits() {
    Limits limits;
    limits.messages = limits.moves = limits.chatLines = limits.chatCharacters = {};
    limits.invitations = limits.renames = limits.uselessBytes = {};
    return limits;
}

// From the front of the bytes: a message with its marker, or the text in front of the next one.
std::string TakePart(std::string_view& bytes) {
    const std::size_t next = std::min(bytes.find(kMarker, 1), bytes.size());
    std::string part(bytes.substr(0, next));
    bytes.remove_prefix(next);
    return part;
}

} // namespace

ProgramInLobby::ProgramInLobby(TestLobby& lobby, const std::string& nick)
    : main(game, net, settings, Ports{windows, windows, windows, windows, client}),
      client(game, net, settings.Nickname, main, windows, [this] { sounds.NewUserSound(); }),
      place(lobby.Connect()) {
    settings.Nickname = nick;
    settings.AnimateMoves = 0;
    main.NewGame();
    client.Open(windows, windows, socket);
    socket.TellConnected();
    Settle();
}

void ProgramInLobby::Settle() {
    while (main.RunPasses()) {
    }
    if (!windows.joinQuestion.empty())
        client.AnswerInvitation(true);
    Require(!main.HasWork(), "a program at rest has work");
}

TwoPrograms::TwoPrograms(std::uint64_t seed) : lobby_(NoLimits()), dice_(seed) {
    Exchange();
    Invite();
}

void TwoPrograms::Invite() {
    ProgramInLobby& inviter = OneOfThem();
    inviter.client.SelectUser(inviter.client.Users().Entries()[0].starts_with(inviter.client.NickName()) ? 1
                                                                                                         : 0);
    inviter.client.Invite();
    Exchange();
    Require(inviter.client.GameLinkState() == kLinkInGame, "the invitation was not accepted");
    ShareHistoryFrom(inviter);
    CompareBoards();
}

// The receiver's history begins with the board that was sent; the sender keeps the lines of before.
void TwoPrograms::ShareHistoryFrom(ProgramInLobby& sender) {
    for (ProgramInLobby* program : programs_)
        program->historyStart = program->game.lstHistory.size();
    const ProgramInLobby& receiver = &sender == &ann_ ? bob_ : ann_;
    Require(receiver.historyStart == 0, "the receiver has kept a history");
}

void TwoPrograms::LinkAnew() {
    OneOfThem().client.Break();
    Exchange();
    for (ProgramInLobby* program : programs_)
        program->Settle(); // a return that the other owed
    Require(!ann_.net.InGame && !bob_.net.InGame, "the link has not ended");
    Invite();
}

ProgramInLobby& TwoPrograms::Mover() {
    return ann_.IsToMove() ? ann_ : bob_;
}

ProgramInLobby& TwoPrograms::Waiting() {
    return ann_.IsToMove() ? bob_ : ann_;
}

bool TwoPrograms::PlayGame(int longest) {
    BeginBoard();
    const int turns = dice_.Between(1, longest);
    for (int turn = 1; turn <= turns && ann_.game.GameState != kGameOver; ++turn)
        PlayTurn(turn == turns);
    return ann_.game.GameState == kGameOver;
}

void TwoPrograms::BeginBoard() {
    ProgramInLobby& program = OneOfThem();
    if (dice_.Percent(70)) {
        program.settings.BoardVariant = dice_.Percent(50) ? kImperialBoard : kDraumeCrownBoard;
        program.main.RunCommand([&] { program.main.NewGame(); });
        Exchange();
        CompareLogs();
    } else {
        program.main.RunCommand([&] { PutLoadedBoard(program); });
        Exchange();
    }
    ShareHistoryFrom(program);
    CompareBoards();
}

// What the Load command does with a file.
void TwoPrograms::PutLoadedBoard(ProgramInLobby& program) {
    program.game = RandomOrdinaryPosition(dice_);
    program.game.lstHistory.assign(static_cast<std::size_t>(dice_.Below(3)), "B:BP 1A-1B");
    program.net.ClearQueues();
    program.main.SetTurn(program.game.Turn);
    program.client.SendBoard();
}

void TwoPrograms::PlayTurn(bool mayStop) {
    const CompleteTurn turn = PickTurn(Mover().game, dice_);
    for (ProgramInLobby* program : programs_)
        program->windows.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
    ClickWithoutSense();
    Click(Mover(), turn.from);
    SwapNowAndThen();
    if (mayStop && dice_.Percent(30))
        return;
    Click(Mover(), turn.to);
    if (ann_.game.GameState == kReturnPiece) {
        if (mayStop && dice_.Percent(50))
            return;
        PlaceReturn(turn);
    }
    Require((ann_.game.GameState == kGameOver) == turn.wins, "the game ended otherwise than listed");
    Require(turn.wins || ann_.game.GameState == kPickPiece, "a listed turn was not taken");
}

void TwoPrograms::PlaceReturn(const CompleteTurn& turn) {
    SwapNowAndThen();
    if (dice_.Percent(15))
        Click(Mover(), turn.to); // the mover stands there
    if (dice_.Percent(15))
        Click(Waiting(), turn.returnTo);
    Click(Mover(), turn.returnTo);
}

// Refused moves, clicks out of turn and outside the board; a piece picked by it is put down again.
void TwoPrograms::ClickWithoutSense() {
    const auto anywhere = [&] { return Square{dice_.Between(0, 9), dice_.Between(0, 9)}; };
    if (dice_.Percent(15))
        Click(Waiting(), anywhere());
    if (dice_.Percent(15))
        Click(Mover(), anywhere());
    if (ann_.game.GameState == kPlacePiece)
        Click(Mover(), {Mover().game.SelX, Mover().game.SelY});
}

void TwoPrograms::SwapNowAndThen() {
    if (!dice_.Percent(3))
        return;
    OneOfThem().client.Swap();
    Exchange();
    CompareBoards();
}

void TwoPrograms::Click(ProgramInLobby& program, Square square) {
    const bool inTurn = program.IsToMove();
    program.main.DepositSquare(square);
    program.Settle();
    if (!inTurn && program.game.GameState != kGameOver)
        Require(program.windows.status == "Not your turn." && program.socket.sent.empty(),
                "a click out of turn was not refused");
    Exchange();
    CompareBoards();
}

// Until nothing is on its way any more.
void TwoPrograms::Exchange() {
    for (bool anything = true; anything;) {
        anything = false;
        for (ProgramInLobby* program : programs_)
            if (const std::string said = program->socket.TakeSent(); !said.empty())
                lobby_.Say(program->place, said);
        for (ProgramInLobby* program : programs_)
            if (const std::string heard = lobby_.TakeBytes(program->place); !heard.empty()) {
                Deliver(*program, heard);
                anything = true;
            }
    }
    for (ProgramInLobby* program : programs_)
        program->Settle();
}

void TwoPrograms::Deliver(ProgramInLobby& program, const std::string& bytes) {
    messages_ += static_cast<int>(std::count(bytes.begin(), bytes.end(), kMarker));
    std::string_view rest = bytes;
    const bool whole = dice_.Percent(50);
    while (!rest.empty()) {
        program.socket.TellData(whole ? std::exchange(rest, {}) : TakePart(rest));
        program.Settle();
    }
}

namespace {

using Lines = std::vector<std::string>;

bool AreSame(const Lines& one, std::size_t start, const Lines& other, std::size_t otherStart) {
    const auto from = [](const Lines& lines, std::size_t at) {
        return lines.begin() + static_cast<std::ptrdiff_t>(std::min(at, lines.size()));
    };
    return std::equal(from(one, start), one.end(), from(other, otherStart), other.end());
}

} // namespace

void TwoPrograms::CompareBoards() const {
    const Game& one = ann_.game;
    const Game& other = bob_.game;
    Require(CheckGame(one).empty(), CheckGame(one));
    Require(one.PieceTable == other.PieceTable, "the pieces differ");
    Require(one.JailTable == other.JailTable, "the jails differ");
    Require(one.Turn == other.Turn, "the turns differ");
    Require(one.GameState == other.GameState, "the states differ");
    Require(one.VictoryText == other.VictoryText, "the ends differ");
    Require(AreSame(one.lstHistory, ann_.historyStart, other.lstHistory, bob_.historyStart),
            "the histories differ");
}

// Of the game that both have just given up.
void TwoPrograms::CompareLogs() const {
    Require(AreSame(ann_.windows.log, ann_.historyStart, bob_.windows.log, bob_.historyStart),
            "the logs differ");
}

} // namespace tarveth::test
