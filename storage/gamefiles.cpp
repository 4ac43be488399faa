#include "storage/gamefiles.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_exists.h"
#include "platform/program_folder.h"
#include "platform/text_path.h"
#include "storage/modFileIO.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarveth {

namespace {

constexpr std::string_view kExtension = ".tsg";
constexpr std::string_view kPictureExtension = ".png";
constexpr char kFilter[] =
    "Tarveth Games (*.TSG)|*.TSG|All Files,*.*|*.*"; // the comma in the second label is meant

constexpr std::string_view kNotSaved = "The game is not saved.";

bool HasExtension(const std::string& name, std::string_view extension) {
    const std::size_t start = name.size() - std::min(name.size(), extension.size());
    return FoldAscii(name.substr(start)) == extension;
}

std::string WithExtension(const std::string& name, std::string_view extension) {
    return HasExtension(name, extension) ? name : name + std::string(extension);
}

// The name of a game, for a picture of it.
std::string PictureName(std::string name) {
    if (HasExtension(name, kExtension))
        name.resize(name.size() - kExtension.size());
    return name + std::string(kPictureExtension);
}

// Whether a dialog may begin in the folder.
bool Suits(const std::filesystem::path& folder, FileQuestion::Purpose purpose) {
    std::error_code missing;
    return std::filesystem::is_directory(folder, missing) &&
           (purpose != FileQuestion::Purpose::Save || platform::CanCreateFileIn(folder.string()));
}

} // namespace

const GameFiles::FileKind GameFiles::kGame{kExtension, kFilter};
const GameFiles::FileKind GameFiles::kPicture{kPictureExtension, "Pictures (*.png)|*.png|All Files|*.*"};

std::pair<std::string, std::string> DialogStart(const FileQuestion& question) {
    const std::filesystem::path proposed = platform::PathFromText(question.name);
    const std::filesystem::path file = platform::PathFromText(question.folder) / proposed;
    if (Suits(file.parent_path(), question.purpose))
        return {file.parent_path().string(), file.filename().string()};
    std::string name = proposed.is_absolute() ? file.filename().string() : question.name;
    std::replace(name.begin(), name.end(), platform::PathSeparator(), '-');
    std::replace(name.begin(), name.end(), '/', '-');
    return {question.folder, name};
}

GameFiles::GameFiles(const Game& game, const NetGame& net, GameRecord& record, modMAIN& main,
                     const Ports& ports, GameFilesPort& questions, std::string folder)
    : game_(game),
      net_(net),
      record_(record),
      main_(main),
      ports_(ports),
      questions_(questions),
      folder_(std::move(folder)) {}

void GameFiles::SaveGame() {
    if (record_.GameTitle.empty()) {
        SaveGameAs();
        return;
    }
    main_.FinishTurn();
    Attempt(kNotSaved, [&] {
        WriteGame(game_, record_.GameTitle, record_.GameFileName);
        FileUsed(record_.GameFileName);
    });
}

void GameFiles::SaveGameAs() {
    main_.FinishTurn();
    const std::string name = AskNewName("Save Game As", ProposedName(), kGame);
    if (name.empty())
        return;
    Attempt(kNotSaved, [&] {
        WriteGame(game_, TitleOf(name), name);
        record_.GameFileName = name;
        ShowTitle();
        FileUsed(name);
    });
}

void GameFiles::LoadGame() {
    const std::string name = AskName(FileQuestion::Purpose::Open, "Load Game", record_.GameFileName, kFilter);
    if (!name.empty())
        OpenFile(name);
}

void GameFiles::OpenFile(const std::string& path) {
    Attempt("The game is not loaded.", [&] { OpenGame(path); });
}

void GameFiles::OpenGame(const std::string& path) {
    TakeUp(ReadGame(path), path);
    FileUsed(path);
}

void GameFiles::TakeUp(Game game, const std::string& path) {
    main_.SetUpPosition(std::move(game), PositionSource::File);
    record_.GameFileName = path;
    ShowTitle();
    if (net_.GameInProgress())
        ports_.network.SendBoard();
}

std::string GameFiles::SaveOther(const Game& game, const std::string& proposedName) {
    std::string name = AskNewName("Save Game As", proposedName, kGame);
    const bool saved = !name.empty() && Attempt(kNotSaved, [&] {
        WriteGame(game, TitleOf(name), name);
        FileUsed(name);
    });
    return saved ? name : std::string();
}

void GameFiles::SavePicture(const std::string& bytes) {
    const std::string name = AskNewName("Save Picture", PictureName(ProposedName()), kPicture);
    if (!name.empty())
        Attempt("The picture is not saved.", [&] { platform::WriteFileAtomically(name, bytes); });
}

// Gives the part of the path behind the program's folder for a file in that folder, else the whole path. Only
// the path is brought to small letters before the two are compared, so a folder whose name has capitals is
// never found in it. That is meant: titles in existing files were made by this rule.
std::string GameFiles::TitleOf(const std::string& path) const {
    return FoldAscii(path.substr(0, folder_.size())) == folder_ ? path.substr(folder_.size()) : path;
}

std::string GameFiles::ProposedName() {
    std::string title = Trim(record_.GameTitle);
    if (!title.empty())
        return title;
    const std::string opponent = ports_.network.OpponentNick();
    return "Game " + (opponent.empty() ? "" : "vs " + opponent + ' ') + questions_.ShortDate() +
           std::string(kExtension);
}

// Asks for a file name; empty when the user cancels.
std::string GameFiles::AskName(FileQuestion::Purpose purpose, std::string title, std::string name,
                               std::string filter) {
    const std::string folder = folder_.substr(0, folder_.size() - 1);
    return Trim(questions_.AskFile({purpose, std::move(title), folder, std::move(name), std::move(filter)})
                    .value_or(""));
}

// Asks for the name to save under, with the ending of such files; empty when the user cancels or leaves the
// file of that name as it is.
std::string GameFiles::AskNewName(std::string title, std::string proposal, const FileKind& kind) {
    std::string name =
        AskName(FileQuestion::Purpose::Save, std::move(title), std::move(proposal), kind.filter);
    if (name.empty())
        return name;
    name = WithExtension(name, kind.extension);
    if (platform::FileExists(name) &&
        questions_.AskYesNoCancel(name + "\nThis file already exists. Overwrite it?") != YesNoCancel::Yes)
        name.clear();
    return name;
}

// A game without a file has no title, and the window the program's own.
void GameFiles::ShowTitle() {
    const std::string& path = record_.GameFileName;
    record_.GameTitle = path.empty() ? "" : TitleOf(path);
    ports_.window.ShowCaption(path.empty() ? "Tarveth" : record_.GameTitle + " (Tarveth)");
}

// False when the work has failed, which the user has then been told.
bool GameFiles::Attempt(std::string_view failure, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const platform::FileError& error) {
        ports_.person.ShowMessageBox(std::string(failure) + '\n' + error.what());
        return false;
    }
}

} // namespace tarveth
