// lstHistory: the list of the moves so far; the newest one is selected and in view.
#pragma once

#include <string>
#include <vector>

#include <wx/dataview.h>

namespace tarveth {

class HistoryList : public wxDataViewCtrl {
public:
    explicit HistoryList(wxWindow* parent);

    // Shows these lines. If there is one more than the list shows, only the last line is added; the list has
    // to be emptied first when another history takes the place of the one it shows.
    void ShowLines(const std::vector<std::string>& lines);

private:
    void ShowNewest();

    class Rows;
    wxObjectDataPtr<Rows> rows_;
};

} // namespace tarveth
