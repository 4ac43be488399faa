// lstUsers: the users in the lobby, one of them selected. It asks for the names of those rows that are seen,
// so that it does not matter how many there are.
#pragma once

#include "net/userlist.h"

#include <functional>
#include <string>
#include <vector>

#include <wx/dataview.h>

namespace tarveth {

class UserListView : public wxDataViewCtrl {
public:
    explicit UserListView(wxWindow* parent);

    // Shows the list as it is now. Rows that stay keep their place on the screen.
    void ShowUsers(const UserList& users);

    std::function<void(int row)> OnSelect; // the user has selected a row, or UserList::kNobody
    std::function<void()> OnChoose;        // or double-clicked on it

private:
    class Rows;

    void ShowSelection(int selected);
    int SelectedRow() const;

    wxObjectDataPtr<Rows> rows_;
    bool showing_ = false; // what is selected then was not selected by the user
};

} // namespace tarveth
