// A window that shows a pixel buffer unscaled.
#pragma once

#include "display/pixels.h"

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

    // The picture takes no keyboard focus.
    bool AcceptsFocus() const override { return false; }

protected:
    // Draws on top of the picture.
    virtual void PaintOver(wxDC&) {}

private:
    void OnPaint(wxPaintEvent& event);

    const PixelBuffer* pixels_ = nullptr;
    wxBitmap bitmap_; // a copy of the pixels; invalid if they have changed since it was made
};

} // namespace tarveth
