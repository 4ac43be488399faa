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
    PictureView(wxWindow* parent, const wxString& name, long style = 0);

    // Takes a copy of the pixels and paints it soon.
    void ShowPixels(const PixelBuffer& pixels);

protected:
    // Draws on top of the picture.
    virtual void PaintOver(wxDC&) {}

private:
    void OnPaint(wxPaintEvent& event);

    wxBitmap bitmap_;
};

} // namespace tarveth
