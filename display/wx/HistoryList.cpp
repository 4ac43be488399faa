#include "display/wx/HistoryList.h"

#include "display/wx/text.h"

#include <deque>

namespace tarveth {

namespace {

constexpr int kLeastWidth = 40;

} // namespace

// The list's model. The list asks it only for the lines in view.
class HistoryList::Rows : public wxDataViewVirtualListModel {
public:
    void Add(const std::string& line) {
        lines_.push_back(line);
        RowAppended();
    }
    void Show(const std::vector<std::string>& lines) {
        lines_.assign(lines.begin(), lines.end());
        Reset(static_cast<unsigned>(lines.size()));
    }

    void GetValueByRow(wxVariant& value, unsigned row, unsigned) const override {
        value = row < lines_.size() ? ToWx(lines_[row]) : wxString();
    }
    bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

private:
    // A deque, since a vector would move all lines when it grows.
    std::deque<std::string> lines_;
};

HistoryList::HistoryList(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE | wxDV_NO_HEADER),
      rows_(new Rows) {
    AssociateModel(rows_.get());
    // With a fixed width the toolkit need not measure every row; the only column is as wide as the list
    // anyway.
    AppendColumn(
        new wxDataViewColumn("", new wxDataViewTextRenderer, 0, FromDIP(kLeastWidth), wxALIGN_LEFT, 0));
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        CallAfter([this] { ShowNewest(); }); // once the list has its new size
        event.Skip();
    });
}

void HistoryList::ShowNewest() {
    if (const unsigned count = rows_->GetCount(); count != 0)
        EnsureVisible(rows_->GetItem(count - 1));
}

void HistoryList::ShowLines(const std::vector<std::string>& lines) {
    if (lines.size() == rows_->GetCount() + 1)
        rows_->Add(lines.back());
    else
        rows_->Show(lines);
    if (!lines.empty()) {
        const wxDataViewItem newest = rows_->GetItem(static_cast<unsigned>(lines.size()) - 1);
        Select(newest);
        EnsureVisible(newest);
    }
}

} // namespace tarveth
