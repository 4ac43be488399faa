// Draws smooth shapes into one square of a picture. Lengths are in pixels of the picture, places count from
// the square's upper left corner.
#pragma once

#include "display/contrast.h"
#include "display/pixels.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarveth {

// A colour that keeps its contrast with whatever it is drawn on.
class Ink {
public:
    explicit Ink(Pixel wanted) : wanted_(wanted) {}

    Pixel On(Pixel under) {
        if (!known_ || under != under_) { // neighbouring pixels are mostly the same
            under_ = under;
            result_ = ReadableOn(under, wanted_);
            known_ = true;
        }
        return result_;
    }

private:
    Pixel wanted_;
    Pixel under_ = 0;
    Pixel result_ = 0;
    bool known_ = false;
};

struct MarkBox {
    double left = 0, top = 0, right = 0, bottom = 0;
};

struct Stroke {
    double fromX = 0, fromY = 0, toX = 0, toY = 0;
};

// A shape is drawn at one go, since an ink has contrast even with its own colour where that is under it.
class MarkPainter {
public:
    // `left` and `top` are the square's corner in the picture, which outlives the painter.
    MarkPainter(PixelBuffer& picture, int left, int top, int edge)
        : picture_(picture), left_(left), top_(top), edge_(edge) {}

    double Edge() const { return edge_; }
    // A part of the edge, at least so many pixels.
    double Part(double ofEdge, double least) const { return std::max(edge_ * ofEdge, least); }

    void FillDisc(double radius, Ink ink);
    void FillRing(double radius, double thickness, Ink ink);
    void FillBox(const MarkBox& box, Ink ink);
    // A frame along the square's edges.
    void FillFrame(double thickness, Ink ink);
    // Triangles in the four corners, with legs of this length, and a frame of this thickness, which may be 0.
    void FillCorners(double leg, double frame, Ink ink);
    // Straight lines with round ends, which may cross.
    void DrawStrokes(const std::vector<Stroke>& strokes, double thickness, Ink ink);

private:
    // Fills the pixels of `box`: `distance` gives how far a point is outside the shape, negative inside.
    template <typename Distance>
    void Fill(const MarkBox& box, Ink& ink, Distance distance) {
        const int firstX = std::max(0, static_cast<int>(std::floor(box.left)));
        const int firstY = std::max(0, static_cast<int>(std::floor(box.top)));
        const int endX = std::min(edge_, static_cast<int>(std::ceil(box.right)));
        const int endY = std::min(edge_, static_cast<int>(std::ceil(box.bottom)));
        for (int y = firstY; y < endY; ++y) {
            Pixel* row = picture_.Row(top_ + y) + left_;
            for (int x = firstX; x < endX; ++x) {
                const double covered = std::clamp(0.5 - distance(x + 0.5, y + 0.5), 0.0, 1.0);
                if (covered > 0)
                    row[x] = Mix(row[x], ink.On(row[x]), static_cast<int>(std::lround(covered * 256)));
            }
        }
    }

    PixelBuffer& picture_;
    int left_, top_, edge_;
};

} // namespace tarveth
