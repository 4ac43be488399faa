#include "tests/window/Screen.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <stdexcept>

namespace tarveth::harness {

namespace {

// Ignores X errors: a window may be destroyed while it is being queried, which the result of the query shows.
int IgnoreError(Display*, XErrorEvent*) {
    return 0;
}

std::vector<KeySym> ChordSymbols(std::string_view chord) {
    std::vector<KeySym> symbols;
    while (!chord.empty()) {
        const auto plus = std::min(chord.find('+', 1), chord.size());
        std::string name(chord.substr(0, plus));
        chord.remove_prefix(std::min(plus + 1, chord.size()));
        if (name == "Alt" || name == "Shift") {
            name += "_L";
        } else if (name == "Ctrl") {
            name = "Control_L";
        }
        const KeySym symbol = XStringToKeysym(name.c_str());
        if (symbol == NoSymbol) {
            throw std::invalid_argument("no key is named " + name);
        }
        symbols.push_back(symbol);
    }
    return symbols;
}

} // namespace

void Screen::Closer::operator()(_XDisplay* display) const {
    XCloseDisplay(display);
}

Screen::Screen() {
    XSetErrorHandler(IgnoreError);
    display_.reset(XOpenDisplay(nullptr));
    if (!display_) {
        throw std::runtime_error("no display to test on");
    }
}

Rect Screen::Area() const {
    const int number = DefaultScreen(Connection());
    return {0, 0, DisplayWidth(Connection(), number), DisplayHeight(Connection(), number)};
}

WindowId Screen::Root() const {
    return DefaultRootWindow(Connection());
}

std::vector<WindowId> Screen::TopLevels() const {
    return Property(Root(), "_NET_CLIENT_LIST");
}

WindowId Screen::Active() const {
    const auto active = Property(Root(), "_NET_ACTIVE_WINDOW");
    return active.empty() ? 0 : active.front();
}

std::vector<unsigned long> Screen::Property(WindowId window, const char* name) const {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    constexpr long kMost = 4096;
    const int result =
        XGetWindowProperty(Connection(), window, XInternAtom(Connection(), name, False), 0, kMost, False,
                           AnyPropertyType, &type, &format, &count, &left, &data);
    std::vector<unsigned long> values;
    if (result == Success && data != nullptr && format == 32) {
        const auto* first = reinterpret_cast<unsigned long*>(data);
        values.assign(first, first + count);
    }
    if (data != nullptr) {
        XFree(data);
    }
    return values;
}

void Screen::MovePointer(Point to) {
    XTestFakeMotionEvent(Connection(), -1, to.x, to.y, CurrentTime);
    XSync(Connection(), False);
}

void Screen::Press(Button button) {
    XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), True, CurrentTime);
    XSync(Connection(), False);
}

void Screen::Release(Button button) {
    XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), False, CurrentTime);
    XSync(Connection(), False);
}

void Screen::Click(Point at, Button button) {
    MovePointer(at);
    Press(button);
    Release(button);
}

void Screen::FakeKey(unsigned long symbol, bool down) {
    const KeyCode code = XKeysymToKeycode(Connection(), symbol);
    if (code == 0) {
        throw std::invalid_argument("the keyboard has no key for symbol " + std::to_string(symbol));
    }
    const bool shifted = XkbKeycodeToKeysym(Connection(), code, 0, 0) != symbol;
    const KeyCode shift = XKeysymToKeycode(Connection(), XStringToKeysym("Shift_L"));
    if (shifted && down) {
        XTestFakeKeyEvent(Connection(), shift, True, CurrentTime);
    }
    XTestFakeKeyEvent(Connection(), code, down ? True : False, CurrentTime);
    if (shifted && !down) {
        XTestFakeKeyEvent(Connection(), shift, False, CurrentTime);
    }
    XSync(Connection(), False);
}

void Screen::Key(std::string_view chord) {
    std::vector<KeySym> symbols = ChordSymbols(chord);
    // "Alt+F" is the key F with Alt, as it is written in menus, without Shift.
    if (symbols.size() > 1) {
        KeySym upper = 0;
        XConvertCase(symbols.back(), &symbols.back(), &upper);
    }
    for (const KeySym symbol : symbols) {
        FakeKey(symbol, true);
    }
    std::reverse(symbols.begin(), symbols.end());
    for (const KeySym symbol : symbols) {
        FakeKey(symbol, false);
    }
}

void Screen::PressKey(std::string_view name) {
    for (const KeySym symbol : ChordSymbols(name)) {
        FakeKey(symbol, true);
    }
}

void Screen::ReleaseKey(std::string_view name) {
    for (const KeySym symbol : ChordSymbols(name)) {
        FakeKey(symbol, false);
    }
}

void Screen::Type(std::string_view text) {
    for (const char letter : text) {
        const KeySym symbol = letter == '\n' ? XStringToKeysym("Return") : static_cast<unsigned char>(letter);
        FakeKey(symbol, true);
        FakeKey(symbol, false);
    }
}

Picture Screen::Capture(Rect area) const {
    const Rect whole = Area();
    const int left = std::clamp(area.x, 0, whole.width);
    const int top = std::clamp(area.y, 0, whole.height);
    Picture picture;
    picture.width = std::clamp(area.x + area.width, left, whole.width) - left;
    picture.height = std::clamp(area.y + area.height, top, whole.height) - top;
    if (picture.width == 0 || picture.height == 0) {
        return {};
    }
    XImage* image = XGetImage(Connection(), Root(), left, top, static_cast<unsigned>(picture.width),
                              static_cast<unsigned>(picture.height), AllPlanes, ZPixmap);
    if (image == nullptr) {
        throw std::runtime_error("the display gives no picture");
    }
    picture.pixels.reserve(static_cast<std::size_t>(picture.width) *
                           static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            picture.pixels.push_back(static_cast<std::uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFFU);
        }
    }
    XDestroyImage(image);
    return picture;
}

} // namespace tarveth::harness
