// picDisplay: the visible board, with the selection marker and the keyboard's cursor drawn over it. Mouse and
// key events are passed to BoardMouse.
#pragma once

#include "display/boardmouse.h"
#include "display/wx/PictureView.h"

#include <functional>

namespace tarveth {

class BoardView : public PictureView {
public:
    explicit BoardView(wxWindow* parent);

    // Joins the view to a board and its mouse, which outlive it; before that it shows nothing and ignores
    // clicks. beforeInput is called when a left click or a key that does the same begins, afterInput after
    // each event that may have deposited a square, before the next event can replace that square.
    void Connect(const BoardDisplay& board, BoardMouse& mouse, std::function<void()> beforeInput,
                 std::function<void()> afterInput);

    bool AcceptsFocus() const override { return true; }

protected:
    void PaintOver(wxDC& dc) override;

private:
    void OnPointerMove(wxMouseEvent& event);
    void OnMouseDown(wxMouseEvent& event);
    void OnMouseUp(wxMouseEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);
    void OnKeyDown(wxKeyEvent& event);
    void OnKeyUp(wxKeyEvent& event);
    void OnFocusChange(wxFocusEvent& event);

    const BoardDisplay* board_ = nullptr;
    BoardMouse* mouse_ = nullptr;
    std::function<void()> beforeInput_, afterInput_;
};

} // namespace tarveth
