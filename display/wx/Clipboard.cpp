#include "display/wx/Clipboard.h"

#include "display/wx/text.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

namespace tarveth {

bool CopyText(const std::string& text) {
    const wxClipboardLocker locker;
    if (!locker || !wxTheClipboard->SetData(new wxTextDataObject(ToWx(text))))
        return false;
    wxTheClipboard->Flush(); // which only matters once the program has ended
    return true;
}

std::string PastedText() {
    const wxClipboardLocker locker;
    wxTextDataObject text;
    if (!locker || !wxTheClipboard->GetData(text))
        return {};
    return std::string(text.GetText().utf8_str());
}

} // namespace tarveth
