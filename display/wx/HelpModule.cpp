// Loads the module with the help window (dlopen).
#include "display/wx/HelpWindow.h"

#include <wx/dynlib.h>
#include <wx/dynload.h>
#include <wx/log.h>

namespace tarveth {

namespace {

// The module stays loaded until the program ends. Null when it cannot be loaded.
NewHelpWindow LoadMaker(const std::string& module) {
    const wxLogNull silence; // the caller reports the error
    wxPluginLibrary* library =
        wxPluginManager::LoadLibrary(wxString::FromUTF8(module), wxDL_VERBATIM | wxDL_NOW);
    return library == nullptr ? nullptr : reinterpret_cast<NewHelpWindow>(library->GetSymbol(kNewHelpWindow));
}

} // namespace

std::unique_ptr<HelpWindow> LoadHelpWindow(wxWindow* parent, const std::string& folder,
                                           const std::string& book, std::string& problem) {
    const std::string module =
        folder + "tarveth-help" + wxDynamicLibrary::GetDllExt(wxDL_MODULE).utf8_string();
    if (const NewHelpWindow make = LoadMaker(module))
        return std::unique_ptr<HelpWindow>(make(parent, book.c_str()));
    problem = "The manual cannot be shown: " + module + " cannot be loaded.";
    return nullptr;
}

} // namespace tarveth
