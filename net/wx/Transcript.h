// txtRX: one of the two transcripts. Each line has the colour of whoever said it.
#pragma once

#include "net/transcript.h"
#include "storage/settings.h"

#include <array>
#include <string>
#include <string_view>

#include <wx/textctrl.h>

namespace tarveth {

class Transcript : public wxTextCtrl {
public:
    explicit Transcript(wxWindow* parent);

    // Shows everything in the fonts and colours of the settings.
    void ApplySettings(const Settings& settings);

    // Adds a line at the end, or takes all away; to be seen after the next ShowUpdate.
    void AddLine(std::string_view text, LineKind kind) { lines_.Add(text, kind); }
    void ClearLines() { lines_.Clear(); }
    // Gives all lines, each with a line end, in the wire's code page.
    std::string Text() const;
    // Shows what has changed since the last time, and the end of it. Many lines at once cost far less than
    // one by one.
    void ShowUpdate();

private:
    void AppendFrom(std::size_t line);

    TranscriptLines lines_;
    std::array<wxColour, 4> colours_; // by LineKind
};

} // namespace tarveth
