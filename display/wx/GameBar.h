// The bar above the board that tells of games that are kept. It is created when it is first needed.
#pragma once

#include "storage/gamebar.h"

#include <functional>

#include <wx/panel.h>

class wxBoxSizer;
class wxStaticText;

namespace tarveth {

class GameBar : public wxPanel {
public:
    // choose: is called when a button has been pressed, once that event is over.
    GameBar(wxWindow* parent, std::function<void(BarChoice)> choose);

    // An empty line hides the bar.
    void ShowLine(const BarLine& line);
    // The height that it needs at that width: a text that is too long for one line is broken.
    int HeightAt(int width);
    // Takes the colours of the theme.
    void TakeThemeColours();

private:
    void CreateButtons(const std::vector<BarChoice>& choices);

    std::function<void(BarChoice)> choose_;
    wxString text_; // unbroken
    wxStaticText* lblBar = nullptr;
    wxBoxSizer* buttons_ = nullptr;
};

} // namespace tarveth
