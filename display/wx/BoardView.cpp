#include "display/wx/BoardView.h"

#include <algorithm>
#include <utility>

#include <wx/dc.h>

namespace tarveth {

namespace {

MouseButton ButtonOf(const wxMouseEvent& event) {
    switch (event.GetButton()) {
    case wxMOUSE_BTN_LEFT:
        return MouseButton::Left;
    case wxMOUSE_BTN_RIGHT:
        return MouseButton::Right;
    default:
        return MouseButton::Other;
    }
}

// Draws a frame of `thickness` inside `rect`. If `corner` is not 0, only so much of each side is drawn from
// each corner.
void DrawBand(wxDC& dc, const wxRect& rect, int thickness, int corner, Pixel colour) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(wxColour(colour)));
    const int across = corner == 0 ? rect.width : corner;
    const int down = corner == 0 ? rect.height : corner;
    for (const int y : {rect.y, rect.GetBottom() + 1 - thickness}) {
        dc.DrawRectangle(rect.x, y, across, thickness);
        dc.DrawRectangle(rect.GetRight() + 1 - across, y, across, thickness);
    }
    for (const int x : {rect.x, rect.GetRight() + 1 - thickness}) {
        dc.DrawRectangle(x, rect.y, thickness, down);
        dc.DrawRectangle(x, rect.GetBottom() + 1 - down, thickness, down);
    }
}

// Draws the selection marker: a dark, an accent and a light band, from the outside in.
void DrawMarker(wxDC& dc, wxRect rect) {
    const int unit = std::max(1, rect.width / 24);
    DrawBand(dc, rect, unit, 0, kMarkerDark);
    DrawBand(dc, rect.Deflate(unit), unit * 2, 0, kMarkerAccent);
    DrawBand(dc, rect.Deflate(unit * 2), unit, 0, kMarkerLight);
}

// Draws the keyboard's cursor: four corners in two tones, which leave the selection marker visible.
void DrawCursor(wxDC& dc, wxRect rect) {
    const int unit = std::max(1, rect.width / 24);
    const int corner = rect.width / 4;
    DrawBand(dc, rect.Deflate(unit * 4), unit, corner, kMarkerDark);
    DrawBand(dc, rect.Deflate(unit), unit, corner - unit, kMarkerLight);
}

} // namespace

BoardView::BoardView(wxWindow* parent) : PictureView(parent, wxWANTS_CHARS) {
    SetCanFocus(true);
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_DOWN, wxEVT_RIGHT_DCLICK})
        Bind(type, &BoardView::OnMouseDown, this);
    for (const auto& type : {wxEVT_LEFT_UP, wxEVT_RIGHT_UP})
        Bind(type, &BoardView::OnMouseUp, this);
    Bind(wxEVT_MOTION, &BoardView::OnPointerMove, this);
    Bind(wxEVT_LEAVE_WINDOW, &BoardView::OnPointerMove, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &BoardView::OnCaptureLost, this);
    Bind(wxEVT_KEY_DOWN, &BoardView::OnKeyDown, this);
    Bind(wxEVT_KEY_UP, &BoardView::OnKeyUp, this);
    Bind(wxEVT_SET_FOCUS, &BoardView::OnFocusChange, this);
    Bind(wxEVT_KILL_FOCUS, &BoardView::OnFocusChange, this);
}

void BoardView::Connect(const BoardDisplay& board, BoardMouse& mouse, std::function<void()> beforeInput,
                        std::function<void()> afterInput) {
    board_ = &board;
    mouse_ = &mouse;
    beforeInput_ = std::move(beforeInput);
    afterInput_ = std::move(afterInput);
}

void BoardView::PaintOver(wxDC& dc) {
    if (board_ == nullptr)
        return;
    const double scale = GetContentScaleFactor();
    const auto toLayout = [scale](int pixels) { return static_cast<int>(pixels / scale); };
    const MarkerShape& shape = board_->Shape1;
    const int square = toLayout(shape.Width);
    if (shape.Visible)
        DrawMarker(dc, {toLayout(shape.Left), toLayout(shape.Top), square, square});
    const BoardCursor& cursor = mouse_->Cursor;
    if (cursor.Visible && HasFocus())
        DrawCursor(dc, {(cursor.At.column - 1) * square, (cursor.At.row - 1) * square, square, square});
}

// A window that opens under the pointer is entered without a movement; then nothing is pointed at.
void BoardView::OnPointerMove(wxMouseEvent& event) {
    event.Skip();
    if (mouse_ == nullptr)
        return;
    const double scale = GetContentScaleFactor();
    const bool outside = event.Leaving();
    if (mouse_->Point(outside ? -1 : event.GetX() * scale, outside ? -1 : event.GetY() * scale,
                      event.LeftIsDown()))
        RefreshMarks();
}

void BoardView::OnMouseDown(wxMouseEvent& event) {
    SetFocus();
    // The mouse is captured only for a zone, which ends when the button is released, even outside the window.
    if (ButtonOf(event) == MouseButton::Right && !HasCapture())
        CaptureMouse();
    if (ButtonOf(event) == MouseButton::Left)
        beforeInput_();
    const double scale = GetContentScaleFactor();
    mouse_->MouseDown(ButtonOf(event), event.GetX() * scale, event.GetY() * scale);
    RefreshMarks();
}

void BoardView::OnMouseUp(wxMouseEvent& event) {
    if (HasCapture())
        ReleaseMouse();
    const double scale = GetContentScaleFactor();
    mouse_->MouseUp(ButtonOf(event), event.GetX() * scale, event.GetY() * scale);
    afterInput_();
}

void BoardView::OnCaptureLost(wxMouseCaptureLostEvent&) {
    mouse_->ReleaseCursorZone();
}

void BoardView::OnKeyDown(wxKeyEvent& event) {
    switch (event.GetKeyCode()) {
    case WXK_LEFT:
        mouse_->MoveCursor(-1, 0);
        break;
    case WXK_RIGHT:
        mouse_->MoveCursor(1, 0);
        break;
    case WXK_UP:
        mouse_->MoveCursor(0, -1);
        break;
    case WXK_DOWN:
        mouse_->MoveCursor(0, 1);
        break;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
    case WXK_SPACE:
        beforeInput_();
        mouse_->PressCursor();
        afterInput_();
        break;
    case WXK_ESCAPE:
        beforeInput_();
        mouse_->PutDown();
        afterInput_();
        break;
    case 'Z':
        mouse_->ShowCursorZone();
        break;
    case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
        break;
    default:
        event.Skip();
        return;
    }
    RefreshMarks();
}

void BoardView::OnKeyUp(wxKeyEvent& event) {
    if (event.GetKeyCode() == 'Z')
        mouse_->ReleaseCursorZone();
    else
        event.Skip();
}

void BoardView::OnFocusChange(wxFocusEvent& event) {
    if (mouse_ != nullptr && event.GetEventType() == wxEVT_KILL_FOCUS)
        mouse_->ReleaseCursorZone(); // without the focus this window will not get the key-up event
    RefreshMarks();
    event.Skip();
}

} // namespace tarveth
