#include "storage/wx/frmClientOptions.h"

#include "display/preview.h"
#include "display/wx/GameFileDialogs.h"
#include "display/wx/PictureView.h"
#include "display/wx/text.h"
#include "engine/rules/modPieces.h"
#include "platform/file_error.h"
#include "platform/file_exists.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/colordlg.h>
#include <wx/display.h>
#include <wx/fontdlg.h>
#include <wx/fontenum.h>
#include <wx/msgdlg.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

namespace tarveth {

namespace {

// Point sizes of the font samples; a sample in a giant font would push all other controls off the screen.
constexpr int kSmallestSample = 6;
constexpr int kLargestSample = 20;

// The least size of the dialog, below that of the smallest screens.
constexpr int kLeastWidth = 560;
constexpr int kLeastHeight = 400;
constexpr int kTitleBar = 40; // room for one

wxFont FontOf(const std::string& name, int points) {
    return wxFont(wxFontInfo(points).FaceName(ToWx(name)));
}

// Gives the font that is shown for one of the settings: where the named one is not installed, that of the
// dialog. The system's own dialog would otherwise start without a font, and then takes no size either.
wxFont InstalledFont(const wxWindow& dialog, const std::string& name, int points) {
    const wxString face = ToWx(name);
    return wxFontEnumerator::IsValidFacename(face)
               ? wxFont(wxFontInfo(points).FaceName(face))
               : wxFont(wxFontInfo(points).FaceName(dialog.GetFont().GetFaceName()));
}

// Cuts the trailing separator off a folder's name.
std::string WithoutSeparator(std::string folder) {
    if (folder.size() > 1)
        folder.pop_back();
    return folder;
}

void ShowPath(wxTextCtrl* box, const std::string& path) {
    box->ChangeValue(PathToWx(path));
    box->SetInsertionPointEnd(); // so that the end of a long path, the file's name, is in view
    box->SetToolTip(PathToWx(path));
}

} // namespace

frmClientOptions::frmClientOptions(wxWindow* parent, const ClientOptions& options,
                                   std::vector<std::string> folders)
    : wxDialog(parent, wxID_ANY, "Tarveth Options", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      Options(options),
      folders_(std::move(folders)) {
    CreatePages();
}

void frmClientOptions::Load() {
    Options.Canceled = true;
    for (std::size_t i = 0; i < chkPlayOptions.size(); ++i)
        chkPlayOptions[i]->SetValue(Options.PlayOptions[i] != 0);
    for (std::size_t i = 0; i < chkSounds.size(); ++i)
        chkSounds[i]->SetValue(Options.PlaySounds[i] != 0);
    for (std::size_t i = 0; i < txtSample.size(); ++i)
        ShowSample(i);
    for (std::size_t i = 0; i < txtSampleFont.size(); ++i)
        ShowFont(i);
    for (std::size_t i = 0; i < txtSound.size(); ++i)
        ShowSound(i);
    ShowPictures();
    cmbOptions->SetSelection(static_cast<int>(Page));
    ShowPage(Page);
    FitOnScreen();
    CentreOnParent();
    cmbOptions->SetFocus();
}

// Makes the dialog as large as its largest page asks, or as the screen allows; the pages scroll where it is
// smaller.
void frmClientOptions::FitOnScreen() {
    wxSize largest;
    for (const wxPanel* page : fraOptions)
        largest.IncTo(page->GetSizer()->CalcMin());
    pages_->SetMinSize(largest);
    Fit();
    pages_->SetMinSize(wxSize(1, 1)); // from now on they may be smaller
    wxSize size = GetSize();
    const wxSize screen = wxDisplay(GetParent()).GetClientArea().GetSize();
    size.DecTo(screen - FromDIP(wxSize(0, kTitleBar)));
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
    SetSize(size);
}

void frmClientOptions::ShowPage(std::size_t page) {
    Page = page;
    for (wxPanel* frame : fraOptions) {
        frame->Hide();
        frame->Disable();
    }
    fraOptions[page]->Show();
    fraOptions[page]->Enable();
    Layout();
}

void frmClientOptions::ShowSample(std::size_t i) {
    txtSample[i]->SetForegroundColour(wxColour(static_cast<unsigned long>(Options.SampleColor[i])));
    txtSample[i]->Refresh();
}

void frmClientOptions::ShowFont(std::size_t i) {
    const int points = std::clamp<int>(Options.SampleFontSize[i], kSmallestSample, kLargestSample);
    txtSampleFont[i]->SetFont(FontOf(Options.SampleFontName[i], points));
    txtSampleFont[i]->ChangeValue(ToWx(FontText(Options, i)));
    SizeBox(txtSampleFont[i], 0);
}

void frmClientOptions::ShowSound(std::size_t i) {
    ShowPath(txtSound[i], SoundText(Options, i));
}

void frmClientOptions::ShowPictures() {
    ShowPath(txtPictureScheme, Options.PictureScheme);
    Settings named;
    CopyToSettings(Options, named);
    pictures_.LoadPiecePictures(named, folders_); // its errors are reported after Okay
    for (std::size_t kind = Master; kind <= Pawn; ++kind) {
        const Pixel square = kind == Officer ? Rgb(0, 0, 0) : Rgb(255, 255, 255);
        ShowPicture(bluePictures_[kind], Options.BluePics[kind], pictures_.picBlue[kind], square);
        ShowPicture(redPictures_[kind], Options.RedPics[kind], pictures_.picRed[kind], ~square & 0xFFFFFF);
    }
}

void frmClientOptions::ShowPicture(const PictureRow& row, const std::string& name, const PixelBuffer& picture,
                                   Pixel square) {
    ShowPath(row.box, PictureText(name));
    const double scale = GetContentScaleFactor();
    const int edge = static_cast<int>(std::lround(row.preview->GetMinSize().x * scale));
    row.preview->SetBitmap(ToBitmap(Preview(picture, edge, square), scale));
}

void frmClientOptions::ChangeColor(std::size_t i) {
    wxColourData data;
    data.SetColour(wxColour(static_cast<unsigned long>(Options.SampleColor[i])));
    wxColourDialog dialog(this, &data);
    if (dialog.ShowModal() != wxID_OK)
        return;
    Options.SampleColor[i] = static_cast<std::int32_t>(dialog.GetColourData().GetColour().GetRGB());
    ShowSample(i);
}

void frmClientOptions::ChangeFont(std::size_t i) {
    wxFontData data;
    data.EnableEffects(false);
    const wxFont shown =
        InstalledFont(*this, Options.SampleFontName[i], std::max<int>(1, Options.SampleFontSize[i]));
    data.SetInitialFont(shown);
    wxFontDialog dialog(this, data);
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxFont font = dialog.GetFontData().GetChosenFont();
    if (font.GetFaceName() != shown.GetFaceName()) // whoever changes the size alone keeps the font's name
        Options.SampleFontName[i] = font.GetFaceName().utf8_string();
    Options.SampleFontSize[i] = static_cast<std::int16_t>(std::clamp(font.GetPointSize(), 1, 999));
    ShowFont(i);
    Layout();
}

std::string frmClientOptions::AskFile(const char* title, const char* filter, const std::string& name,
                                      FileQuestion::Purpose purpose) {
    FileQuestion question;
    question.purpose = purpose;
    question.title = title;
    question.filter = filter;
    question.name = name;
    question.folder = WithoutSeparator(folders_.back());
    return GameFileDialogs(this).AskFile(question).value_or(std::string());
}

void frmClientOptions::ChangeSound(std::size_t i) {
    const std::string chosen = AskFile("Specify Sound File", "WAV files (*.WAV)|*.WAV", Options.Sounds[i]);
    if (chosen.empty())
        return;
    Options.Sounds[i] = chosen;
    ShowSound(i);
}

void frmClientOptions::ChangePicture(std::string& name) {
    const std::string chosen =
        AskFile("Specify Picture File", "BMP files (*.BMP)|*.BMP", FindPicture(name, folders_));
    if (chosen.empty())
        return;
    name = chosen;
    ShowPictures();
}

void frmClientOptions::ChangePictureScheme() {
    const std::string chosen = AskFile("Specify Picture Scheme", "Tarveth PicScheme files (*.TPS)|*.TPS",
                                       ProposedSchemeName(Options), FileQuestion::Purpose::Name);
    if (chosen.empty())
        return;
    Attempt([&] { LoadPictureScheme(Options, chosen); });
    ShowPictures();
}

void frmClientOptions::SavePictureSchemeAs() {
    GameFileDialogs dialogs(this);
    FileQuestion question;
    question.purpose = FileQuestion::Purpose::Save;
    question.title = "Save Picture Scheme As";
    question.filter =
        "Tarveth PicScheme (*.TPS)|*.TPS|All Files,*.*|*.*"; // the comma in the second label is meant
    question.name = ProposedSchemeName(Options);
    question.folder = WithoutSeparator(folders_.front());
    const std::string file = SchemeFileName(dialogs.AskFile(question).value_or(std::string()));
    if (file.empty())
        return;
    if (platform::FileExists(file) &&
        dialogs.AskYesNoCancel(file + "\nThis file already exists. Overwrite it?") != YesNoCancel::Yes)
        return;
    Attempt([&] { SavePictureScheme(Options, file); });
    ShowPictures();
}

void frmClientOptions::Attempt(const std::function<void()>& work) {
    try {
        work();
    } catch (const platform::FileError& error) {
        wxMessageBox(ToWx(error.what()), "Tarveth", wxOK | wxICON_EXCLAMATION, this);
    }
}

void frmClientOptions::Finish(bool canceled) {
    Options.Canceled = canceled;
    EndModal(canceled ? wxID_CANCEL : wxID_OK);
}

} // namespace tarveth
