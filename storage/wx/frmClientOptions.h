// The options dialog: four pages over a copy of the settings. It changes neither settings nor pictures in
// use; only "Save As..." writes, a scheme file.
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
    // The folders (with trailing separators) in which relative picture names are looked up: settings and
    // schemes are kept in the first, what ships is in the last.
    frmClientOptions(wxWindow* parent, const ClientOptions& options, std::vector<std::string> folders);

    ClientOptions Options; // what the caller reads when the dialog has closed
    std::size_t Page = 0;  // the one that is shown first

    // Shows the options in their boxes, and the page. Before ShowModal.
    void Load();

private:
    // A piece picture's row; its name is one of the options'.
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
    // A file of that kind; empty when none is chosen.
    std::string AskFile(const char* title, const char* filter, const std::string& name,
                        FileQuestion::Purpose purpose = FileQuestion::Purpose::Open);
    void Attempt(const std::function<void()>& work);
    void Finish(bool canceled);

    std::vector<std::string> folders_;
    PiecePictures pictures_; // those that the options name

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
