#include "display/wx/PictureView.h"

#include <utility>

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
    RefreshMarks();
}

void PictureView::MarkWith(std::function<std::optional<PixelBuffer>(const PixelBuffer&)> marked) {
    marked_ = std::move(marked);
}

void PictureView::RefreshMarks() {
    bitmap_ = wxBitmap();
    Refresh(false);
}

wxBitmap PictureView::MakeBitmap() const {
    const std::optional<PixelBuffer> marked = marked_ ? marked_(*pixels_) : std::nullopt;
    return ToBitmap(marked ? *marked : *pixels_, GetContentScaleFactor());
}

void PictureView::OnPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    if (!bitmap_.IsOk() && pixels_ != nullptr)
        bitmap_ = MakeBitmap();
    if (bitmap_.IsOk())
        dc.DrawBitmap(bitmap_, 0, 0);
    PaintOver(dc);
}

} // namespace tarveth
