#include "display/wx/PictureView.h"

#include <wx/dcclient.h>
#include <wx/rawbmp.h>

namespace tarveth {

wxBitmap ToBitmap(const PixelBuffer& pixels, double contentScale) {
    if (pixels.Empty())
        return {};
    wxBitmap bitmap(pixels.Width(), pixels.Height(), 24);
    bitmap.SetScaleFactor(contentScale);
    wxNativePixelData data(bitmap);
    wxNativePixelData::Iterator row(data);
    for (int y = 0; y < pixels.Height(); ++y) {
        const Pixel* from = pixels.Row(y);
        wxNativePixelData::Iterator to = row;
        for (int x = 0; x < pixels.Width(); ++x, ++to) {
            to.Red() = static_cast<unsigned char>(RedOf(from[x]));
            to.Green() = static_cast<unsigned char>(GreenOf(from[x]));
            to.Blue() = static_cast<unsigned char>(BlueOf(from[x]));
        }
        row.OffsetY(data, 1);
    }
    return bitmap;
}

PictureView::PictureView(wxWindow* parent, long style)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, style) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetCanFocus(false);
    Bind(wxEVT_PAINT, &PictureView::OnPaint, this);
}

void PictureView::ShowPixels(const PixelBuffer& pixels) {
    pixels_ = &pixels;
    bitmap_ = wxBitmap();
    Refresh(false);
}

void PictureView::OnPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    if (!bitmap_.IsOk() && pixels_ != nullptr)
        bitmap_ = ToBitmap(*pixels_, GetContentScaleFactor());
    if (bitmap_.IsOk())
        dc.DrawBitmap(bitmap_, 0, 0);
    PaintOver(dc);
}

} // namespace tarveth
