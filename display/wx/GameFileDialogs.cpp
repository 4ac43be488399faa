#include "display/wx/GameFileDialogs.h"

#include "display/wx/text.h"

#include <wx/datetime.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>

namespace tarveth {

namespace {

// The filter with patterns that this system finds all the files with: elsewhere than on Windows "*.TSG" would
// find no small letters, and "*.*" no name without a point. What a person reads stays.
wxString SystemFilter(const std::string& filter) {
    wxString result = ToWx(filter);
#ifndef __WXMSW__
    result.Replace("|*.TSG|", "|*.TSG;*.tsg|");
    if (result.EndsWith("|*.*", &result))
        result += "|*";
#endif
    return result;
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
