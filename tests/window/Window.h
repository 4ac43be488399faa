// One top-level window of a program, by what can be seen and done from outside.
#pragma once

#include "tests/window/Screen.h"
#include "tests/window/Waiting.h"

#include <string>

namespace tarveth::harness {

class Window {
public:
    // `screen` must live as long as this does.
    Window(Screen& screen, WindowId id) : screen_(&screen), id_(id) {}

    [[nodiscard]] WindowId Id() const { return id_; }
    // True while the window is on the screen.
    [[nodiscard]] bool Visible() const;
    [[nodiscard]] std::string Title() const;
    // The inside of the window on the screen, menu bar included, title bar and border not.
    [[nodiscard]] Rect ClientArea() const;
    // The window with its title bar and border.
    [[nodiscard]] Rect Frame() const;

    // Asks the window manager; the window follows when it has answered.
    void MoveTo(Point frameCorner);
    void Resize(int clientWidth, int clientHeight);
    // What the cross in the title bar does.
    void Close();
    // Asks the window manager to bring the window to the front with the keyboard.
    void AskForKeyboard();
    // Brings the window to the front with the keyboard. False when that does not come about.
    bool Activate();
    // False when the window is still there after `patience`.
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
