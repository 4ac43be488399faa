// A window that shows a pixel buffer unscaled.
#pragma once

#include "display/pixels.h"

#include <functional>
#include <optional>

#include <wx/bitmap.h>
#include <wx/window.h>

namespace tarveth {

// Gives a bitmap of these pixels. `contentScale` is the number of screen pixels per layout pixel.
wxBitmap ToBitmap(const PixelBuffer& pixels, double contentScale);

class PictureView : public wxWindow {
public:
    explicit PictureView(wxWindow* parent, long style = 0);

    // Has the pixels painted when the window is next repainted. They outlive the window.
    void ShowPixels(const PixelBuffer& pixels);

    // Has the picture painted with the marks that this function gives a picture of it with; it gives nothing
    // while there are none.
    void MarkWith(std::function<std::optional<PixelBuffer>(const PixelBuffer&)> marked);
    // Has the marks drawn anew when the window is next repainted.
    void RefreshMarks();

    // The picture takes no keyboard focus.
    bool AcceptsFocus() const override { return false; }

protected:
    // Draws on top of the picture.
    virtual void PaintOver(wxDC&) {}

private:
    void OnPaint(wxPaintEvent& event);
    wxBitmap MakeBitmap() const;

    const PixelBuffer* pixels_ = nullptr;
    std::function<std::optional<PixelBuffer>(const PixelBuffer&)> marked_;
    wxBitmap bitmap_; // the pixels with their marks; invalid if these have changed since it was made
};

} // namespace tarveth
