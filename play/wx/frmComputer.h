// The dialog in which a game against the computer is set up, and the one that changes its level.
#pragma once

#include "computer/levels.h"
#include "storage/settings.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include <wx/dialog.h>

class wxChoice;
class wxRadioBox;
class wxStaticText;

namespace tarveth {

struct ComputerGameChoice {
    std::int16_t ownSide = 0; // a Side, or 0 for one by chance
    std::int16_t level = computer::kDefaultLevel;
    std::int16_t boardVariant = kImperialBoard;
};

class frmComputer : public wxDialog {
public:
    frmComputer(wxWindow* parent, const ComputerGameChoice& before);
    ComputerGameChoice Choice() const;

private:
    void DescribeLevel();

    wxRadioBox* optSide = nullptr;
    wxChoice* cboLevel = nullptr;
    wxStaticText* lblLevel = nullptr;
    wxRadioBox* optBoard = nullptr;
};

// Ask; nothing where the user cancels. What was chosen before is proposed.
std::optional<ComputerGameChoice> AskComputerGame(wxWindow* parent, const Settings& settings);
std::optional<std::int16_t> AskLevel(wxWindow* parent, std::int16_t before);

// The level that a setting stands for: a file may hold any number.
constexpr int LevelIn(std::int16_t setting) {
    return std::clamp<int>(setting, computer::kWeakestLevel, computer::kStrongestLevel);
}

// The side that the computer plays where the user plays this one; 0 is decided by chance.
std::int16_t OpponentOf(std::int16_t ownSide);

} // namespace tarveth
