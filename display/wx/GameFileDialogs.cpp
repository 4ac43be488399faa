#include "display/wx/GameFileDialogs.h"

#include "display/wx/text.h"
#include "platform/short_date.h"

#include <wx/arrstr.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace tarveth {

namespace {

// Gives the pattern that matches the same files on this system. On Windows patterns ignore case, and the
// dialog adds the pattern's ending to a name without one, so it is kept. Elsewhere "*.TSG" would not match
// "a.tsg", and
// "*.*" no name without a point.
wxString SystemPattern(const wxString& pattern) {
#ifdef __WXMSW__
    return pattern.Lower();
#else
    return pattern == "*.*" ? wxString("*") : pattern + ';' + pattern.Lower();
#endif
}

// Adapts the patterns of a filter to this system; its labels stay.
wxString SystemFilter(const std::string& filter) {
    wxArrayString parts = wxSplit(ToWx(filter), '|', '\0');
    for (std::size_t i = 1; i < parts.size(); i += 2) // after each label its pattern
        parts[i] = SystemPattern(parts[i]);
    return wxJoin(parts, '|', '\0');
}

long DialogStyle(FileQuestion::Purpose purpose) {
    switch (purpose) {
    case FileQuestion::Purpose::Open:
        return wxFD_OPEN | wxFD_FILE_MUST_EXIST;
    case FileQuestion::Purpose::Name:
        return wxFD_OPEN;
    default:
        return wxFD_SAVE;
    }
}

} // namespace

std::optional<std::string> GameFileDialogs::AskFile(const FileQuestion& question) {
    const auto [folder, name] = DialogStart(question);
    wxFileDialog dialog(parent_, ToWx(question.title), PathToWx(folder), PathToWx(name),
                        SystemFilter(question.filter), DialogStyle(question.purpose));
    if (dialog.ShowModal() != wxID_OK)
        return std::nullopt;
    return PathFromWx(dialog.GetPath());
}

YesNoCancel GameFileDialogs::AskYesNoCancel(std::string_view text) {
    switch (wxMessageBox(ToWx(text), "Tarveth", wxYES_NO | wxCANCEL | wxICON_EXCLAMATION, parent_)) {
    case wxYES:
        return YesNoCancel::Yes;
    case wxNO:
        return YesNoCancel::No;
    default:
        return YesNoCancel::Cancel;
    }
}

std::string GameFileDialogs::ShortDate() {
    return platform::ShortDate();
}

} // namespace tarveth
