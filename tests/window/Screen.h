// The screen of a test: a connection to the display server that looks at windows and sends mouse and key
// events. All points are pixels of the whole screen.
#pragma once

#include "tests/window/Picture.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the display library's own name

namespace tarveth::harness {

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] Point Centre() const { return {x + width / 2, y + height / 2}; }

    bool operator==(const Rect&) const = default;
};

using WindowId = unsigned long;

enum class Button : unsigned { Left = 1, Middle = 2, Right = 3, WheelUp = 4, WheelDown = 5 };

class Screen {
public:
    // Connects to the display that DISPLAY names. Throws std::runtime_error when there is none.
    Screen();

    [[nodiscard]] Rect Area() const;
    // The windows that the window manager knows, oldest first; menus and tips are not among them.
    [[nodiscard]] std::vector<WindowId> TopLevels() const;
    // Gives the window that has the focus, 0 if none has.
    [[nodiscard]] WindowId Active() const;

    void MovePointer(Point to);
    void Press(Button button);
    void Release(Button button);
    // Moves the pointer there, presses the button and releases it.
    void Click(Point at, Button button = Button::Left);

    // Presses the keys of a chord, such as "Return", "n", "Alt+F" or "Ctrl+Shift+Left", and releases them in
    // reverse order. Throws std::invalid_argument for a key that the keyboard does not have.
    void Key(std::string_view chord);
    void PressKey(std::string_view name);
    void ReleaseKey(std::string_view name);
    // Types Latin-1 text, one key after the other.
    void Type(std::string_view text);

    // Gives a picture of `area`, clipped to the screen.
    [[nodiscard]] Picture Capture(Rect area) const;
    [[nodiscard]] Picture Capture() const { return Capture(Area()); }

    [[nodiscard]] _XDisplay* Connection() const { return display_.get(); }
    [[nodiscard]] WindowId Root() const;
    // Gives the 32-bit values of a window's property; empty if it is not set.
    [[nodiscard]] std::vector<unsigned long> Property(WindowId window, const char* name) const;

private:
    struct Closer {
        void operator()(_XDisplay* display) const;
    };

    void FakeKey(unsigned long symbol, bool down);

    std::unique_ptr<_XDisplay, Closer> display_;
};

} // namespace tarveth::harness
