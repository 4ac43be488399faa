#include "tests/window/Window.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace tarveth::harness {

bool Window::Visible() const {
    XWindowAttributes attributes;
    return XGetWindowAttributes(screen_->Connection(), id_, &attributes) != 0 &&
           attributes.map_state == IsViewable;
}

std::string Window::Title() const {
    Display* display = screen_->Connection();
    XTextProperty property{};
    std::string title;
    if (XGetTextProperty(display, id_, &property, XInternAtom(display, "_NET_WM_NAME", False)) != 0) {
        title.assign(property.value, property.value + property.nitems);
        XFree(property.value);
    }
    return title;
}

Rect Window::ClientArea() const {
    Display* display = screen_->Connection();
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, id_, &attributes) == 0) {
        return {};
    }
    Rect area{0, 0, attributes.width, attributes.height};
    ::Window child = 0;
    XTranslateCoordinates(display, id_, screen_->Root(), 0, 0, &area.x, &area.y, &child);
    return area;
}

Rect Window::Frame() const {
    Rect area = ClientArea();
    const auto border = screen_->Property(id_, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
    if (border.size() == 4) {
        area.x -= static_cast<int>(border[0]);
        area.y -= static_cast<int>(border[2]);
        area.width += static_cast<int>(border[0] + border[1]);
        area.height += static_cast<int>(border[2] + border[3]);
    }
    return area;
}

void Window::MoveTo(Point frameCorner) {
    XMoveWindow(screen_->Connection(), id_, frameCorner.x, frameCorner.y);
    XSync(screen_->Connection(), False);
}

void Window::Resize(int clientWidth, int clientHeight) {
    XResizeWindow(screen_->Connection(), id_, static_cast<unsigned>(clientWidth),
                  static_cast<unsigned>(clientHeight));
    XSync(screen_->Connection(), False);
}

void Window::Ask(const char* message, long first, long second) const {
    Display* display = screen_->Connection();
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = id_;
    event.xclient.message_type = XInternAtom(display, message, False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = second;
    XSendEvent(display, screen_->Root(), False, SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XSync(display, False);
}

void Window::Close() {
    constexpr long kFromUser = 2;
    Ask("_NET_CLOSE_WINDOW", CurrentTime, kFromUser);
}

void Window::AskForKeyboard() {
    constexpr long kFromUser = 2;
    Ask("_NET_ACTIVE_WINDOW", kFromUser, CurrentTime);
}

bool Window::Activate() {
    AskForKeyboard();
    return WaitUntil([this] { return screen_->Active() == id_; });
}

bool Window::WaitUntilGone(Milliseconds patience) const {
    return WaitUntil([this] { return !Visible(); }, patience);
}

Point Window::OnScreen(Point inClient) const {
    const Rect area = ClientArea();
    return {area.x + inClient.x, area.y + inClient.y};
}

void Window::MovePointer(Point to) {
    screen_->MovePointer(OnScreen(to));
}

void Window::Click(Point at, Button button) {
    screen_->Click(OnScreen(at), button);
}

} // namespace tarveth::harness
