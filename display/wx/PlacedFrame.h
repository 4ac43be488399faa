// A window that opens at the place where it was last closed.
#pragma once

#include "storage/window_positions.h"

#include <functional>

#include <wx/frame.h>

namespace tarveth {

class PlacedFrame : public wxFrame {
public:
    explicit PlacedFrame(const wxString& title);

    // Gives the window's place while it is neither maximised nor minimised.
    WindowPosition Position() const;
    // Shows the window for the first time. `load` gets a proposed position and changes the parts that were
    // saved. A window without a saved place is placed by the window system.
    void ShowPlaced(const std::function<void(WindowPosition&)>& load);

private:
    bool StandsNormally() const;
    void Remember();
    void StandAt(const WindowPosition& position);
    void CorrectSize();

    wxRect normalPlace_; // the place when it was last neither maximised nor minimised
    wxSize givenSize_;   // the size asked for, until the window is known to have it
};

} // namespace tarveth
