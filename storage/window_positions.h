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

// Gives a number of twips as text with at most seven digits, as in " 1200.5" and "-15". A number that is not
// negative has a blank in place of the sign.
std::string TwipsText(float value);

// Read the position from tarveth.ini in folder (which ends in its separator). A value that is missing, not
// finite or beyond ten million twips leaves that part of the position as it is; a text without a number is 0.
void LoadMainPosition(WindowPosition& position, modINI& ini, const std::string& folder);
void LoadClientPosition(WindowPosition& position, modINI& ini, const std::string& folder);

// Write the position to tarveth.ini; it is on the disk after the next IniFlush.
void SaveMainPosition(const WindowPosition& position, modINI& ini, const std::string& folder);
void SaveClientPosition(const WindowPosition& position, modINI& ini, const std::string& folder);

// Gives a position at which the user can reach the window: the same one if enough of the title bar to drag it
// by is on some screen, else one of the same size on the nearest screen. Without screens it is the same one.
WindowPosition KeepOnScreen(WindowPosition position, std::span<const ScreenRect> screens);

} // namespace tarveth
