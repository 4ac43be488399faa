// The dialogs of the saved-game commands.
#pragma once

#include "storage/gamefiles.h"

class wxWindow;

namespace tarveth {

class GameFileDialogs : public GameFilesPort {
public:
    // The window, which outlives all calls, becomes the dialogs' parent.
    explicit GameFileDialogs(wxWindow* parent) : parent_(parent) {}

    // Does not change the working folder. Whether a file may be overwritten is for the caller to ask.
    std::optional<std::string> AskFile(const FileQuestion& question) override;
    YesNoCancel AskYesNoCancel(std::string_view text) override;
    std::string ShortDate() override;

private:
    wxWindow* parent_;
};

} // namespace tarveth
