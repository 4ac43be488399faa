#include "storage/window_positions.h"

#include "storage/settings.h"
#include "text/val.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarveth {

namespace {

constexpr float kTitleHeight = 30 * 15;
constexpr float kTitleGrip = 60 * 15; // twips of the title bar's width that must be on a screen
constexpr double kFarthest = 1e7;

// The keys of left, top, width and height, in the order in which they are read.
using Keys = std::array<const char*, 4>;
constexpr Keys kMainKeys = {"X", "Y", "W", "H"};
constexpr Keys kClientKeys = {"L", "T", "W", "H"};

constexpr std::array<float WindowPosition::*, 4> kParts = {&WindowPosition::Left, &WindowPosition::Top,
                                                           &WindowPosition::Width, &WindowPosition::Height};

void Load(WindowPosition& position, modINI& ini, const Keys& keys) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        float& part = position.*kParts[i];
        const double value = Val(ini.IniGetString(keys[i], TwipsText(part)));
        if (std::abs(value) <= kFarthest)
            part = static_cast<float>(value);
    }
}

void Save(const WindowPosition& position, modINI& ini, const Keys& keys) {
    for (std::size_t i = 0; i < keys.size(); ++i)
        ini.IniPutString(keys[i], TwipsText(position.*kParts[i]));
}

// Gives the length of the overlap of two stretches.
float Overlap(float begin, float length, float otherBegin, float otherLength) {
    return std::min(begin + length, otherBegin + otherLength) - std::max(begin, otherBegin);
}

bool ShowsTitle(const ScreenRect& screen, const WindowPosition& window) {
    const float grip = std::min(kTitleGrip, window.Width);
    return Overlap(window.Left, window.Width, screen.Left, screen.Width) >= grip &&
           Overlap(window.Top, kTitleHeight, screen.Top, screen.Height) > 0;
}

// Gives the position nearest to `begin` at which `length` fits into the screen. What is longer than the
// screen begins at the screen's edge.
float MovedInto(float begin, float length, float screenBegin, float screenLength) {
    return std::max(screenBegin, std::min(begin, screenBegin + screenLength - length));
}

WindowPosition MovedOnto(const ScreenRect& screen, WindowPosition window) {
    window.Left = MovedInto(window.Left, window.Width, screen.Left, screen.Width);
    window.Top = MovedInto(window.Top, window.Height, screen.Top, screen.Height);
    return window;
}

} // namespace

std::string TwipsText(float value) {
    std::array<char, 32> text = {};
    const float noMinusZero = value + 0.0F;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), noMinusZero, std::chars_format::general, 7);
    return (std::signbit(noMinusZero) ? "" : " ") + std::string(text.data(), end.ptr);
}

void LoadMainPosition(WindowPosition& position, modINI& ini, const std::string& folder) {
    ini.IniRegister("Position", folder + kSettingsFile);
    Load(position, ini, kMainKeys);
}

void LoadClientPosition(WindowPosition& position, modINI& ini, const std::string& folder) {
    ini.IniRegister("ClientPosition", folder + kSettingsFile);
    Load(position, ini, kClientKeys);
}

void SaveMainPosition(const WindowPosition& position, modINI& ini, const std::string& folder) {
    ini.IniRegister("Position", folder + kSettingsFile);
    Save(position, ini, kMainKeys);
}

void SaveClientPosition(const WindowPosition& position, modINI& ini, const std::string& folder) {
    ini.IniRegister("ClientPosition", folder + kSettingsFile);
    Save(position, ini, kClientKeys);
}

WindowPosition KeepOnScreen(WindowPosition position, std::span<const ScreenRect> screens) {
    const auto showsTitle = [&](const ScreenRect& screen) { return ShowsTitle(screen, position); };
    if (screens.empty() || std::any_of(screens.begin(), screens.end(), showsTitle))
        return position;
    const auto distance = [&](const ScreenRect& screen) {
        const WindowPosition moved = MovedOnto(screen, position);
        return std::hypot(moved.Left - position.Left, moved.Top - position.Top);
    };
    const auto nearest = std::min_element(screens.begin(), screens.end(), [&](const auto& a, const auto& b) {
        return distance(a) < distance(b);
    });
    return MovedOnto(*nearest, position);
}

} // namespace tarveth
