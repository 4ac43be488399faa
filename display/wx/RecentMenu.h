// The list of recent games in the View menu. It is there once there are any.
#pragma once

#include <string>
#include <vector>

#include <wx/defs.h>

class wxMenu;

namespace tarveth {

class RecentMenu {
public:
    static constexpr int kFirstItem = wxID_HIGHEST + 1000; // behind all items of the main menu
    static constexpr int kLastItem = kFirstItem + 99;

    // Lists the files with these full paths; those that are missing cannot be chosen. mnuView outlives the
    // object.
    void Show(wxMenu* mnuView, const std::vector<std::string>& paths);
    // Gives the path that an item stands for.
    std::string PathOf(int item) const;

private:
    std::vector<std::string> paths_;
    wxMenu* mnuRecent = nullptr; // null until there is a recent game; owned by the View menu
};

} // namespace tarveth
