// picDisplay: the visible board, with the selection marker and the keyboard's cursor drawn over it. Mouse and
// keys go to BoardMouse.
#pragma once

#include "display/boardmouse.h"
#include "display/wx/PictureView.h"

#include <functional>

namespace tarveth {

class BoardView : public PictureView {
public:
    explicit BoardView(wxWindow* parent);

    // Both outlive the window; afterInput runs after every square that may have been deposited, so that the
    // next one cannot take its place. Until this is called there is no board to see or click.
    void Connect(const BoardDisplay& board, BoardMouse& mouse, std::function<void()> afterInput);

    bool AcceptsFocus() const override { return true; }

protected:
    void PaintOver(wxDC& dc) override;

private:
    void OnMouseDown(wxMouseEvent& event);
    void OnMouseUp(wxMouseEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);
    void OnKeyDown(wxKeyEvent& event);
    void OnKeyUp(wxKeyEvent& event);
    void OnFocusChange(wxFocusEvent& event);

    const BoardDisplay* board_ = nullptr;
    BoardMouse* mouse_ = nullptr;
    std::function<void()> afterInput_;
};

} // namespace tarveth
