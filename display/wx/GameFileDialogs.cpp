#include "display/wx/GameFileDialogs.h"

#include "display/wx/text.h"

#include <wx/arrstr.h>
#include <wx/datetime.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace tarveth {

namespace {

// The filter with patterns that this system finds all the files with: elsewhere than on Windows "*.TSG" would
// find no small letters, and "*.*" no name without a point. What a person reads stays.
wxString SystemFilter(const std::string& filter) {
#ifdef __WXMSW__
    return ToWx(filter);
#else
    wxArrayString parts = wxSplit(ToWx(filter), '|', '\0');
    for (std::size_t i = 1; i < parts.size(); i += 2) // after each label its pattern
        parts[i] = parts[i] == "*.*" ? wxString("*") : parts[i] + ';' + parts[i].Lower();
    return wxJoin(parts, '|', '\0');
#endif
}

} // namespace

std::optional<std::string> GameFileDialogs::AskFile(const FileQuestion& question) {
    const bool opens = question.purpose == FileQuestion::Purpose::Open;
    const auto [folder, name] = DialogStart(question);
    wxFileDialog dialog(parent_, ToWx(question.title), PathToWx(folder), PathToWx(name),
                        SystemFilter(question.filter), opens ? wxFD_OPEN | wxFD_FILE_MUST_EXIST : wxFD_SAVE);
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
    return wxDateTime::Today().FormatDate().utf8_string();
}

} // namespace tarveth
