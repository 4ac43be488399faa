#include "net/wx/UserListView.h"

#include "net/wx/wiretext.h"

namespace tarveth {

namespace {

constexpr int kLeastWidth = 40;

// From so many rows that go on, it costs less to begin anew.
constexpr std::size_t kMostDeletions = 500;

// The rows of `before` that are not in `after`, which is `before` without some rows and with others at its
// end. Their numbers are those when the rows ahead of them have gone already.
std::vector<unsigned> Deletions(const std::vector<std::string>& before,
                                const std::vector<std::string>& after) {
    std::vector<unsigned> deletions;
    unsigned kept = 0;
    for (const std::string& entry : before) {
        if (kept < after.size() && entry == after[kept])
            ++kept;
        else
            deletions.push_back(kept);
    }
    return deletions;
}

} // namespace

// The rows that are on the screen.
class UserListView::Rows : public wxDataViewVirtualListModel {
public:
    void Show(const std::vector<std::string>& entries) {
        const std::vector<unsigned> deletions = Deletions(entries_, entries);
        entries_ = entries;
        if (deletions.size() > kMostDeletions) {
            Reset(static_cast<unsigned>(entries.size()));
            return;
        }
        for (const unsigned row : deletions)
            RowDeleted(row);
        while (GetCount() < entries.size())
            RowAppended();
    }

    void GetValueByRow(wxVariant& value, unsigned row, unsigned) const override {
        value = row < entries_.size() ? WxFromWire(entries_[row]) : wxString();
    }
    bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

private:
    std::vector<std::string> entries_;
};

UserListView::UserListView(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE | wxDV_NO_HEADER),
      rows_(new Rows) {
    AssociateModel(rows_.get());
    auto* renderer = new wxDataViewTextRenderer;
    renderer->EnableEllipsize(wxELLIPSIZE_END);
    // With a width of its own the toolkit need not measure every row; the only column takes all there is.
    AppendColumn(new wxDataViewColumn("", renderer, 0, FromDIP(kLeastWidth), wxALIGN_LEFT, 0));
    Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
        if (!showing_)
            OnSelect(SelectedRow());
    });
    Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { OnChoose(); });
}

int UserListView::SelectedRow() const {
    const wxDataViewItem item = GetSelection();
    return item.IsOk() ? static_cast<int>(rows_->GetRow(item)) : UserList::kNobody;
}

void UserListView::ShowUsers(const UserList& users) {
    showing_ = true;
    rows_->Show(users.Entries());
    ShowSelection(users.Selected());
    showing_ = false;
}

void UserListView::ShowSelection(int selected) {
    if (selected == SelectedRow())
        return;
    UnselectAll();
    if (selected != UserList::kNobody)
        Select(rows_->GetItem(static_cast<unsigned>(selected)));
}

} // namespace tarveth
