#include "tests/window/Picture.h"

#include <cairo.h>

#include <cstring>
#include <set>
#include <stdexcept>

namespace tarveth::harness {

std::uint32_t Picture::Pixel(int x, int y) const {
    if (x < 0 || x >= width || y < 0 || y >= height) {
        throw std::out_of_range("pixel outside the picture");
    }
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
}

int Picture::ColourCount() const {
    return static_cast<int>(std::set<std::uint32_t>(pixels.begin(), pixels.end()).size());
}

void Picture::WritePng(const std::filesystem::path& file) const {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
        const auto rowBytes = static_cast<std::size_t>(width) * sizeof(std::uint32_t);
        const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
        for (std::size_t row = 0; row < static_cast<std::size_t>(height); ++row) {
            std::memcpy(cairo_image_surface_get_data(surface) + row * stride,
                        &pixels[row * static_cast<std::size_t>(width)], rowBytes);
        }
        cairo_surface_mark_dirty(surface);
    }
    const cairo_status_t status = cairo_surface_write_to_png(surface, file.c_str());
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(file.string() + ": " + cairo_status_to_string(status));
    }
}

} // namespace tarveth::harness
