#include "display/pixels.h"

#include <algorithm>

namespace tarveth {

Clip ClipSpan(int start, int length, int limit) {
    const int first = std::max(0, -start);
    const int end = std::min(length, limit - start);
    return {first, std::max(0, end - first)};
}

void PixelBuffer::Resize(int width, int height, Pixel colour) {
    width_ = width;
    height_ = height;
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour);
}

void PixelBuffer::Fill(Pixel colour) {
    std::fill(pixels_.begin(), pixels_.end(), colour);
}

void PixelBuffer::FillBox(int left, int top, int width, int height, Pixel colour) {
    const Clip columns = ClipSpan(left, width, width_);
    const Clip rows = ClipSpan(top, height, height_);
    for (int y = rows.first; y < rows.first + rows.count; ++y)
        std::fill_n(Row(top + y) + left + columns.first, columns.count, colour);
}

void PixelBuffer::CopyFrom(const PixelBuffer& source, int left, int top) {
    const Clip columns = ClipSpan(left, source.Width(), width_);
    const Clip rows = ClipSpan(top, source.Height(), height_);
    for (int y = rows.first; y < rows.first + rows.count; ++y)
        std::copy_n(source.Row(y) + columns.first, columns.count, Row(top + y) + left + columns.first);
}

} // namespace tarveth
