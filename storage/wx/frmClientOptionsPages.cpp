// The controls of the options dialog, page by page.
#include "storage/wx/frmClientOptions.h"

#include "display/wx/NameControl.h"
#include "display/wx/text.h"
#include "engine/rules/modPieces.h"

#include <algorithm>
#include <utility>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/statline.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace tarveth {

namespace {

constexpr std::array kPages = {"Play Options", "Chat Font & Color Options", "Sound Options",
                               "Piece Picture Options"};
constexpr std::array kSamples = {"Text that you wrote", "Text that your opponent wrote",
                                 "Text of most system messages", "Everything else (other chatters, etc.)"};
constexpr std::array kFonts = {"Your current transcript font", "Your current users list font",
                               "Your current chat text font"};
constexpr std::array kSounds = {"Sound to play when new user logs on", "Sound to play when you win a game",
                                "Sound to play when you lose a game"};
constexpr std::array kPieceNames = {"", "Masters", "Officers", "Pawns"};

constexpr int kGap = 8;
constexpr int kBoxLetters = 20; // the least width of a text box

std::string Indexed(const std::string& name, std::size_t i) {
    return name + '(' + std::to_string(i) + ')';
}

wxStaticText* NewLabel(wxWindow* page, const wxString& text) {
    return new wxStaticText(page, wxID_ANY, text);
}

} // namespace

void frmClientOptions::CreatePages() {
    const int gap = FromDIP(kGap);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    cmbOptions = new wxChoice(this, wxID_ANY);
    for (const char* page : kPages)
        cmbOptions->Append(wxString(page));
    cmbOptions->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        ShowPage(static_cast<std::size_t>(event.GetSelection()));
    });
    NameControl(cmbOptions, "cmbOptions", "Page");
    rows->Add(cmbOptions, wxSizerFlags().Expand().Border(wxALL, gap * 3 / 2));

    pages_ = new wxBoxSizer(wxVERTICAL); // only one page is shown at a time
    CreatePlayPage();
    CreateChatPage();
    CreateSoundPage();
    CreatePicturePage();
    for (wxPanel* frame : fraOptions) {
        frame->SetMinSize(wxSize(1, 1)); // it scrolls
        pages_->Add(frame, wxSizerFlags(1).Expand());
    }
    rows->Add(pages_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap * 3 / 2));
    rows->Add(new wxStaticLine(this), wxSizerFlags().Expand().Border(wxTOP, gap));
    rows->Add(NewButtons(), wxSizerFlags().Right().Border(wxALL, gap * 3 / 2));
    SetSizer(rows);
}

wxSizer* frmClientOptions::NewButtons() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    auto* btnOkay = new wxButton(this, wxID_OK, "&OK");
    auto* btnCancel = new wxButton(this, wxID_CANCEL, "&Cancel");
    NameControl(btnOkay, "btnOkay", "OK");
    NameControl(btnCancel, "btnCancel", "Cancel");
    btnOkay->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Finish(false); });
    btnCancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Finish(true); });
    btnOkay->SetDefault();
    row->Add(btnOkay);
    row->Add(btnCancel, wxSizerFlags().Border(wxLEFT, FromDIP(kGap)));
    return row;
}

wxPanel* frmClientOptions::NewPage(OptionsPage page) {
    auto* frame = new wxScrolledWindow(this);
    frame->SetScrollRate(0, FromDIP(kGap));
    frame->ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_DEFAULT);
    fraOptions[page] = frame;
    NameControl(fraOptions[page], Indexed("fraOptions", page), kPages[page]);
    return fraOptions[page];
}

