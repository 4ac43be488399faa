// A window that shows a pixel buffer as it is, one pixel to one of the screen.
#pragma once

#include "display/pixels.h"

#include <wx/bitmap.h>
#include <wx/window.h>

namespace tarveth {

// A bitmap of the same pixels; `contentScale` is how many pixels of the screen a layout pixel has.
wxBitmap ToBitmap(const PixelBuffer& pixels, double contentScale);

class PictureView : public wxWindow {
public:
    explicit PictureView(wxWindow* parent, long style = 0);

    // Paints the pixels soon, as they then are. They outlive the window.
    void ShowPixels(const PixelBuffer& pixels);

    // Only to look at: the keyboard passes it by.
    bool AcceptsFocus() const override { return false; }

protected:
    // Draws on top of the picture.
    virtual void PaintOver(wxDC&) {}

private:
    void OnPaint(wxPaintEvent& event);

    const PixelBuffer* pixels_ = nullptr;
    wxBitmap bitmap_; // of the pixels; none while they have changed since the last paint
};

} // namespace tarveth
