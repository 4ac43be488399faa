#include "display/wx/HistoryList.h"

#include "display/wx/text.h"

namespace tarveth {

HistoryList::HistoryList(wxWindow* parent)
    : wxListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                wxLB_SINGLE | wxLB_NEEDED_SB) {}

void HistoryList::ShowLines(const std::vector<std::string>& lines) {
    if (lines.size() == GetCount() + 1) {
        Append(ToWx(lines.back()));
    } else {
        wxArrayString all;
        all.Alloc(lines.size());
        for (const std::string& line : lines)
            all.Add(ToWx(line));
        Set(all);
    }
    if (!lines.empty()) {
        SetSelection(static_cast<int>(lines.size()) - 1);
        EnsureVisible(static_cast<int>(lines.size()) - 1);
    }
}

} // namespace tarveth
