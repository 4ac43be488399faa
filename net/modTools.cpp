#include "net/modTools.h"

#include "engine/rules/checkgame.h"
#include "net/boardtransfer.h"
#include "net/wire/modPARSER.h"

#include <algorithm>
#include <utility>

namespace tarveth {

namespace {

// Bounds the memory that a program can take here by sending squares without end; nobody clicks so many ahead.
constexpr std::size_t kLongestQueue = std::size_t{1} << 20; // characters

// Drops a text that begins with no in-game message, up to its closing parenthesis.
void DropMessage(std::string_view& text) {
    const std::size_t inside = std::min(text.find('('), text.size() - 1) + 1;
    const int closing = FindClosingParen(text.substr(inside));
    text.remove_prefix(closing == 0 ? text.size() : inside + static_cast<std::size_t>(closing));
}

} // namespace

struct modTools::Message {
    std::string_view head;
    std::size_t leastFields;
    bool (modTools::*handle)(const GameFields&);
};

const modTools::Message modTools::kMessages[] = {
    {"M(", 2, &modTools::QueueSquare},     {"R(", 4, &modTools::QueueReturn},
    {"P(", 7, &modTools::TakePieceSquare}, {"S(", 7, &modTools::TakePieceLimits},
    {"J(", 11, &modTools::TakeJailEntry},  {"T(", 1, &modTools::TakeTurn},
    {"C(", 1, &modTools::TakeCommand},     {"X(", 1, &modTools::TakeLine},
};

modTools::modTools(Game& game, NetGame& net, modMAIN& main, MainWindowPort& window, OpponentPort& opponent)
    : game_(game), net_(net), main_(main), window_(window), opponent_(opponent) {}

const modTools::Message* modTools::FindMessage(std::string_view text) {
    for (const Message& message : kMessages)
        if (text.starts_with(message.head))
            return &message;
    return nullptr;
}

void modTools::ParseGameMessages(std::string_view text) {
    while (!text.empty()) {
        const Message* const message = FindMessage(text);
        if (message == nullptr) {
            DropMessage(text);
            continue;
        }
        const auto arguments = TakeShortArgs(text);
        if (!arguments)
            return;
        const GameFields fields(*arguments);
        const bool isChat = message->handle == &modTools::TakeLine;
        if (awaitsFirstBoard_ && !isChat && fields.Text(1) != "board")
            BeginWithoutBoard();
        if (fields.Count() < message->leastFields || !(this->*message->handle)(fields))
            opponent_.ShowNotice(
                "The opponent's program sent a message that is not understood; it is ignored.");
    }
}

bool modTools::QueueSquare(const GameFields& fields) {
    const auto column = fields.Number(1);
    const auto row = fields.Number(2);
    if (!column || !row)
        return false;
    if (*column == 0 && *row == 0)
        return true; // it names no square, and in the queue it would announce a return
    net_.AddSquare({*column, *row});
    LimitQueues();
    return true;
}

bool modTools::QueueReturn(const GameFields& fields) {
    const auto column = fields.Number(1);
    const auto row = fields.Number(2);
    const auto piece = fields.Number(3);
    const auto slot = fields.Number(4);
    if (!column || !row || !piece || !slot)
        return false;
    const bool exists = *piece >= 1 && *piece <= game_.PieceCount();
    net_.AddReturn({*column, *row}, {*piece, *slot},
                   exists && game_.Piece(*piece).Kind == Pawn ? "Pawn" : "Officer");
    LimitQueues();
    return true;
}

// Drops all that wait, not the newest only, so that a program that never stops sending gives one notice for
// many squares.
void modTools::LimitQueues() {
    if (net_.RemoteX.Text().size() <= kLongestQueue)
        return;
    const bool squareWaits = net_.RemoteMove;
    net_.ClearQueues();
    net_.RemoteMove = squareWaits;
    opponent_.ShowNotice(
        "The opponent's program sends more squares than can be played; those that wait are ignored.");
}

bool modTools::TakePieceSquare(const GameFields& fields) {
    return Change(ReadPieceSquare, fields);
}

bool modTools::TakePieceLimits(const GameFields& fields) {
    return Change(ReadPieceLimits, fields);
}

bool modTools::TakeJailEntry(const GameFields& fields) {
    return Change(ReadJailEntry, fields);
}

bool modTools::TakeTurn(const GameFields& fields) {
    if (arriving_)
        return ReadTurn(*arriving_, fields);
    const auto side = fields.Number(1, Blue, Red);
    if (side)
        main_.TakeRemoteTurn(*side);
    return side.has_value();
}

// Changes the board that is arriving or, outside a transfer, the game itself, which has to stay sound.
bool modTools::Change(ReadChange read, const GameFields& fields) {
    if (arriving_)
        return read(*arriving_, fields);
    auto pieces = game_.PieceTable;
    auto jail = game_.JailTable;
    if (!read(game_, fields))
        return false;
    if (const std::string fault = CheckGame(game_); !fault.empty()) {
        game_.PieceTable = std::move(pieces);
        game_.JailTable = std::move(jail);
        opponent_.ShowNotice("The opponent's program sent a change of the board that cannot be: " + fault +
                             "; it is ignored.");
    }
    return true;
}

bool modTools::TakeCommand(const GameFields& fields) {
    const std::string_view word = fields.Text(1);
    if (word == "board")
        BeginBoard();
    else if (word == "play")
        FinishBoard();
    else if (word == "swap")
        TakeSwap();
    return true;
}

void modTools::TakeSwap() {
    SwapSides();
    opponent_.ShowNotice(opponent_.OpponentNick() + " has swapped sides; you play " +
                         (net_.PlayingBlue ? "Blue" : "Red") + " now.");
}

bool modTools::TakeLine(const GameFields& fields) {
    opponent_.ShowPrivateLine(fields.Whole());
    return true;
}

void modTools::BeginBoard() {
    awaitsFirstBoard_ = false;
    main_.AwaitBoard();
    arriving_ = BoardToFill(game_);
}

void modTools::FinishBoard() {
    const std::optional<Game> board = std::exchange(arriving_, std::nullopt);
    if (!board) {
        main_.TakeRemoteStart();
        return;
    }
    if (game_.GameState != kGetBoard)
        return; // another game has been begun here meanwhile, and sent
    if (const std::string fault = CheckGame(*board); !fault.empty()) {
        main_.EndTransfer();
        opponent_.ShowNotice("The opponent's program sent a board that cannot be played: " + fault +
                             "; it is ignored.");
        return;
    }
    TakeBoard(*board);
}

// The first board of a link is what both have agreed on; a later one is the opponent's doing, of which the
// user is told.
void modTools::TakeBoard(const Game& board) {
    if (std::exchange(sharesBoard_, true))
        opponent_.ShowNotice(opponent_.OpponentNick() +
                             (IsFreshBoard(board) ? " has begun a new game." : " has loaded a game."));
    main_.SetUpPosition(board, PositionSource::Opponent);
}

void modTools::AwaitFirstBoard() {
    awaitsFirstBoard_ = true;
    main_.AwaitBoard();
}

void modTools::BeginWithoutBoard() {
    awaitsFirstBoard_ = false;
    if (game_.GameState != kGetBoard)
        return; // a game has been begun here meanwhile, and sent
    main_.EndTransfer();
    sharesBoard_ = true;
    net_.InGame =
        false; // the opponent's program has begun a game of its own, which this one must not replace
    main_.NewGame();
    net_.InGame = true;
}

void modTools::SendBoard() {
    main_.SettleForTransfer();
    sharesBoard_ = true;
    window_.ShowMessage("Sending board information...");
    opponent_.SendGameMessage("C(board)");
    for (std::size_t i = 0; i < game_.PieceTable.size(); ++i)
        opponent_.SendGameMessage(PieceMessage("P(", i, game_.PieceTable[i]));
    for (std::size_t i = 0; i < game_.JailTable.size(); ++i)
        opponent_.SendGameMessage(PieceMessage("J(", i, game_.JailTable[i]));
    opponent_.SendGameMessage("T(" + std::to_string(game_.Turn) + ')');
    opponent_.SendGameMessage("C(play)");
    window_.ShowMessage("Board sent, commence play.");
}

void modTools::SetLocalBlue() {
    net_.PlayingBlue = true;
    window_.ShowLocalSide(Blue);
}

void modTools::SetLocalRed() {
    net_.PlayingBlue = false;
    window_.ShowLocalSide(Red);
}

void modTools::SwapSides() {
    if (net_.PlayingBlue)
        SetLocalRed();
    else
        SetLocalBlue();
}

void modTools::EndLink() {
    if (net_.RemoteMove)
        game_.ClearClick();
    net_.ClearQueues();
    net_.PlayingBlue = true;
    window_.ShowLocalSide(NoSide);
    arriving_.reset();
    awaitsFirstBoard_ = false;
    sharesBoard_ = false;
    main_.EndTransfer();
}

} // namespace tarveth
