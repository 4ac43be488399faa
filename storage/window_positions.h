// Where the two windows stand, in twips (15 to a pixel at 96 dots per inch), kept in tarveth.ini from one run
// to the next.
#pragma once

#include "storage/modINI.h"

#include <span>
#include <string>

namespace tarveth {

struct WindowPosition {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;

    friend bool operator==(const WindowPosition&, const WindowPosition&) = default;
};

// The usable area of one screen, in twips.
struct ScreenRect {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
};

// The text form of a number of twips, with at most seven digits: " 1200.5", "-15". A number that is not
// negative has a blank where the sign would be.
std::string TwipsText(float value);

// Read the position from tarveth.ini in folder (which ends in its separator). A value that is missing, not
// finite or beyond ten million twips leaves that part of the position as it is; a text without a number is 0.
void LoadMainPosition(WindowPosition& position, modINI& ini, const std::string& folder);
void LoadClientPosition(WindowPosition& position, modINI& ini, const std::string& folder);

// Write it; on the disk after the next IniFlush.
void SaveMainPosition(const WindowPosition& position, modINI& ini, const std::string& folder);
void SaveClientPosition(const WindowPosition& position, modINI& ini, const std::string& folder);

// The position itself as long as enough of the title bar to take hold of is on some screen; else the same
// size moved onto the nearest screen. Without screens nothing is moved.
WindowPosition KeepOnScreen(WindowPosition position, std::span<const ScreenRect> screens);

} // namespace tarveth
