#include "storage/notation.h"

#include "engine/rules/Game.h"

namespace tarveth {

namespace {

// A turn, a piece's side and a kind are named by the first letters of their words.
char SideLetter(std::int16_t side) {
    return SideName(side).front();
}

char KindLetter(std::int16_t kind) {
    return KindName(kind).front();
}

// Takes a line apart from its beginning. After the first fault it takes nothing more.
class LineReader {
public:
    explicit LineReader(std::string_view line) : line_(line) {}

    const std::optional<NotationFault>& Fault() const { return fault_; }
    bool AtEnd() const { return place_ == line_.size(); }

    void Expect(std::string_view text, std::string_view reason) {
        for (const char letter : text)
            Take(letter, letter, reason);
    }

    Side TakeSide() { return Take('B', 'R', "a side, B or R", "BR") == 'B' ? Blue : Red; }

    PieceKind TakeKind(bool mayBeMaster) {
        const char letter = mayBeMaster ? Take('M', 'P', "a kind of piece, M, O or P", "MOP")
                                        : Take('O', 'P', "a kind of piece that comes back, O or P");
        return letter == 'M' ? Master : letter == 'O' ? Officer : Pawn;
    }

    NamedPiece TakePiece() {
        const Side side = TakeSide();
        return {side, TakeKind(true)};
    }

    Square TakeSquare() {
        const int column = Take('1', '8', "a column, 1 to 8") - '0';
        return {column, Take('A', 'H', "a row, A to H") - '@'};
    }

    void Fail(std::string_view reason) {
        if (!fault_)
            fault_ = NotationFault{place_ + 1, reason};
    }

private:
    // Takes a letter from `first` to `last`, and of `only` where that names any.
    char Take(char first, char last, std::string_view reason, std::string_view only = {}) {
        const char letter = AtEnd() ? '\0' : line_[place_];
        if (letter < first || letter > last || (!only.empty() && only.find(letter) == std::string_view::npos))
            Fail(reason);
        if (fault_)
            return first;
        ++place_;
        return letter;
    }

    std::string_view line_;
    std::size_t place_ = 0;
    std::optional<NotationFault> fault_;
};

MoveLine TakeMove(LineReader& reader) {
    MoveLine move;
    move.turn = reader.TakeSide();
    reader.Expect(":", "a colon behind the side to move");
    move.piece = reader.TakePiece();
    reader.Expect(" ", "a blank behind the piece");
    move.from = reader.TakeSquare();
    reader.Expect("-", "a dash between the two squares");
    move.to = reader.TakeSquare();
    if (move.to == move.from)
        reader.Fail("another square than the one that the piece leaves");
    if (!reader.AtEnd()) {
        reader.Expect(" c", "the end of the line, or a capture such as \" cBP\"");
        move.captured = reader.TakePiece();
    }
    return move;
}

ReturnLine TakeReturn(LineReader& reader) {
    ReturnLine line;
    reader.Expect("  ", "two blanks before a piece that comes back");
    line.piece.side = reader.TakeSide();
    line.piece.kind = reader.TakeKind(false);
    reader.Expect(" r", "the mark of a return, \" r\"");
    line.to = reader.TakeSquare();
    return line;
}

} // namespace

std::string SquareText(int column, int row) {
    return std::to_string(column) + static_cast<char>('@' + row); // '@' comes right before 'A'
}

std::string MoveText(const Game& game, int index) {
    const PieceRecord& piece = game.Piece(index);
    return std::string{SideLetter(game.Turn), ':', SideLetter(piece.Side), KindLetter(piece.Kind), ' '} +
           SquareText(piece.PrevX, piece.PrevY) + '-' + SquareText(piece.X.ToInt16(), piece.Y.ToInt16());
}

std::string CaptureText(const Game& game, int index) {
    const PieceRecord& piece = game.Piece(index);
    return {'c', SideLetter(piece.Side), KindLetter(piece.Kind)};
}

void HistoryAddMove(Game& game, int index) {
    game.lstHistory.push_back(MoveText(game, index));
}

void HistoryAddCapture(Game& game, int mover, int captured) {
    game.lstHistory.push_back(MoveText(game, mover) + ' ' + CaptureText(game, captured));
}

void HistoryAddReturn(Game& game, Square square) {
    // Two blanks stand where a move has its side and colon, so that the kinds line up in the list.
    game.lstHistory.push_back("  " + std::string{SideLetter(game.Turn)} +
                              std::string(game.Return.ReturnName().substr(0, 1)) + " r" +
                              SquareText(square.column, square.row));
}

HistoryLine ReadHistoryLine(std::string_view line) {
    LineReader reader(line);
    HistoryLine read;
    if (line.starts_with(' '))
        read = TakeReturn(reader);
    else
        read = TakeMove(reader);
    if (!reader.AtEnd())
        reader.Fail("the end of the line");
    if (reader.Fault())
        return *reader.Fault();
    return read;
}

} // namespace tarveth
