#include "app/Program.h"

#include "display/wx/PngBytes.h"
#include "engine/asked.h"
#include "engine/wx/frmReturn.h"
#include "platform/file_error.h"
#include "platform/leftovers.h"
#include "platform/program_folder.h"
#include "platform/text_path.h"
#include "play/wx/frmComputer.h"
#include "storage/lastmove.h"
#include "storage/wx/frmBoardColours.h"
#include "storage/wx/frmClientOptions.h"
#include "storage/wx/frmSplash.h"

#include <ctime>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>
#include <vector>

#include <wx/msgdlg.h>

namespace tarveth {

namespace {

void ShowIniError(const std::string& text, const std::string& title) {
    wxMessageBox(wxString::FromUTF8(text), wxString::FromUTF8(title), wxOK | wxICON_ERROR);
}

} // namespace

Program::Program()
    : programFolder_(platform::ProgramFolder()),
      writableFolder_(platform::WritableFolder(programFolder_)),
      window_(new frmMain),
      ini_(ShowIniError),
      sounds_(settings_, speaker_, Folders()),
      board_(game_, settings_, pictures_, *window_, *window_),
      zones_(game_, board_, *window_, *window_),
      record_(game_, settings_, *window_, writableFolder_),
      network_(game_, net_, settings_.Nickname, main_, *window_, [this] { sounds_.NewUserSound(); }),
      main_(game_, net_, settings_, Ports{*window_, board_, *window_, record_, network_}),
      mouse_(settings_, board_, zones_, main_),
      computer_(game_, net_, main_, *window_,
                [this](const std::function<void()>& work) { window_->CallAfter(work); }),
      adviser_(
          game_, net_, *window_, [this](const std::function<void()>& work) { window_->CallAfter(work); },
          [this] { window_->RefreshDisplay(); }),
      fileDialogs_(window_),
      files_(game_, net_, record_, main_, Ports{*window_, board_, *window_, record_, network_}, fileDialogs_,
             writableFolder_),
      recent_(writableFolder_),
      keeper_(KeeperParts()) {
    record_.Watch = &keeper_;
    files_.FileUsed = [this](const std::string& path) { recent_.Note(path); };
}

MainWindowParts Program::Parts() {
    const auto save = [this](const WindowPosition& position) { SaveEverything(position); };
    const auto closeOthers = [this] { CloseOtherWindows(); };
    const auto gameEndSound = [this](bool won) { sounds_.GameEndSound(won); };
    const auto chooseReturn = [this](std::int16_t side) { return AskReturn(window_, pictures_, side); };
    const auto marks = [this](bool boardHasFocus) { return Marks(boardHasFocus); };
    const auto recentGames = [this] { return recent_.Paths(); };
    const auto openGame = [this](const std::string& path) { files_.OpenFile(path); };
    const auto chooseInBar = [this](BarChoice choice) { keeper_.Choose(choice); };
    const auto followGame = [this] {
        computer_.Follow();
        adviser_.Follow();
    };
    const auto asked = [this] { return WhatIsSaid(); };
    return {game_,       settings_, pictures_,   main_,        board_,       mouse_,
            Commands(),  save,      closeOthers, gameEndSound, chooseReturn, marks,
            recentGames, openGame,  chooseInBar, followGame,   asked};
}

GameKeeperParts Program::KeeperParts() {
    const auto now = [] { return static_cast<std::int64_t>(std::time(nullptr)); };
    const auto transcript = [this] { return client_ ? client_->TranscriptText() : std::string(); };
    const auto runLater = [this](const std::function<void()>& work) { window_->CallAfter(work); };
    return {game_,           net_, settings_,  record_, files_, network_, *window_,
            writableFolder_, now,  transcript, runLater};
}

std::map<int, std::function<void()>> Program::Commands() {
    std::map<int, std::function<void()>> commands = {
        {mnuFileNew, [this] { main_.NewGame(); }},
        {mnuFileLoad, [this] { files_.LoadGame(); }},
        {mnuFileSave, [this] { files_.SaveGame(); }},
        {mnuFileSaveAs, [this] { files_.SaveGameAs(); }},
        {mnuFileInternet, [this] { ShowClient(); }},
        {mnuOptionsImperial, [this] { ChooseBoard(kImperialBoard, "Imperial Board"); }},
        {mnuOptionsDraume, [this] { ChooseBoard(kDraumeCrownBoard, "Draume Crown Board"); }},
        {mnuSetColors, [this] { ShowOptions(); }},
        {mnuGamePlay, [this] { PlayAgainstComputer(); }},
        {mnuGameHint, [this] { adviser_.GiveHint(); }},
        {mnuGameMove, [this] { computer_.MoveNow(); }},
        {mnuGameLevel, [this] { ChangeLevel(); }},
        {mnuGameDraw, [this] { CallDraw(); }},
        {mnuGameStop, [this] { computer_.StopPlaying(); }},
        {mnuGameCopyPosition, [this] { clipboard_.CopyPosition(); }},
        {mnuGameCopyGame, [this] { clipboard_.CopyGame(); }},
        {mnuGamePaste, [this] { clipboard_.PastePosition(); }},
        {mnuGameSavePicture, [this] { files_.SavePicture(PngBytes(board_.picDisplay.Pixels)); }},
        {mnuHelpHelp, [this] { help_.Show(); }},
        {mnuOptionsShowZOC, [this] { zones_.ShowPieceZone(game_.CurPiece); }},
        {mnuOptionsShowZOCAll, [this] { zones_.ShowAllZones(); }},
        {mnuViewBoardColours, [this] { ShowBoardColours(); }},
        {mnuViewHowToPlay, [this] { window_->ShowMessage(kToBeginPlay); }},
        {mnuHelpAbout, [this] { frmSplash(window_, pictures_).ShowModal(); }},
    };
    for (const ViewSwitch& view : kViewSwitches)
        commands[view.item] = [this, &view] { Switch(view); };
    return commands;
}

std::string Program::WhatIsSaid() const {
    std::string asked = WhatIsAsked(game_, net_);
    if (!asked.empty() && !computer_.Remark().empty())
        asked += ' ' + computer_.Remark();
    return asked;
}

void Program::ChooseBoard(std::int16_t variant, const std::string& name) {
    settings_.BoardVariant = variant;
    window_->ShowMessage("The next game begins on the " + name + '.');
}

void Program::Switch(const ViewSwitch& view) {
    std::int16_t& setting = settings_.*view.setting;
    setting = setting != 0 ? std::int16_t{0} : std::int16_t{-1};
    window_->ApplyDisplaySettings();
}

BoardMarks Program::Marks(bool boardHasFocus) const {
    MarkedView view;
    view.mayPlay = net_.IsPlayedHere(game_.Turn);
    view.hidden = board_.ZonePainted;
    view.lookedAt = {mouse_.Pointed};
    if (mouse_.Cursor.Visible && boardHasFocus)
        view.lookedAt.push_back(mouse_.Cursor.At);
    view.last = ReadLastMove(game_.lstHistory);
    view.hint = adviser_.Shown();
    return FindMarks(game_, settings_, view);
}

void Program::PlayAgainstComputer() {
    const auto choice = AskComputerGame(window_, settings_);
    if (!choice)
        return;
    settings_.OwnSide = choice->ownSide;
    settings_.ComputerLevel = choice->level;
    settings_.BoardVariant = choice->boardVariant;
    SetLevel();
    computer_.PlaySide(OpponentOf(choice->ownSide));
    main_.NewGame();
}

// The rules know no draw: the game stays unfinished, and is kept as one.
void Program::CallDraw() {
    if (game_.lstHistory.empty() || game_.GameState == kGameOver) {
        window_->ShowMessage("There is no game under way.");
        return;
    }
    if (net_.GameInProgress()) {
        window_->ShowMessage("In a game over the network, agree on a draw in the chat.");
        return;
    }
    main_.NewGame();
    window_->ShowMessage("The game is called a draw. A new one begins.");
}

void Program::ChangeLevel() {
    if (const auto level = AskLevel(window_, settings_.ComputerLevel))
        settings_.ComputerLevel = *level;
    SetLevel();
}

void Program::SetLevel() {
    computer_.SetLevel(LevelIn(settings_.ComputerLevel));
}

void Program::Start(const StartRequest& request) {
    // Titles of games may be relative paths, which so mean the same file at every start.
    std::error_code ignored;
    std::filesystem::current_path(platform::PathFromText(writableFolder_), ignored);
    platform::RemoveLeftovers(platform::PathFromText(writableFolder_));
    LoadEverything();
    SetLevel();
    window_->Connect(Parts());
    BeginGame(request.newest ? recent_.Newest() : request.gameFile);
    keeper_.OfferAbandoned();
    ShowWindow();
}

void Program::BeginGame(const std::string& gameFile) {
    main_.NewGame();
    if (gameFile.empty())
        return;
    try {
        files_.OpenGame(gameFile);
    } catch (const platform::FileError& error) {
        Tell(std::string("The game is not loaded.\n") + error.what());
    }
}

void Program::LoadEverything() {
    SetDefaultSettings(settings_);
    std::vector<SettingProblem> problems = LoadSettings(settings_, ini_, writableFolder_);
    const std::vector<SettingProblem> more = LoadClientOptions(settings_, ini_, writableFolder_);
    problems.insert(problems.end(), more.begin(), more.end());
    std::cerr << ProblemLines(problems, writableFolder_ + kSettingsFile);
    Tell(LoadPictures());
    if (!platform::CanCreateFileIn(writableFolder_))
        Tell("Settings, logs and games cannot be kept: neither " + writableFolder_ +
             " nor a data folder of your own can be written.");
}

// The folders that are searched, in this order, for a file given by a relative name.
std::vector<std::string> Program::Folders() const {
    return {writableFolder_, programFolder_};
}

// Loads the pictures that the settings name. Gives sentences about those that cannot be used; empty if there
// are none.
std::string Program::LoadPictures() {
    std::string problems;
    for (const std::string& sentence : pictures_.LoadPiecePictures(settings_, Folders())) {
        if (!problems.empty())
            problems += "\n\n";
        problems += sentence + " The built-in picture is used.";
    }
    return problems;
}

void Program::ShowOptions() {
    ClientOptions options;
    CopyFromSettings(options, settings_);
    frmClientOptions dialog(window_, options, Folders());
    dialog.Load();
    dialog.ShowModal();
    if (dialog.Options.Canceled)
        return;
    CopyToSettings(dialog.Options, settings_);
    ApplyOptions();
}

void Program::ShowBoardColours() {
    frmBoardColours dialog(window_, pictures_, settings_.BoardBlack, settings_.BoardWhite);
    if (dialog.ShowModal() != wxID_OK)
        return;
    settings_.BoardBlack = dialog.Black;
    settings_.BoardWhite = dialog.White;
    board_.RedrawBoard();
}

void Program::ApplyOptions() {
    const std::string problems = LoadPictures();
    window_->ApplyDisplaySettings();
    board_.RedrawBoard();
    if (client_)
        client_->ApplySettings();
    Tell(problems);
}

// Shows a text in a message box, once the window is there; nothing when the text is empty.
void Program::Tell(const std::string& text) {
    if (!text.empty())
        window_->ShowMessageBox(text);
}

void Program::ShowWindow() {
    window_->ShowPlaced(
        [this](WindowPosition& position) { LoadMainPosition(position, ini_, writableFolder_); });
    window_->CallAfter([this] {
        window_->TakeIcons(programFolder_);
        window_->TellWhatWaits();
    });
}

// Opens the client window, or shows the one that is open. Returns when the user has chosen a server or
// cancelled.
void Program::ShowClient() {
    if (network_.IsOpen()) {
        client_->Iconize(false);
        client_->Raise();
        return;
    }
    const auto load = [this](WindowPosition& position) {
        LoadClientPosition(position, ini_, writableFolder_);
    };
    const auto save = [this](const WindowPosition& position) { SaveClient(position); };
    client_ = new frmClient({network_, main_, settings_, Folders(), load, save});
    client_->SetIcons(window_->GetIcons());
    client_->Load();
}

void Program::SaveClient(const WindowPosition& position) {
    keeper_.ClientCloses();
    SaveClientPosition(position, ini_, writableFolder_);
    ini_.IniFlush();
}

void Program::SaveEverything(const WindowPosition& position) {
    keeper_.Close();
    SaveClientOptions(settings_, ini_, writableFolder_);
    SaveSettings(settings_, ini_, writableFolder_);
    SaveMainPosition(position, ini_, writableFolder_);
    SaveLaterSections(settings_, ini_, writableFolder_);
    ini_.IniFlush(); // on purpose, an error is not reported
}

void Program::CloseOtherWindows() {
    computer_.StopThinking();
    adviser_.Stop();
    help_.Close();
    if (client_)
        client_->Close(true);
}

} // namespace tarveth
