#include "display/modTransparent.h"

namespace tarveth {

void DrawTransparent(PictureBox* dest, const PixelBuffer& source, std::int16_t x, std::int16_t y,
                     Pixel keyColour, PersonPort& person) {
    if (dest == nullptr) {
        person.ShowMessageBox("you're trying to use the wrong object");
        return;
    }
    const Clip columns = ClipSpan(x, source.Width(), dest->Pixels.Width());
    const Clip rows = ClipSpan(y, source.Height(), dest->Pixels.Height());
    for (int row = rows.first; row < rows.first + rows.count; ++row) {
        const Pixel* from = source.Row(row) + columns.first;
        Pixel* to = dest->Pixels.Row(y + row) + x + columns.first;
        // Written without a branch, so that the compiler can take many pixels at a time.
        for (int i = 0; i < columns.count; ++i)
            to[i] = from[i] == keyColour ? to[i] : from[i];
    }
}

} // namespace tarveth
