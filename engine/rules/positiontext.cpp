#include "engine/rules/positiontext.h"

#include "engine/rules/Game.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarveth {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::vector<std::string_view> WordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
        if (text.empty())
            return words;
        words.push_back(text.substr(0, text.find_first_of(kBlanks)));
        text.remove_prefix(words.back().size());
    }
}

std::optional<Side> SideOf(std::string_view letter) {
    return letter == "B" ? std::optional(Blue) : letter == "R" ? std::optional(Red) : std::nullopt;
}

std::optional<PieceKind> KindOf(std::string_view letter) {
    for (const PieceKind kind : {Master, Officer, Pawn})
        if (letter == KindName(kind).substr(0, 1))
            return kind;
    return std::nullopt;
}

// Reads the items one by one, and says which of them is wrong.
class PositionReader {
public:
    explicit PositionReader(Game& game) : game_(game) {}

    void ReadItem(std::string_view item) {
        ++number_;
        const std::vector<std::string_view> words = WordsOf(item);
        if (words.empty())
            Fail("nothing stands there");
        if (words[0] == "turn")
            ReadTurn(words);
        else if (words[0] == "jail")
            ReadJail(words);
        else
            ReadPiece(words);
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw std::invalid_argument("Item " + std::to_string(number_) + " of the position is wrong: " + what +
                                    '.');
    }

    static std::string Quoted(std::string_view word) {
        return word.size() > kLongestQuoted ? "a long word" : '"' + std::string(word) + '"';
    }

    void ReadTurn(const std::vector<std::string_view>& words) {
        const std::optional<Side> side = words.size() == 2 ? SideOf(words[1]) : std::nullopt;
        if (!side)
            Fail("the turn is B or R, as in \"turn B\"");
        game_.Turn = *side;
    }

    void ReadJail(const std::vector<std::string_view>& words) {
        for (std::size_t i = 1; i < words.size(); ++i) {
            PieceRecord& piece = game_.Piece(Take(words[i]));
            piece.X = piece.Y = -1;
            piece.PrevX = piece.PrevY = -1;
            game_.JailTable.push_back(piece);
        }
    }

    void ReadPiece(const std::vector<std::string_view>& words) {
        if (words.size() != 2)
            Fail("a piece and its square are expected, as in \"BM 4D\"");
        const std::string_view where = words[1];
        const Square square = ReadSquare(where.substr(0, where.find('<')));
        const Square from = where.find('<') == std::string_view::npos
                                ? square
                                : ReadSquare(where.substr(where.find('<') + 1));
        if (PieceOn(game_, square) != 0)
            Fail("another piece stands on " + std::string(where.substr(0, 2)));
        SetPieceSquare(game_, Take(words[0]), square.column, square.row,
                       static_cast<std::int16_t>(from.column), static_cast<std::int16_t>(from.row));
    }

    Square ReadSquare(std::string_view word) const {
        const Square square = word.size() == 2 ? SquareOf(word) : Square{};
        if (!square.OnBoard())
            Fail(Quoted(word) + " is no square, which is a column 1 to 8 and a row A to H");
        return square;
    }

    // Hands out the indices of each side and kind in order.
    int Take(std::string_view name) {
        const auto side = SideOf(name.substr(0, 1));
        const auto kind = KindOf(name.substr(std::min<std::size_t>(name.size(), 1)));
        if (!side || !kind)
            Fail(Quoted(name) + " is no piece, which is B or R and M, O or P");
        for (int i = 1; i <= kPieces; ++i) {
            bool& used = used_[static_cast<std::size_t>(i)];
            if (game_.Piece(i).Side == *side && game_.Piece(i).Kind == *kind && !used) {
                used = true;
                return i;
            }
        }
        Fail("there are too many " + std::string(SideName(*side)) + ' ' + std::string(KindName(*kind)) + 's');
    }

    static constexpr std::size_t kLongestQuoted = 12;

    Game& game_;
    int number_ = 0;
    std::array<bool, kPieces + 1> used_{};
};

} // namespace

Square SquareOf(std::string_view text) {
    return {text.at(0) - '0', text.at(1) - 'A' + 1};
}

void SetPosition(Game& game, std::string_view text) {
    CreatePieces(game);
    for (int i = 1; i <= kPieces; ++i)
        SetPieceSquare(game, i, -9, -9, -9, -9); // off the board, and not the negative of a square
    PositionReader reader(game);
    for (bool more = true; more;) {
        const std::size_t end = text.find('|');
        more = end != std::string_view::npos;
        reader.ReadItem(text.substr(0, end));
        text.remove_prefix(more ? end + 1 : text.size());
    }
    game.GameState = kPickPiece;
}

} // namespace tarveth
