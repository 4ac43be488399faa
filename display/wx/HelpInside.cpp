// Makes the help window where it is part of the program and not a module.
#include "display/wx/HelpWindow.h"

extern "C" tarveth::HelpWindow* TarvethNewHelpWindow(wxWindow* parent, const char* book);

namespace tarveth {

std::unique_ptr<HelpWindow> LoadHelpWindow(wxWindow* parent, const std::string&, const std::string& book,
                                           std::string&) {
    return std::unique_ptr<HelpWindow>(TarvethNewHelpWindow(parent, book.c_str()));
}

} // namespace tarveth
