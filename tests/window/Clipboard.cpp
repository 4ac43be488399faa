#include "tests/window/Clipboard.h"

#include "tests/window/Waiting.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace tarveth::harness {

namespace {

constexpr long kLongestText = 100'000; // in units of four bytes

// The text that the property of a window holds.
std::string TextOf(Display* display, ::Window window, Atom property) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* bytes = nullptr;
    XGetWindowProperty(display, window, property, 0, kLongestText, True, AnyPropertyType, &type, &format,
                       &count, &left, &bytes);
    std::string text;
    if (bytes != nullptr && format == 8)
        text.assign(reinterpret_cast<const char*>(bytes), count);
    XFree(bytes);
    return text;
}

} // namespace

std::string ClipboardText(const Screen& screen) {
    Display* display = screen.Connection();
    const ::Window window = XCreateSimpleWindow(display, screen.Root(), 0, 0, 1, 1, 0, 0, 0);
    const Atom property = XInternAtom(display, "TEST_CLIPBOARD", False);
    XConvertSelection(display, XInternAtom(display, "CLIPBOARD", False),
                      XInternAtom(display, "UTF8_STRING", False), property, window, CurrentTime);
    XFlush(display);
    XEvent event;
    std::string text;
    if (WaitUntil(
            [&] { return XCheckTypedWindowEvent(display, window, SelectionNotify, &event) != False; }) &&
        event.xselection.property != None)
        text = TextOf(display, window, property);
    XDestroyWindow(display, window);
    return text;
}

} // namespace tarveth::harness
