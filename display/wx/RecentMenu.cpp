#include "display/wx/RecentMenu.h"

#include "display/wx/text.h"
#include "platform/file_exists.h"
#include "platform/text_path.h"

#include <algorithm>

#include <wx/menu.h>

namespace tarveth {

namespace {

std::string NameOf(const std::string& path) {
    return platform::PathFromText(path).filename().string();
}

// The file's name, or its path where another one in the list has the same name. A number is the access key.
wxString CaptionOf(const std::vector<std::string>& paths, std::size_t index) {
    const std::string name = NameOf(paths[index]);
    const auto named = [&](const std::string& path) { return NameOf(path) == name; };
    const bool alone = std::count_if(paths.begin(), paths.end(), named) == 1;
    wxString text = ToWx(alone ? name : paths[index]);
    text.Replace("&", "&&");
    return wxString::Format("&%zu  %s", (index + 1) % 10, text);
}

} // namespace

void RecentMenu::Show(wxMenu* mnuView, const std::vector<std::string>& paths) {
    if (paths.empty() && mnuRecent == nullptr)
        return;
    if (mnuRecent == nullptr) {
        mnuRecent = new wxMenu;
        mnuView->AppendSeparator();
        mnuView->AppendSubMenu(mnuRecent, "&Recent Games");
    }
    if (paths != paths_) {
        while (mnuRecent->GetMenuItemCount() > 0)
            mnuRecent->Destroy(mnuRecent->FindItemByPosition(0));
        for (std::size_t i = 0; i < paths.size(); ++i)
            mnuRecent->Append(kFirstItem + static_cast<int>(i), CaptionOf(paths, i));
        paths_ = paths;
    }
    for (std::size_t i = 0; i < paths.size(); ++i)
        mnuRecent->Enable(kFirstItem + static_cast<int>(i), platform::FileExists(paths[i]));
}

std::string RecentMenu::PathOf(int item) const {
    return paths_.at(static_cast<std::size_t>(item - kFirstItem));
}

} // namespace tarveth
