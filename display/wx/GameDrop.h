// Opens a saved game that is dropped on the window.
#pragma once

#include "display/wx/text.h"

#include <functional>
#include <string>
#include <utility>

#include <wx/dnd.h>

namespace tarveth {

class GameDrop : public wxFileDropTarget {
public:
    // open: is called with the full path of the first file that was dropped.
    explicit GameDrop(std::function<void(const std::string&)> open) : open_(std::move(open)) {}

    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override {
        if (files.empty())
            return false;
        open_(PathFromWx(files[0]));
        return true;
    }

private:
    std::function<void(const std::string&)> open_;
};

} // namespace tarveth