wxTextCtrl* frmClientOptions::NewBox(wxWindow* page, const std::string& given, const wxString& spoken) {
    auto* box = new wxTextCtrl(page, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    SizeBox(box, kBoxLetters);
    NameControl(box, given, spoken);
    return box;
}

// Sets the box's least size. Its height is worked out here, since wxTextCtrl reports too small a best height
// before it is on the screen.
void frmClientOptions::SizeBox(wxTextCtrl* box, int letters) {
    box->SetMinSize({GetCharWidth() * letters, box->GetCharHeight() + FromDIP(16)});
}

wxButton* frmClientOptions::NewButton(wxWindow* page, const wxString& caption, const std::string& given,
                                      const wxString& spoken, std::function<void()> command) {
    auto* button = new wxButton(page, wxID_ANY, caption);
    NameControl(button, given, spoken);
    button->Bind(wxEVT_BUTTON, [run = std::move(command)](wxCommandEvent&) { run(); });
    return button;
}

void frmClientOptions::CreatePlayPage() {
    wxPanel* page = NewPage(kPlayPage);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    static constexpr auto kBoxes = CheckBoxesOf<kPlayPage>();
    for (std::size_t i = 0; i < kBoxes.size(); ++i)
        chkPlayOptions[i] =
            AddCheckBox(page, *rows, Indexed("chkPlayOptions", i), *kBoxes[i], Options.PlayOptions[i]);
    page->SetSizer(rows);
}

// Adds a check box to the page that writes its state to `value`, one of the options.
wxCheckBox* frmClientOptions::AddCheckBox(wxWindow* page, wxSizer& rows, const std::string& given,
                                          const SettingRow& setting, std::int16_t& value) {
    auto* box = new wxCheckBox(page, wxID_ANY, setting.box.caption);
    NameControl(box, given, setting.box.caption);
    box->Bind(wxEVT_CHECKBOX, [&value](wxCommandEvent& event) { value = event.IsChecked() ? -1 : 0; });
    rows.Add(box, wxSizerFlags().Border(wxBOTTOM, FromDIP(kGap)));
    return box;
}

void frmClientOptions::CreateChatPage() {
    wxPanel* page = NewPage(kChatPage);
    const int gap = FromDIP(kGap);
    auto* samples = new wxFlexGridSizer(2, gap / 2, gap);
    samples->AddGrowableCol(0, 1);
    for (std::size_t i = 0; i < txtSample.size(); ++i)
        AddSampleRow(page, *samples, i);
    auto* fonts = new wxFlexGridSizer(3, gap / 2, gap);
    fonts->AddGrowableCol(1, 1);
    for (std::size_t i = 0; i < txtSampleFont.size(); ++i)
        AddFontRow(page, *fonts, i);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(samples, wxSizerFlags().Expand());
    rows->Add(fonts, wxSizerFlags().Expand().Border(wxTOP, gap * 2));
    page->SetSizer(rows);
}

void frmClientOptions::AddSampleRow(wxWindow* page, wxSizer& rows, std::size_t i) {
    txtSample[i] = NewBox(page, Indexed("txtSample", i), "Sample");
    txtSample[i]->ChangeValue(kSamples[i]);
    txtSample[i]->SetBackgroundColour(*wxWHITE); // the transcript's background
    rows.Add(txtSample[i], wxSizerFlags(1).Expand());
    rows.Add(NewButton(page, "Change", Indexed("btnChange", i),
                       wxString("Change the color of: ") + kSamples[i], [this, i] { ChangeColor(i); }),
             wxSizerFlags().CenterVertical());
}

void frmClientOptions::AddFontRow(wxWindow* page, wxFlexGridSizer& rows, std::size_t i) {
    rows.Add(NewLabel(page, kFonts[i]), wxSizerFlags().CenterVertical());
    txtSampleFont[i] = NewBox(page, Indexed("txtSampleFont", i), kFonts[i]);
    rows.Add(txtSampleFont[i], wxSizerFlags(1).Expand());
    rows.Add(NewButton(page, "Change", Indexed("btnChangeFont", i), wxString("Change: ") + kFonts[i],
                       [this, i] { ChangeFont(i); }),
             wxSizerFlags().CenterVertical());
}

void frmClientOptions::CreateSoundPage() {
    wxPanel* page = NewPage(kSoundPage);
    const int gap = FromDIP(kGap);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    static constexpr auto kBoxes = CheckBoxesOf<kSoundPage>();
    for (std::size_t i = 0; i < kBoxes.size(); ++i) // the first has no number in its name
        chkSounds[i] = AddCheckBox(page, *rows, i == 0 ? "chkSounds" : Indexed("chkSounds", i), *kBoxes[i],
                                   Options.PlaySounds[i]);
    auto* sounds = new wxFlexGridSizer(3, gap / 2, gap);
    sounds->AddGrowableCol(0, 1);
    for (std::size_t i = 0; i < txtSound.size(); ++i)
        AddSoundRow(page, *sounds, i);

    constexpr const char* kDelay = "Delay before sound can play again";
    auto* delay = new wxBoxSizer(wxHORIZONTAL);
    delay->Add(NewLabel(page, kDelay), wxSizerFlags().CenterVertical());
    auto* txtInput = new wxTextCtrl(page, wxID_ANY); // on purpose it neither shows nor changes a setting
    SizeBox(txtInput, 8);
    txtInput->SetToolTip(
        "The delay in use is NewUserSoundDelay in tarveth.ini; this box does not change it.");
    NameControl(txtInput, "txtInput", kDelay);
    delay->Add(txtInput, wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
    delay->Add(NewLabel(page, "seconds"), wxSizerFlags().CenterVertical());

    rows->Add(sounds, wxSizerFlags().Expand());
    rows->Add(delay, wxSizerFlags().Border(wxTOP, gap));
    page->SetSizer(rows);
}

void frmClientOptions::AddSoundRow(wxWindow* page, wxFlexGridSizer& rows, std::size_t i) {
    rows.Add(NewLabel(page, kSounds[i]));
    rows.AddSpacer(0);
    rows.AddSpacer(0);
    txtSound[i] = NewBox(page, Indexed("txtSound", i), kSounds[i]);
    rows.Add(txtSound[i], wxSizerFlags(1).Expand());
    rows.Add(NewButton(page, "Set new sound...", Indexed("btnChangeSound", i),
                       wxString("Set new sound: ") + kSounds[i], [this, i] { ChangeSound(i); }),
             wxSizerFlags().Expand());
    wxButton* clear = NewButton(page, "Clear sound", Indexed("btnClearSound", i),
                                wxString("Clear sound: ") + kSounds[i], [this, i] {
                                    Options.Sounds[i].clear();
                                    ShowSound(i);
                                });
    clear->SetToolTip("Beeps instead");
    rows.Add(clear, wxSizerFlags().Expand());
}

void frmClientOptions::CreatePicturePage() {
    wxPanel* page = NewPage(kPicturePage);
    const int gap = FromDIP(kGap);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(NewSchemeRow(page), wxSizerFlags().Expand());
    rows->Add(new wxStaticLine(page), wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, gap));
    auto* pictures = new wxFlexGridSizer(4, gap, gap);
    pictures->AddGrowableCol(1, 1);
    for (std::size_t kind = Master; kind <= Pawn; ++kind)
        bluePictures_[kind] = NewPictureRow(page, *pictures, "Blue", kind);
    for (std::size_t kind = Master; kind <= Pawn; ++kind)
        redPictures_[kind] = NewPictureRow(page, *pictures, "Red", kind);
    rows->Add(pictures, wxSizerFlags().Expand());
    page->SetSizer(rows);
}

wxSizer* frmClientOptions::NewSchemeRow(wxWindow* page) {
    constexpr const char* kCaption = "Current Picture Scheme";
    const int gap = FromDIP(kGap);
    auto* caption = NewLabel(page, kCaption);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    txtPictureScheme = NewBox(page, "txtPictureScheme", kCaption);
    row->Add(txtPictureScheme, wxSizerFlags(1).Expand());
    const auto add = [&](const wxString& text, const char* given, std::function<void()> command) {
        row->Add(NewButton(page, text, given, text, std::move(command)),
                 wxSizerFlags().Expand().Border(wxLEFT, gap));
    };
    add("Change picture scheme...", "btnChangePictureScheme", [this] { ChangePictureScheme(); });
    add("Save As...", "btnSavePictureScheme", [this] { SavePictureSchemeAs(); });
    add("Clear scheme", "btnClearScheme", [this] {
        Options.PictureScheme = kNoPicture;
        ShowPictures();
    });
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(caption, wxSizerFlags().Border(wxBOTTOM, gap / 4));
    rows->Add(row, wxSizerFlags().Expand());
    return rows;
}

frmClientOptions::PictureRow frmClientOptions::NewPictureRow(wxWindow* page, wxFlexGridSizer& rows,
                                                             const std::string& side, std::size_t kind) {
    const std::string caption = "Picture for the " + side + ' ' + kPieceNames[kind];
    const auto given = [&](const char* begin, const char* end) { return Indexed(begin + side + end, kind); };
    std::string& name = (side == "Blue" ? Options.BluePics : Options.RedPics)[kind];
    PictureRow row;
    auto* label = NewLabel(page, caption);
    row.box = NewBox(page, given("txt", "Picture"), caption);
    auto* labelled = new wxBoxSizer(wxVERTICAL);
    labelled->Add(label, wxSizerFlags().Border(wxBOTTOM, FromDIP(kGap / 4)));
    labelled->Add(row.box, wxSizerFlags().Expand());

    const int edge = labelled->CalcMin().y; // the preview is as high as the label and the box together
    row.preview = new wxStaticBitmap(page, wxID_ANY, wxBitmap(edge, edge));
    row.preview->SetMinSize({edge, edge});
    NameControl(row.preview, given("pic", "Preview"), caption);
    rows.Add(row.preview);
    rows.Add(labelled, wxSizerFlags(1).Expand());
    rows.Add(NewButton(page, "Load a new picture...", given("btnChange", "Picture"),
                       "Load a new picture: " + caption, [this, &name] { ChangePicture(name); }),
             wxSizerFlags().Bottom());
    rows.Add(NewButton(page, "Clear picture", given("btnClear", "Picture"), "Clear picture: " + caption,
                       [this, &name] {
                           name = kNoPicture;
                           ShowPictures();
                       }),
             wxSizerFlags().Bottom());
    return row;
}

} // namespace tarveth
