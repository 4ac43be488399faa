// A top-level window of another program, as the display server and the window manager see it.
#pragma once

#include "tests/window/Screen.h"
#include "tests/window/Waiting.h"

#include <string>

namespace tarveth::harness {

class Window {
public:
    // `screen` outlives the object.
    Window(Screen& screen, WindowId id) : screen_(&screen), id_(id) {}

    [[nodiscard]] WindowId Id() const { return id_; }
    // True while the window is on the screen.
    [[nodiscard]] bool Visible() const;
    [[nodiscard]] std::string Title() const;
    // Gives the client area of the window on the screen; the menu bar is a part of it.
    [[nodiscard]] Rect ClientArea() const;
    // Gives the place of the window with its title bar and border.
    [[nodiscard]] Rect Frame() const;

    // Asks the window manager; the window follows when it has answered.
    void MoveTo(Point frameCorner);
    void Resize(int clientWidth, int clientHeight);
    // Asks the window to close, as the cross in its title bar does.
    void Close();
    // Asks the window manager to bring the window to the front and give it the focus.
    void AskForKeyboard();
    // Brings the window to the front and waits until it has the focus. False if that does not happen.
    bool Activate();
    // Waits until the window is gone; false if it is still there after `patience`.
    bool WaitUntilGone(Milliseconds patience = kPatience) const;

    // Points count from the upper left corner of the client area.
    void MovePointer(Point to);
    void Click(Point at, Button button = Button::Left);
    [[nodiscard]] Picture Capture() const { return screen_->Capture(ClientArea()); }

private:
    [[nodiscard]] Point OnScreen(Point inClient) const;
    void Ask(const char* message, long first, long second) const;

    Screen* screen_;
    WindowId id_;
};

} // namespace tarveth::harness
