// The menu bar of the main window.
#pragma once

#include "storage/settings.h"

#include <array>
#include <cstdint>

#include <wx/defs.h>

class wxMenu;
class wxMenuBar;

namespace tarveth {

// The menu items, named by their menu path.
enum MainMenuItem : int {
    mnuFirst = wxID_HIGHEST + 1,
    mnuFileNew = mnuFirst,
    mnuFileLoad,
    mnuFileSave,
    mnuFileSaveAs,
    mnuFileInternet,
    mnuFileExit,
    mnuOptionsImperial,
    mnuOptionsDraume,
    mnuSetColors,
    mnuHelpHelp,
    mnuOptionsShowZOC,
    mnuOptionsShowZOCAll,
    mnuHelpAbout,
    mnuGamePlay,
    mnuGameHint,
    mnuGameMove,
    mnuGameLevel,
    mnuGameDraw,
    mnuGameStop,
    mnuGameCopyPosition,
    mnuGameCopyGame,
    mnuGamePaste,
    mnuGameSavePicture,
    mnuViewLegalMoves,
    mnuViewLastMove,
    mnuViewZones,
    mnuViewBothZones,
    mnuViewCoordinates,
    mnuViewHistory,
    mnuViewKeepGames,
    mnuViewBoardColours,
    mnuViewHowToPlay,
    mnuLast = mnuViewHowToPlay,
};

// A check item of the View menu, and the setting that it turns on and off.
struct ViewSwitch {
    MainMenuItem item;
    const char* caption;
    std::int16_t Settings::*setting;
};

// In the order of the menu. A new one is a row here, its item above, and its setting.
inline constexpr std::array kViewSwitches = std::to_array<ViewSwitch>({
    {mnuViewLegalMoves, "&Legal Moves", &Settings::LegalMoves},
    {mnuViewLastMove, "La&st Move", &Settings::LastMove},
    {mnuViewZones, "&Zones", &Settings::Zones},
    {mnuViewBothZones, "Zones of &Both Sides", &Settings::BothZones},
    {mnuViewCoordinates, "&Coordinates", &Settings::GridLabels},
    {mnuViewHistory, "&History", &Settings::History},
    {mnuViewKeepGames, "&Keep Finished Games", &Settings::KeepGames},
});

struct MainMenu {
    wxMenuBar* bar = nullptr; // to be owned by the frame that it is given to
    wxMenu* mnuOptions = nullptr;
    wxMenu* mnuView = nullptr;
};

// Creates the menu. All items but "Exit" are disabled until the caller has bound a command to them.
MainMenu CreateMainMenu();

} // namespace tarveth
