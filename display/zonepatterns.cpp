#include "display/zonepatterns.h"

#include "display/contrast.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace tarveth {

namespace {

constexpr Pixel kBlueZone = Rgb(70, 110, 230);
constexpr Pixel kRedZone = Rgb(225, 70, 60);

int ZoneOn(const ZoneMap& map, Square square) {
    return square.OnBoard()
               ? map[static_cast<std::size_t>(square.column)][static_cast<std::size_t>(square.row)]
               : 0;
}

// The lengths of the patterns, in pixels, for squares of one size.
struct Grain {
    explicit Grain(int edge)
        : period(std::max(6.0, edge / 6.0)),
          line(std::max(1.4, edge / 40.0)),
          dot(std::max(1.6, edge / 30.0)),
          outline(std::max(1, edge / 28)) {}

    double period;
    double line;
    double dot; // radius
    int outline;
};

double DistanceToNext(double at, double period) {
    return std::abs(at - period * std::round(at / period));
}

// How much of a pixel the pattern covers, 0 to 256. Blue's lines rise to the right, Red's fall; Red's dots
// stand between Blue's.
int Coverage(const Grain& grain, int kind, Side side, double x, double y) {
    double outside = 0;
    if (kind == Master) {
        const double across = (side == Blue ? x + y : x - y) / std::sqrt(2.0);
        outside = DistanceToNext(across, grain.period / std::sqrt(2.0)) - grain.line / 2;
    } else {
        const double shift = side == Blue ? 0 : grain.period / 2;
        outside =
            std::hypot(DistanceToNext(x - shift, grain.period), DistanceToNext(y - shift, grain.period)) -
            grain.dot;
    }
    return static_cast<int>(std::lround(std::clamp(0.5 - outside, 0.0, 1.0) * 256));
}

// The patterns of one size, each computed once for all squares.
class Patterns {
public:
    explicit Patterns(int edge) : edge_(edge), grain_(edge) {}

    int Outline() const { return grain_.outline; }
    // Gives the coverage of the square's pixels, row by row.
    const std::vector<int>& Of(int kind, Side side) {
        std::vector<int>& pattern = patterns_[kind == Master ? 0 : 1][side == Blue ? 0 : 1];
        if (pattern.empty())
            for (int y = 0; y < edge_; ++y)
                for (int x = 0; x < edge_; ++x)
                    pattern.push_back(Coverage(grain_, kind, side, x + 0.5, y + 0.5));
        return pattern;
    }

private:
    int edge_;
    Grain grain_;
    std::array<std::array<std::vector<int>, 2>, 2> patterns_; // by kind and side
};

// One square of the picture, of which only the ground may be drawn on.
class Ground {
public:
    Ground(PixelBuffer& board, Square square, int edge, Pixel colour)
        : board_(board),
          left_((square.column - 1) * edge),
          top_((square.row - 1) * edge),
          edge_(edge),
          colour_(colour),
          seen_(static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge)) {
        for (int y = 0; y < edge_; ++y)
            for (int x = 0; x < edge_; ++x)
                seen_[Index(x, y)] = IsBorder(x, y) && IsGround(x, y) ? 1 : 0;
        Spread();
    }

    // Draws a layer of the colour: `coverage` gives how much of a pixel it covers, 0 to 256.
    template <typename CoverageOf>
    void Draw(Pixel layer, CoverageOf coverage) {
        for (int y = 0; y < edge_; ++y) {
            Pixel* row = board_.Row(top_ + y) + left_;
            for (int x = 0; x < edge_; ++x)
                if (const int covered = seen_[Index(x, y)] != 0 ? coverage(x, y) : 0; covered != 0)
                    row[x] = Mix(row[x], layer, covered);
        }
    }

private:
    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(edge_) + static_cast<std::size_t>(x);
    }
    bool IsBorder(int x, int y) const { return x == 0 || y == 0 || x == edge_ - 1 || y == edge_ - 1; }
    bool IsGround(int x, int y) const { return board_.At(left_ + x, top_ + y) == colour_; }

    // Sweeps to the right and down, then back, until a pair of sweeps finds nothing more. A piece without
    // deep bays takes one pair and another to be sure.
    void Spread() {
        for (bool found = true; found;) {
            found = false;
            for (int y = 1; y < edge_; ++y)
                for (int x = 1; x < edge_; ++x)
                    found |= Join(x, y, Index(x - 1, y), Index(x, y - 1));
            for (int y = edge_ - 2; y >= 0; --y)
                for (int x = edge_ - 2; x >= 0; --x)
                    found |= Join(x, y, Index(x + 1, y), Index(x, y + 1));
        }
    }

    // Joins a pixel to the ground if one of two neighbours belongs to it.
    bool Join(int x, int y, std::size_t one, std::size_t other) {
        std::uint8_t& seen = seen_[Index(x, y)];
        if (seen != 0 || (seen_[one] | seen_[other]) == 0 || !IsGround(x, y))
            return false;
        seen = 1;
        return true;
    }

    PixelBuffer& board_;
    int left_, top_, edge_;
    Pixel colour_;
    std::vector<std::uint8_t> seen_; // 1 for the pixels of the ground
};

void DrawOutline(Ground& ground, const ZoneMap& map, Square square, int edge, int thickness, Pixel layer) {
    const auto ends = [&](int columns, int rows) {
        return ZoneOn(map, {square.column + columns, square.row + rows}) == 0;
    };
    const bool left = ends(-1, 0);
    const bool right = ends(1, 0);
    const bool above = ends(0, -1);
    const bool below = ends(0, 1);
    ground.Draw(layer, [=](int x, int y) {
        const bool covered = (left && x < thickness) || (right && x >= edge - thickness) ||
                             (above && y < thickness) || (below && y >= edge - thickness);
        return covered ? 256 : 0;
    });
}

} // namespace

void DrawZones(PixelBuffer& board, const std::array<ZoneMap, 3>& zones, Pixel black, Pixel white) {
    const int edge = board.Width() / kBoardSize;
    Patterns patterns(edge);
    for (int i = 0; i < kBoardSize * kBoardSize; ++i) {
        const Square square{i % kBoardSize + 1, i / kBoardSize + 1};
        if (ZoneOn(zones[Blue], square) == 0 && ZoneOn(zones[Red], square) == 0)
            continue;
        const Pixel colour = (square.column + square.row) % 2 == 0 ? black : white;
        Ground ground(board, square, edge, colour);
        for (const Side side : {Blue, Red}) {
            const ZoneMap& map = zones[static_cast<std::size_t>(side)];
            const int kind = ZoneOn(map, square);
            if (kind == 0)
                continue;
            const Pixel layer = LayerOn(colour, side == Blue ? kBlueZone : kRedZone);
            const int* pattern = patterns.Of(kind, side).data();
            ground.Draw(layer, [=](int x, int y) { return pattern[y * edge + x]; });
            DrawOutline(ground, map, square, edge, patterns.Outline(), layer);
        }
    }
}

} // namespace tarveth
