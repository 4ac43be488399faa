// The dialogs of the saved-game commands.
#pragma once

#include "storage/gamefiles.h"

class wxWindow;

namespace tarveth {

class GameFileDialogs : public GameFilesPort {
public:
    // The dialogs belong to that window, which outlives the object's use.
    explicit GameFileDialogs(wxWindow* parent) : parent_(parent) {}

    // Leaves the working folder alone, and whether a file may be overwritten to the caller.
    std::optional<std::string> AskFile(const FileQuestion& question) override;
    YesNoCancel AskYesNoCancel(std::string_view text) override;
    std::string ShortDate() override;

private:
    wxWindow* parent_;
};

} // namespace tarveth
