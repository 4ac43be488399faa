#include "display/wx/PlacedFrame.h"

#include "display/picturebox.h"
#include "platform/window_place.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include <wx/display.h>

namespace tarveth {

namespace {

constexpr float kNowhere = 9e6F; // stands for an unknown place

float Twips(int pixels) {
    return static_cast<float>(pixels * kTwipsPerPixelX);
}

int Pixels(float twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixelX));
}

std::vector<ScreenRect> ScreensInTwips() {
    std::vector<ScreenRect> screens;
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
        const wxRect area = wxDisplay(i).GetClientArea();
        screens.push_back({Twips(area.x), Twips(area.y), Twips(area.width), Twips(area.height)});
    }
    return screens;
}

// Limits a size from a file, which may be more than any window system can show.
WindowPosition NoLargerThan(const std::vector<ScreenRect>& screens, WindowPosition window) {
    float right = 0;
    float bottom = 0;
    for (const ScreenRect& screen : screens) {
        right = std::max(right, screen.Left + screen.Width);
        bottom = std::max(bottom, screen.Top + screen.Height);
    }
    window.Width = std::clamp(window.Width, 0.0F, right);
    window.Height = std::clamp(window.Height, 0.0F, bottom);
    return window;
}

} // namespace

PlacedFrame::PlacedFrame(const wxString& title) : wxFrame(nullptr, wxID_ANY, title) {
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Remember();
        event.Skip();
    });
    Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
        Remember();
        event.Skip();
    });
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        CorrectSize();
        event.Skip();
    });
}

bool PlacedFrame::StandsNormally() const {
    return IsShown() && !IsMaximized() && !IsIconized() && !IsFullScreen();
}

void PlacedFrame::Remember() {
    if (StandsNormally())
        normalPlace_ = GetRect();
}

WindowPosition PlacedFrame::Position() const {
    const wxRect place = StandsNormally() || normalPlace_.IsEmpty() ? GetRect() : normalPlace_;
    const wxPoint corner = ToDIP(place.GetPosition());
    const wxSize size = ToDIP(place.GetSize());
    return {Twips(corner.x), Twips(corner.y), Twips(size.x), Twips(size.y)};
}

void PlacedFrame::StandAt(const WindowPosition& position) {
    const wxPoint corner = FromDIP(wxPoint(Pixels(position.Left), Pixels(position.Top)));
    SetSize(wxRect(corner, FromDIP(wxSize(Pixels(position.Width), Pixels(position.Height)))));
}

// Corrects the size once the window is on the screen, since the width of its border is unknown before.
void PlacedFrame::CorrectSize() {
    const wxSize size = std::exchange(givenSize_, wxSize());
    if (size != wxSize() && size != GetSize() && StandsNormally())
        SetSize(size);
}

void PlacedFrame::ShowPlaced(const std::function<void(WindowPosition&)>& load) {
    const WindowPosition first = Position();
    WindowPosition position = {kNowhere, kNowhere, first.Width, first.Height};
    load(position);
    const std::vector<ScreenRect> screens = ScreensInTwips();
    position = NoLargerThan(screens, position);
    if (position.Left == kNowhere && position.Top == kNowhere) {
        StandAt({first.Left, first.Top, position.Width, position.Height});
        Show();
        return;
    }
    if (position.Left == kNowhere)
        position.Left = first.Left;
    if (position.Top == kNowhere)
        position.Top = first.Top;
    StandAt(KeepOnScreen(position, screens));
    const wxPoint corner = GetPosition();
    givenSize_ = GetSize();
    Show();
    platform::PlaceAtFirstShow(GetHandle(), corner.x, corner.y);
}

} // namespace tarveth
