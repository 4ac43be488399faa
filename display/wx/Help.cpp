#include "display/wx/Help.h"

#include "platform/file_exists.h"
#include "platform/help_viewer.h"

#include <wx/msgdlg.h>
#include <wx/window.h>

namespace tarveth {

Help::Help(wxWindow* parent, std::vector<std::string> folders)
    : parent_(parent), folders_(std::move(folders)) {}

Help::~Help() = default;

void Help::Show() {
    if (ShowInSystemViewer())
        return;
    const std::string problem = ShowInWindow();
    if (!problem.empty())
        wxMessageBox(wxString::FromUTF8(problem), "Tarveth", wxOK | wxICON_ERROR, parent_);
}

void Help::Close() {
    if (window_ != nullptr)
        window_->Close();
}

bool Help::ShowInSystemViewer() const {
    const std::string file = platform::FindInFolders("tarveth.hlp", folders_);
    return !file.empty() && platform::WinHelpA(parent_->GetHandle(), file, platform::kHelpContents, 0);
}

// Opens the manual in a window of the program. Gives a sentence about what failed; empty on success.
std::string Help::ShowInWindow() {
    const std::string book = platform::FindInFolders("tarveth.htb", folders_);
    if (book.empty())
        return "The manual is missing: there is no tarveth.htb in " + folders_.back() + ".";
    std::string problem;
    if (window_ == nullptr)
        window_ = LoadHelpWindow(parent_, folders_.back(), book, problem);
    if (window_ == nullptr)
        return problem;
    if (!window_->Show())
        return "The manual cannot be read: " + book + " is damaged.";
    return {};
}

} // namespace tarveth
