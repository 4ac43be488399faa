// A window that stands again where it stood when it was last closed.
#pragma once

#include "storage/window_positions.h"

#include <functional>

#include <wx/frame.h>

namespace tarveth {

class PlacedFrame : public wxFrame {
public:
    explicit PlacedFrame(const wxString& title);

    // Where the window is while neither maximised nor minimised.
    WindowPosition Position() const;
    // Shows the window for the first time. `load` changes the position that is proposed as far as it knows
    // better; the window system finds the place of a window that it gives none.
    void ShowPlaced(const std::function<void(WindowPosition&)>& load);

private:
    bool StandsNormally() const;
    void Remember();
    void StandAt(const WindowPosition& position);
    void CorrectSize();

    wxRect normalPlace_; // when it last stood so
    wxSize givenSize_;   // until it is known to have that size
};

} // namespace tarveth
