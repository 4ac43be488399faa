// lstHistory: the moves so far, the newest one selected and in view.
#pragma once

#include <string>
#include <vector>

#include <wx/dataview.h>

namespace tarveth {

class HistoryList : public wxDataViewCtrl {
public:
    explicit HistoryList(wxWindow* parent);

    // Shows these lines: all of them anew, or the last of them where one has been added to what is shown. A
    // history that takes another's place is to be emptied first.
    void ShowLines(const std::vector<std::string>& lines);

private:
    class Rows;
    wxObjectDataPtr<Rows> rows_;
};

} // namespace tarveth
