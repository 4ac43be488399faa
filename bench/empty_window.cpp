// The smallest program with a window: a frame and a menu bar. The game's start-up time and memory are
// compared with those of this program.
//   --exit-after-paint   ends the program when the display server has been sent the first picture

#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/frame.h>
#include <wx/menu.h>

namespace {

class EmptyFrame : public wxFrame {
public:
    explicit EmptyFrame(bool exitAfterPaint)
        : wxFrame(nullptr, wxID_ANY, "Empty window", wxDefaultPosition, wxSize(800, 600)) {
        auto* file = new wxMenu;
        file->Append(wxID_EXIT, "E&xit");
        auto* bar = new wxMenuBar;
        bar->Append(file, "&File");
        SetMenuBar(bar);
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
        if (exitAfterPaint) {
            Bind(wxEVT_PAINT, &EmptyFrame::OnPaint, this);
        }
    }

private:
    // The toolkit sends the picture after the paint handlers have returned, so the window is closed at the
    // next turn of the event loop.
    void OnPaint(wxPaintEvent& event) {
        event.Skip();
        CallAfter([this] { Close(); });
    }
};

} // namespace

class EmptyApp : public wxApp {
public:
    bool OnInit() override {
        if (!wxApp::OnInit()) {
            return false;
        }
        (new EmptyFrame(exitAfterPaint_))->Show();
        return true;
    }

    void OnInitCmdLine(wxCmdLineParser& parser) override {
        wxApp::OnInitCmdLine(parser);
        parser.AddSwitch("", "exit-after-paint", "end after the first picture");
    }

    bool OnCmdLineParsed(wxCmdLineParser& parser) override {
        exitAfterPaint_ = parser.Found("exit-after-paint");
        return wxApp::OnCmdLineParsed(parser);
    }

private:
    bool exitAfterPaint_ = false;
};

wxIMPLEMENT_APP(EmptyApp);
