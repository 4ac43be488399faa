#include "display/MarkPainter.h"

namespace tarveth {

void MarkPainter::FillDisc(double radius, Ink ink) {
    const double middle = Edge() / 2;
    const MarkBox box{middle - radius - 1, middle - radius - 1, middle + radius + 1, middle + radius + 1};
    Fill(box, ink, [=](double x, double y) { return std::hypot(x - middle, y - middle) - radius; });
}

void MarkPainter::FillRing(double radius, double thickness, Ink ink) {
    const double middle = Edge() / 2;
    const double outer = radius + thickness / 2 + 1;
    const MarkBox box{middle - outer, middle - outer, middle + outer, middle + outer};
    Fill(box, ink, [=](double x, double y) {
        return std::abs(std::hypot(x - middle, y - middle) - radius) - thickness / 2;
    });
}

// The sides are put on whole pixels, so that no pixel is covered in part.
void MarkPainter::FillBox(const MarkBox& box, Ink ink) {
    const MarkBox whole{std::round(box.left), std::round(box.top), std::round(box.right),
                        std::round(box.bottom)};
    Fill(whole, ink, [](double, double) { return -1.0; });
}

void MarkPainter::FillFrame(double thickness, Ink ink) {
    const double inner = Edge() - std::round(thickness);
    FillBox({0, 0, Edge(), thickness}, ink);
    FillBox({0, inner, Edge(), Edge()}, ink);
    FillBox({0, thickness, thickness, inner}, ink);
    FillBox({inner, thickness, Edge(), inner}, ink);
}

void MarkPainter::FillCorners(double leg, double frame, Ink ink) {
    const double thickness = std::round(frame);
    Fill({0, 0, Edge(), Edge()}, ink, [=, this](double x, double y) {
        const double fromSide = std::min(x, Edge() - x);
        const double fromEnd = std::min(y, Edge() - y);
        const double corner = (fromSide + fromEnd - leg) / std::sqrt(2.0);
        return std::min(corner, std::min(fromSide, fromEnd) - thickness);
    });
}

namespace {

double DistanceTo(const Stroke& stroke, double x, double y) {
    const double dX = stroke.toX - stroke.fromX;
    const double dY = stroke.toY - stroke.fromY;
    const double along =
        std::clamp(((x - stroke.fromX) * dX + (y - stroke.fromY) * dY) / (dX * dX + dY * dY), 0.0, 1.0);
    return std::hypot(x - stroke.fromX - along * dX, y - stroke.fromY - along * dY);
}

MarkBox BoxOf(const std::vector<Stroke>& strokes, double margin) {
    MarkBox box{1e9, 1e9, -1e9, -1e9};
    for (const Stroke& stroke : strokes) {
        box.left = std::min({box.left, stroke.fromX - margin, stroke.toX - margin});
        box.top = std::min({box.top, stroke.fromY - margin, stroke.toY - margin});
        box.right = std::max({box.right, stroke.fromX + margin, stroke.toX + margin});
        box.bottom = std::max({box.bottom, stroke.fromY + margin, stroke.toY + margin});
    }
    return box;
}

} // namespace

void MarkPainter::DrawStrokes(const std::vector<Stroke>& strokes, double thickness, Ink ink) {
    Fill(BoxOf(strokes, thickness), ink, [&](double x, double y) {
        double nearest = 1e9;
        for (const Stroke& stroke : strokes)
            nearest = std::min(nearest, DistanceTo(stroke, x, y));
        return nearest - thickness / 2;
    });
}

} // namespace tarveth
