#include "display/wx/HelpWindow.h"

#include <wx/display.h>
#include <wx/filesys.h>
#include <wx/fs_arc.h>
#include <wx/html/helpctrl.h>
#include <wx/html/helpfrm.h>
#include <wx/html/helpwnd.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/splitter.h>
#include <wx/treectrl.h>

namespace tarveth {

namespace {

constexpr int kStyle =
    wxHF_FRAME | wxHF_TOOLBAR | wxHF_CONTENTS | wxHF_INDEX | wxHF_SEARCH | wxHF_MERGE_BOOKS;

class HelpBook : public HelpWindow {
public:
    HelpBook(wxWindow* parent, const wxString& book)
        : parent_(parent), book_(book), controller_(kStyle, parent) {
        // The toolkit owns the handlers from then on. NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
        wxFileSystem::AddHandler(new wxArchiveFSHandler);
        if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr)
            wxImage::AddHandler(new wxPNGHandler);
        // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
        controller_.SetTitleFormat("%s");
    }

    bool Show() override {
        if (!open_) {
            const wxLogNull silence; // the caller reports the error
            open_ = controller_.AddBook(wxFileName(book_));
        }
        if (!open_)
            return false;
        const bool isNew = controller_.GetFrame() == nullptr;
        if (!controller_.DisplayContents())
            return false;
        if (isNew)
            Prepare(*controller_.GetFrame());
        return true;
    }

    void Close() override {
        if (wxHtmlHelpFrame* frame = controller_.GetFrame())
            frame->Close(true);
    }

private:
    // Wide enough for the contents and beside them a line of text that is easy to read, if the screen is.
    void Prepare(wxHtmlHelpFrame& frame) {
        wxSize size = frame.FromDIP(wxSize(960, 720));
        size.DecTo(wxDisplay(&frame).GetClientArea().GetSize());
        frame.SetSize(size);
        controller_.GetHelpWindow()->GetSplitterWindow()->SetSashPosition(frame.FromDIP(310));
        controller_.GetHelpWindow()->GetTreeCtrl()->SetFocus();
        if (const auto* main = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(parent_)))
            frame.SetIcons(main->GetIcons());
        frame.Bind(wxEVT_CHAR_HOOK, [&frame](wxKeyEvent& event) {
            if (event.GetKeyCode() == WXK_ESCAPE)
                frame.Close();
            else
                event.Skip();
        });
    }

    wxWindow* parent_;
    wxString book_;
    wxHtmlHelpController controller_;
    bool open_ = false;
};

} // namespace

} // namespace tarveth

extern "C" WXEXPORT tarveth::HelpWindow* TarvethNewHelpWindow(wxWindow* parent, const char* book);

extern "C" tarveth::HelpWindow* TarvethNewHelpWindow(wxWindow* parent, const char* book) {
    return new tarveth::HelpBook(parent, wxString::FromUTF8(book));
}
