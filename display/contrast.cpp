#include "display/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarveth {

namespace {

constexpr int kWhole = 256;
constexpr int kStep = 8; // of the mixtures that are tried

double LinearOf(int channel) {
    const double value = channel / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

// Marks ask for the luminance of many pixels, and a power takes long.
const std::array<double, 256>& Linear() {
    static const std::array<double, 256> table = [] {
        std::array<double, 256> values{};
        for (int channel = 0; channel < 256; ++channel)
            values[static_cast<std::size_t>(channel)] = LinearOf(channel);
        return values;
    }();
    return table;
}

constexpr int MixChannel(int a, int b, int part) {
    return (a * (kWhole - part) + b * part + kWhole / 2) / kWhole;
}

bool IsReadable(Pixel colour, Pixel ground) {
    return Contrast(colour, ground) >= kShapeContrast;
}

} // namespace

double Luminance(Pixel colour) {
    const auto linear = [](int channel) { return Linear()[static_cast<std::size_t>(channel)]; };
    return 0.2126 * linear(RedOf(colour)) + 0.7152 * linear(GreenOf(colour)) +
           0.0722 * linear(BlueOf(colour));
}

double Contrast(Pixel a, Pixel b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Pixel Mix(Pixel a, Pixel b, int part) {
    return Rgb(MixChannel(RedOf(a), RedOf(b), part), MixChannel(GreenOf(a), GreenOf(b), part),
               MixChannel(BlueOf(a), BlueOf(b), part));
}

Pixel ReadableOn(Pixel ground, Pixel wanted) {
    for (int part = 0; part < kWhole; part += kStep)
        for (const Pixel end : {Rgb(0, 0, 0), Rgb(255, 255, 255)})
            if (const Pixel mixed = Mix(wanted, end, part); IsReadable(mixed, ground))
                return mixed;
    return IsReadable(Rgb(0, 0, 0), ground) ? Rgb(0, 0, 0) : Rgb(255, 255, 255);
}

Pixel LayerOn(Pixel ground, Pixel wanted) {
    for (int part = kWhole / 2; part <= kWhole; part += kStep)
        if (const Pixel mixed = Mix(ground, wanted, part); IsReadable(mixed, ground))
            return mixed;
    return ReadableOn(ground, wanted);
}

} // namespace tarveth
