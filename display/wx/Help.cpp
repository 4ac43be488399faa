#include "display/wx/Help.h"

#include "platform/file_exists.h"
#include "platform/help_viewer.h"

#include <wx/dynlib.h>
#include <wx/dynload.h>
#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/window.h>

namespace tarveth {

namespace {

// The module stays loaded until the program ends. Null when it cannot be loaded.
HelpWindow* LoadHelpWindow(wxWindow* parent, const std::string& module, const std::string& book) {
    const wxLogNull silence; // the caller tells what is wrong
    wxPluginLibrary* library =
        wxPluginManager::LoadLibrary(wxString::FromUTF8(module), wxDL_VERBATIM | wxDL_NOW);
    if (library == nullptr)
        return nullptr;
    const auto make = reinterpret_cast<NewHelpWindow>(library->GetSymbol(kNewHelpWindow));
    return make == nullptr ? nullptr : make(parent, book.c_str());
}

} // namespace

Help::Help(wxWindow* parent, std::vector<std::string> folders)
    : parent_(parent), folders_(std::move(folders)) {}

Help::~Help() = default;

// Where the manual is looked for first comes first; empty when it is nowhere.
std::string Help::Find(const std::string& name) const {
    for (const std::string& folder : folders_)
        if (platform::FileExists(folder + name))
            return folder + name;
    return {};
}

void Help::Show() {
    if (ShowInSystemViewer())
        return;
    const std::string problem = ShowInWindow();
    if (!problem.empty())
        wxMessageBox(wxString::FromUTF8(problem), "Tarveth", wxOK | wxICON_ERROR, parent_);
}

bool Help::ShowInSystemViewer() const {
    const std::string file = Find("tarveth.hlp");
    return !file.empty() && platform::WinHelpA(parent_->GetHandle(), file, platform::kHelpContents, 0);
}

// A sentence about what is wrong, empty when the window is there.
std::string Help::ShowInWindow() {
    const std::string book = Find("tarveth.htb");
    if (book.empty())
        return "The manual is missing: there is no tarveth.htb in " + folders_.back() + ".";
    const std::string module =
        folders_.back() + "tarveth-help" + wxDynamicLibrary::GetDllExt(wxDL_MODULE).utf8_string();
    if (window_ == nullptr)
        window_.reset(LoadHelpWindow(parent_, module, book));
    if (window_ == nullptr)
        return "The manual cannot be shown: " + module + " cannot be loaded.";
    if (!window_->Show())
        return "The manual cannot be read: " + book + " is damaged.";
    return {};
}

} // namespace tarveth
