#include "display/wx/PngBytes.h"

#include "display/pixels.h"

#include <wx/image.h>
#include <wx/mstream.h>

namespace tarveth {

std::string PngBytes(const PixelBuffer& pixels) {
    wxImage image(pixels.Width(), pixels.Height(), false);
    for (int y = 0; y < pixels.Height(); ++y)
        for (int x = 0; x < pixels.Width(); ++x) {
            const Pixel colour = pixels.At(x, y);
            image.SetRGB(x, y, static_cast<unsigned char>(RedOf(colour)),
                         static_cast<unsigned char>(GreenOf(colour)),
                         static_cast<unsigned char>(BlueOf(colour)));
        }
    wxMemoryOutputStream bytes;
    wxPNGHandler().SaveFile(&image, bytes, false);
    std::string text(bytes.GetSize(), '\0');
    bytes.CopyTo(text.data(), text.size());
    return text;
}

} // namespace tarveth
