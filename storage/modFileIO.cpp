#include "storage/modFileIO.h"

#include "engine/modMAIN.h"
#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_text.h"
#include "text/val.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarveth {

namespace {

constexpr std::uintmax_t kLongestFile = std::uintmax_t{8} * 1024 * 1024;
constexpr int kLongestHistory = 100'000; // lines
constexpr int kLinesPerPiece = 10;
constexpr std::string_view kHeader = "Tarveth 1.00";
constexpr std::string_view kLineEnd = "\r\n";

// " 3" or "-5"
std::string FieldText(int number) {
    return number < 0 ? std::to_string(number) : ' ' + std::to_string(number);
}

// The same with a trailing blank: " 3 ".
std::string CountText(int number) {
    return FieldText(number) + ' ';
}

// Replaces the line ends in a title (a path may have them), which would shift all the lines that follow.
std::string TitleText(std::string_view title) {
    std::string text(title);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

class Writer {
public:
    void Line(std::string_view line) { text_.append(line).append(kLineEnd); }
    void Piece(const PieceRecord& piece) {
        for (const int field :
             {piece.Kind, piece.Side, piece.X.ToInt16(), piece.Y.ToInt16(), piece.PrevX, piece.PrevY,
              piece.MaxMove, piece.MaxDiag, piece.MaxCtlMove, piece.MaxCtlDiag})
            Line(FieldText(field));
    }
    // Writes the number of elements, then the elements from 1 on.
    void Table(const std::vector<PieceRecord>& table, int count) {
        Line(CountText(count));
        for (int i = 1; i <= count; ++i)
            Piece(table.at(static_cast<std::size_t>(i)));
    }
    void Lines(const std::vector<std::string>& lines) {
        for (const std::string& line : lines)
            Line(line);
    }
    std::string Take() { return std::move(text_); }

private:
    std::string text_;
};

// Reads the text line by line, and counts the lines for error messages.
class Reader {
public:
    Reader(std::string_view text, const std::string& name) : rest_(text), name_(name) {}

    bool AtEnd() const { return rest_.empty(); }
    std::size_t LineNumber() const { return line_; } // of the line last taken

    [[noreturn]] void Fail(std::size_t line, std::string cause) const {
        throw platform::FileError(name_, line, std::move(cause));
    }
    [[noreturn]] void Fail(std::string cause) const { Fail(line_, std::move(cause)); }

    std::string_view Line() {
        ++line_;
        if (AtEnd())
            Fail("the file ends before the game is complete");
        const std::size_t length = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, length);
        rest_.remove_prefix(std::min(length + 1, rest_.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }

    // Rounded half to even to 16 bits.
    std::int16_t Number() {
        const double number = std::nearbyint(Val(Line()));
        if (number < std::numeric_limits<std::int16_t>::min() ||
            number > std::numeric_limits<std::int16_t>::max())
            Fail("the number does not fit (-32768 to 32767)");
        return static_cast<std::int16_t>(number);
    }

    std::int16_t Number(int least, int most, const std::string& what) {
        const std::int16_t number = Number();
        if (number < least || number > most)
            FailRange(least, most, what);
        return number;
    }

    // Reads how many things follow, each of which takes one line or more.
    int Count(int least, int most, const std::string& what) {
        const double number = std::nearbyint(Val(Line()));
        if (number < least || number > most)
            FailRange(least, most, what);
        return static_cast<int>(number);
    }

    // A count that is greater than the rest of the file has room for is reported with its own line, not
    // with the file's last one.
    [[noreturn]] void FailTooShort(std::size_t line, const std::string& what) const {
        Fail(line, "the file is too short for " + what + " given here");
    }
    bool HasLines(int count) const {
        std::string_view rest = rest_;
        for (; count > 0 && !rest.empty(); --count)
            rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
        return count == 0;
    }

    // 1 to 8 on the board, -1 to -8 in the jail.
    Currency Coordinate() {
        const double scaled = std::nearbyint(Val(Line()) * Currency::kScale);
        const double squares = scaled / Currency::kScale;
        if (squares != std::trunc(squares) || std::abs(squares) < 1 || std::abs(squares) > kBoardSize)
            Fail("a column or row must be a whole number 1 to 8, or -1 to -8 in the jail");
        return static_cast<int>(squares);
    }

private:
    [[noreturn]] void FailRange(int least, int most, const std::string& what) const {
        Fail(what + " must be " + std::to_string(least) +
             (most == least ? "" : " to " + std::to_string(most)));
    }

    std::string_view rest_;
    const std::string& name_;
    std::size_t line_ = 0;
};

PieceRecord ReadPiece(Reader& reader) {
    PieceRecord piece;
    piece.Kind = reader.Number(Master, Pawn, "a kind of piece");
    piece.Side = reader.Number(Blue, Red, "a side");
    piece.X = reader.Coordinate();
    piece.Y = reader.Coordinate();
    if ((piece.X < 0) != (piece.Y < 0))
        reader.Fail("the column says another than the row whether the piece is in the jail");
    for (std::int16_t* field :
         {&piece.PrevX, &piece.PrevY, &piece.MaxMove, &piece.MaxDiag, &piece.MaxCtlMove, &piece.MaxCtlDiag})
        *field = reader.Number();
    return piece;
}

// Reads the number of pieces in the table that follows.
int ReadTableCount(Reader& reader, int least, const std::string& what) {
    const int count = reader.Count(least, kPieces, what);
    if (!reader.HasLines(count * kLinesPerPiece))
        reader.FailTooShort(reader.LineNumber(), what);
    return count;
}

void ReadPieceTable(Reader& reader, Game& game) {
    ReadTableCount(reader, kPieces, "the number of pieces");
    for (int i = 1; i <= kPieces; ++i) {
        const std::size_t line = reader.LineNumber() + 1;
        const PieceRecord piece = ReadPiece(reader);
        if (!piece.InJail() && PieceOn(game, {piece.X.ToInt16(), piece.Y.ToInt16()}) != 0)
            reader.Fail(line, "the piece that begins here stands on another");
        game.Piece(i) = piece;
    }
}

// For each jail entry, a piece of the same side and kind must be off the board, so that it can come back.
bool HasJailedPiece(const Game& game, const PieceRecord& jailed) {
    const auto matches = [&](const PieceRecord& piece) {
        return piece.InJail() && piece.Side == jailed.Side && piece.Kind == jailed.Kind;
    };
    return std::count_if(game.PieceTable.begin(), game.PieceTable.end(), matches) >
           CountJailed(game, jailed.Side, static_cast<PieceKind>(jailed.Kind));
}

void ReadJailTable(Reader& reader, Game& game) {
    const int count = ReadTableCount(reader, 0, "the number of pieces in the jail");
    for (int i = 1; i <= count; ++i) {
        const std::size_t line = reader.LineNumber() + 1;
        const PieceRecord jailed = ReadPiece(reader);
        if (!jailed.InJail() || !HasJailedPiece(game, jailed))
            reader.Fail(line, "the captured piece that begins here is not in the jail");
        game.JailTable.push_back(jailed);
    }
}

void ReadHistory(Reader& reader, Game& game) {
    if (reader.AtEnd())
        return;
    const std::string what = "the number of history lines";
    const int count = reader.Count(0, kLongestHistory, what);
    const std::size_t countLine = reader.LineNumber();
    game.lstHistory.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (reader.AtEnd()) // counting all the lines beforehand would take longer than reading the file
            reader.FailTooShort(countLine, what);
        game.lstHistory.emplace_back(reader.Line());
    }
}

} // namespace

std::string GameText(const Game& game, std::string_view gameTitle) {
    Writer writer;
    writer.Line(kHeader);
    writer.Line(TitleText(gameTitle));
    writer.Line(CountText(game.Turn));
    writer.Table(game.PieceTable, game.PieceCount());
    writer.Table(game.JailTable, game.JailCount());
    writer.Line(CountText(static_cast<int>(game.lstHistory.size())));
    writer.Lines(game.lstHistory);
    return writer.Take();
}

Game ParseGame(std::string_view text, const std::string& nameForErrors) {
    Reader reader(text, nameForErrors);
    Game game;
    CreatePieces(game);
    reader.Line(); // the header
    reader.Line(); // the title
    game.Turn = reader.Number(Blue, Red, "the side to move");
    ReadPieceTable(reader, game);
    ReadJailTable(reader, game);
    ReadHistory(reader, game);
    game.GameState = kPickPiece;
    return game;
}

void WriteGame(const Game& game, std::string_view gameTitle, const std::string& path) {
    platform::WriteFileAtomically(path, platform::TextForFile(GameText(game, gameTitle)));
}

Game ReadGame(const std::string& path) {
    return ParseGame(platform::TextFromFile(platform::ReadWholeFile(path, kLongestFile)), path);
}

void WriteGameLog(const Game& game, const std::string& path) {
    Writer writer;
    writer.Lines(game.lstHistory);
    platform::WriteFileAtomically(path, platform::TextForFile(writer.Take()));
}

} // namespace tarveth
