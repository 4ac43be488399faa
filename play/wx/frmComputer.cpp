#include "play/wx/frmComputer.h"

#include "display/wx/NameControl.h"
#include "engine/rules/modPieces.h"

#include <array>
#include <random>

#include <wx/choicdlg.h>
#include <wx/choice.h>
#include <wx/radiobox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

constexpr std::array kLevelNames = {"1 - Beginner",           "2 - Learner",       "3 - Casual player",
                                    "4 - Regular player",     "5 - Strong player", "6 - Very strong",
                                    "7 - As strong as it can"};
constexpr std::array kLevelSentences = {
    "For who has just read the rules: it overlooks a lot.",
    "Takes what it can win at once, and overlooks what comes later.",
    "Sees a threat or two, and makes mistakes of its own.",
    "Plans a few turns ahead.",
    "Seldom overlooks anything.",
    "Thinks for a second and plays its best.",
    "Thinks for five seconds, on all cores of this computer but one.",
};

wxArrayString LevelNames() {
    wxArrayString names;
    for (const char* name : kLevelNames)
        names.Add(name);
    return names;
}

wxArrayString Names(std::initializer_list<const char*> texts) {
    wxArrayString names;
    for (const char* text : texts)
        names.Add(text);
    return names;
}

// The choices of the side, in the order of the radio buttons.
constexpr std::array<std::int16_t, 3> kSides = {Blue, Red, NoSide};

int IndexOfSide(std::int16_t side) {
    const auto* const found = std::ranges::find(kSides, side);
    return static_cast<int>((found == kSides.end() ? kSides.end() - 1 : found) - kSides.begin());
}

} // namespace

frmComputer::frmComputer(wxWindow* parent, const ComputerGameChoice& before)
    : wxDialog(parent, wxID_ANY, "Play Against the Computer") {
    optSide = new wxRadioBox(this, wxID_ANY, "You play", wxDefaultPosition, wxDefaultSize,
                             Names({"&Blue (begins)", "&Red", "By &chance"}));
    optSide->SetSelection(IndexOfSide(before.ownSide));
    auto* lblCaption = new wxStaticText(this, wxID_ANY, "&Level of the computer:");
    cboLevel = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, LevelNames());
    cboLevel->SetSelection(LevelIn(before.level) - computer::kWeakestLevel);
    lblLevel = new wxStaticText(this, wxID_ANY, {});
    optBoard = new wxRadioBox(this, wxID_ANY, "Board", wxDefaultPosition, wxDefaultSize,
                              Names({"&Imperial Board", "&Draume Crown Board"}));
    optBoard->SetSelection(before.boardVariant == kImperialBoard ? 0 : 1);
    NameControl(optSide, "optSide", "You play");
    NameControl(cboLevel, "cboLevel", "Level of the computer");
    NameControl(lblLevel, "lblLevel", "What the level is like");
    NameControl(optBoard, "optBoard", "Board");
    cboLevel->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { DescribeLevel(); });

    const int gap = FromDIP(12);
    const auto wide = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap);
    auto* level = new wxBoxSizer(wxHORIZONTAL);
    level->Add(lblCaption, wxSizerFlags().CentreVertical().Border(wxRIGHT, gap));
    level->Add(cboLevel, wxSizerFlags(1));
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(optSide, wide);
    rows->Add(level, wide);
    rows->Add(lblLevel, wide);
    rows->Add(optBoard, wide);
    rows->Add(CreateSeparatedButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().Border(wxALL, gap));
    lblLevel->SetLabel(kLevelSentences.back()); // the longest, for the width
    SetSizerAndFit(rows);
    DescribeLevel();
    CentreOnParent();
    optSide->SetFocus();
}

void frmComputer::DescribeLevel() {
    lblLevel->SetLabel(kLevelSentences.at(static_cast<std::size_t>(cboLevel->GetSelection())));
}

ComputerGameChoice frmComputer::Choice() const {
    ComputerGameChoice choice;
    choice.ownSide = kSides.at(static_cast<std::size_t>(optSide->GetSelection()));
    choice.level = static_cast<std::int16_t>(cboLevel->GetSelection() + computer::kWeakestLevel);
    choice.boardVariant = optBoard->GetSelection() == 0 ? kImperialBoard : kDraumeCrownBoard;
    return choice;
}

std::optional<ComputerGameChoice> AskComputerGame(wxWindow* parent, const Settings& settings) {
    frmComputer dialog(parent, {settings.OwnSide, settings.ComputerLevel,
                                settings.UsesImperialBoard() ? kImperialBoard : kDraumeCrownBoard});
    if (dialog.ShowModal() != wxID_OK)
        return std::nullopt;
    return dialog.Choice();
}

std::optional<std::int16_t> AskLevel(wxWindow* parent, std::int16_t before) {
    wxSingleChoiceDialog dialog(parent, "The computer plays its next turns on this level:", "Change Level",
                                LevelNames());
    dialog.SetSelection(LevelIn(before) - computer::kWeakestLevel);
    if (dialog.ShowModal() != wxID_OK)
        return std::nullopt;
    return static_cast<std::int16_t>(dialog.GetSelection() + computer::kWeakestLevel);
}

std::int16_t OpponentOf(std::int16_t ownSide) {
    if (ownSide == Blue || ownSide == Red)
        return ownSide == Blue ? Red : Blue;
    return std::random_device()() % 2 == 0 ? Blue : Red;
}

} // namespace tarveth
