// The options dialog: four pages that show and change a copy of the settings. The settings and the pictures
// in use stay as they are while it is open. Only "Save As..." writes to the disk, a scheme file.
#pragma once

#include "display/piecepictures.h"
#include "storage/clientoptions.h"
#include "storage/gamefiles.h"
#include "storage/settings_table.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <wx/dialog.h>

class wxButton;
class wxCheckBox;
class wxChoice;
class wxFlexGridSizer;
class wxPanel;
class wxSizer;
class wxStaticBitmap;
class wxTextCtrl;

namespace tarveth {

class frmClientOptions : public wxDialog {
public:
    // Relative picture names are looked up in `folders` (with trailing separators). The first is the one that
    // settings and schemes are kept in, the last the one with the files that come with the program.
    frmClientOptions(wxWindow* parent, const ClientOptions& options, std::vector<std::string> folders);

    ClientOptions Options; // to be read by the caller when the dialog has closed
    std::size_t Page = 0;  // the OptionsPage that Load shows first

    // Shows the options in their boxes, and the page. To be called before ShowModal.
    void Load();

private:
    // The controls of one piece picture.
    struct PictureRow {
        wxTextCtrl* box = nullptr;
        wxStaticBitmap* preview = nullptr;
    };

    void CreatePages();
    wxPanel* NewPage(OptionsPage page);
    void CreatePlayPage();
    void CreateChatPage();
    void CreateSoundPage();
    void CreatePicturePage();
    wxSizer* NewSchemeRow(wxWindow* page);
    wxSizer* NewButtons();
    wxCheckBox* AddCheckBox(wxWindow* page, wxSizer& rows, const std::string& given,
                            const SettingRow& setting, std::int16_t& value);
    void AddSampleRow(wxWindow* page, wxSizer& rows, std::size_t i);
    void AddFontRow(wxWindow* page, wxFlexGridSizer& rows, std::size_t i);
    void AddSoundRow(wxWindow* page, wxFlexGridSizer& rows, std::size_t i);
    PictureRow NewPictureRow(wxWindow* page, wxFlexGridSizer& rows, const std::string& side,
                             std::size_t kind);
    wxTextCtrl* NewBox(wxWindow* page, const std::string& given, const wxString& spoken);
    void SizeBox(wxTextCtrl* box, int letters);
    wxButton* NewButton(wxWindow* page, const wxString& caption, const std::string& given,
                        const wxString& spoken, std::function<void()> command);

    void FitOnScreen();
    void ShowPage(std::size_t page);
    void ShowSample(std::size_t i);
    void ShowFont(std::size_t i);
    void ShowSound(std::size_t i);
    void ShowPictures();
    void ShowPicture(const PictureRow& row, const std::string& name, const PixelBuffer& picture,
                     Pixel square);

    void ChangeColor(std::size_t i);
    void ChangeFont(std::size_t i);
    void ChangeSound(std::size_t i);
    void ChangePicture(std::string& name);
    void ChangePictureScheme();
    void SavePictureSchemeAs();
    // Asks for a file of the kind in the filter; empty when the user cancels.
    std::string AskFile(const char* title, const char* filter, const std::string& name,
                        FileQuestion::Purpose purpose = FileQuestion::Purpose::Open);
    void Attempt(const std::function<void()>& work);
    void Finish(bool canceled);

    std::vector<std::string> folders_;
    PiecePictures pictures_; // the pictures that the options name, for the previews

    wxSizer* pages_ = nullptr;
    wxChoice* cmbOptions = nullptr;
    std::array<wxPanel*, 4> fraOptions{}; // by OptionsPage
    std::array<wxCheckBox*, CountCheckBoxes(kPlayPage)> chkPlayOptions{};
    std::array<wxTextCtrl*, 4> txtSample{};
    std::array<wxTextCtrl*, 3> txtSampleFont{};
    std::array<wxCheckBox*, CountCheckBoxes(kSoundPage)> chkSounds{};
    std::array<wxTextCtrl*, 3> txtSound{};
    wxTextCtrl* txtPictureScheme = nullptr;
    std::array<PictureRow, 4> bluePictures_{}; // txtBluePicture(i), by PieceKind
    std::array<PictureRow, 4> redPictures_{};  // txtRedPicture(i)
};

} // namespace tarveth
