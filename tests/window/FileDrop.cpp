#include "tests/window/FileDrop.h"

#include "tests/window/Waiting.h"

#include <array>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace tarveth::harness {

namespace {

constexpr long kVersion = 5;

// The program that the file is dragged from, with a window that nobody sees.
class DragSource {
public:
    DragSource(const Screen& screen, WindowId target, const std::string& path)
        : display_(screen.Connection()),
          target_(target),
          uri_("file://" + path + "\r\n"),
          window_(XCreateSimpleWindow(display_, screen.Root(), 0, 0, 1, 1, 0, 0, 0)) {
        XSetSelectionOwner(display_, Name("XdndSelection"), window_, CurrentTime);
    }
    ~DragSource() { XDestroyWindow(display_, window_); }
    DragSource(const DragSource&) = delete;
    DragSource& operator=(const DragSource&) = delete;

    void Send(const char* message, const std::array<long, 4>& values) const {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = target_;
        event.xclient.message_type = Name(message);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(window_);
        for (std::size_t i = 0; i < values.size(); ++i)
            event.xclient.data.l[i + 1] = values[i];
        XSendEvent(display_, target_, False, NoEventMask, &event);
        XFlush(display_);
    }

    // Gives the file to whoever asks for it, until the answer comes. Its second value tells whether the
    // window takes the file.
    bool WaitForYes(const char* answer) {
        bool yes = false;
        return WaitUntil([&] { return Answered(answer, yes); }) && yes;
    }

    [[nodiscard]] Atom Name(const char* name) const { return XInternAtom(display_, name, False); }

private:
    bool Answered(const char* answer, bool& yes) {
        XEvent event;
        while (XCheckTypedWindowEvent(display_, window_, SelectionRequest, &event) != False)
            Give(event.xselectionrequest);
        while (XCheckTypedWindowEvent(display_, window_, ClientMessage, &event) != False)
            if (event.xclient.message_type == Name(answer)) {
                yes = (event.xclient.data.l[1] & 1) != 0;
                return true;
            }
        return false;
    }

    void Give(const XSelectionRequestEvent& request) const {
        XChangeProperty(display_, request.requestor, request.property, request.target, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(uri_.data()), static_cast<int>(uri_.size()));
        XEvent event{};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = request.requestor;
        event.xselection.selection = request.selection;
        event.xselection.target = request.target;
        event.xselection.property = request.property;
        event.xselection.time = request.time;
        XSendEvent(display_, request.requestor, False, NoEventMask, &event);
        XFlush(display_);
    }

    Display* display_;
    WindowId target_;
    std::string uri_;
    WindowId window_;
};

} // namespace

bool DropFile(const Screen& screen, const Window& window, Point at, const std::string& path) {
    DragSource source(screen, window.Id(), path);
    const auto copies = static_cast<long>(source.Name("XdndActionCopy"));
    const long place = static_cast<long>(at.x) << 16 | at.y;
    source.Send("XdndEnter", {kVersion << 24, static_cast<long>(source.Name("text/uri-list")), 0, 0});
    source.Send("XdndPosition", {0, place, CurrentTime, copies});
    if (!source.WaitForYes("XdndStatus"))
        return false;
    source.Send("XdndDrop", {0, CurrentTime, 0, 0});
    return source.WaitForYes("XdndFinished");
}

} // namespace tarveth::harness
