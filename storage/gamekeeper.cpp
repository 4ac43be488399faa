#include "storage/gamekeeper.h"

#include "engine/rules/atrest.h"
#include "engine/rules/captures.h"
#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_text.h"
#include "storage/gamelibrary.h"
#include "storage/recentgames.h"
#include "text/codepage.h"

#include <algorithm>
#include <utility>

namespace tarveth {

namespace {

constexpr char kUnfinishedFolder[] = "unfinished";

std::string UnfinishedFolder(const std::string& folder) {
    return folder + kUnfinishedFolder + folder.back(); // which is the separator
}

// Whether a piece is to come back before the turn is over, which the player has to place.
bool AwaitsReturn(const Game& game) {
    return game.GameState == kReturnPiece ||
           (game.GameState == kAllowReturn && FindReturnCandidates(game, game.Return.CapturedPiece).Any());
}

bool IsTurnOver(const Game& game) {
    return game.GameState == kTurnOver || (game.GameState == kAllowReturn && !AwaitsReturn(game));
}

} // namespace

GameKeeper::GameKeeper(GameKeeperParts parts) : parts_(std::move(parts)) {
    writer_.emplace([this, alive = std::weak_ptr(alive_), later = parts_.runLater,
                     before = std::string()](const std::string& failure) mutable {
        if (std::exchange(before, failure) == failure)
            return; // the window is woken only for news
        later([this, alive, failure] {
            if (!alive.expired())
                Report(failure);
        });
    });
}

void GameKeeper::OfferAbandoned() {
    if (!parts_.settings.KeepsGameAside())
        return;
    for (KeptFile& file : TakeAbandonedFiles(UnfinishedFolder(parts_.folder)))
        ReadAbandoned(std::move(file));
    std::stable_sort(offers_.begin(), offers_.end(),
                     [](const Kept& a, const Kept& b) { return a.kept.moment > b.kept.moment; });
    ShowBar();
}

void GameKeeper::ReadAbandoned(KeptFile file) {
    try {
        KeptGame kept = ReadKeptGame(file.path);
        offers_.push_back({std::move(kept), std::move(file)});
    } catch (const platform::FileError&) {
        problem_ = "A game that was kept is damaged. Its file is " + PutAwayDamagedFile(file.path) + '.';
    }
}

void GameKeeper::TurnEnded() {
    if (!parts_.settings.KeepsGameAside())
        return;
    NoteOpponent();
    FileReplaced();
    last_ = std::make_shared<const KeptGame>(Snapshot());
    Write(last_);
    WriteTranscript();
    ShowBar();
}

// A game that was won before it was loaded is in a file already.
void GameKeeper::GameEnded() {
    if (!moved_)
        return;
    NoteOpponent();
    FileReplaced();
    WriteTranscript();
    if (parts_.settings.KeepsFinishedGames())
        FileInLibrary(Snapshot(), true, std::exchange(file_, std::nullopt));
    else
        Remove(std::exchange(file_, std::nullopt));
    last_.reset();
    moved_ = false;
    playedInClient_ = false;
    ShowBar();
}

void GameKeeper::ClientCloses() {
    WriteTranscript();
    playedInClient_ = false;
}

void GameKeeper::NoteOpponent() {
    if (!parts_.net.GameInProgress())
        return;
    opponent_ = FromWire(parts_.network.OpponentNick());
    side_ = parts_.net.PlayingBlue ? Blue : Red;
    playedInClient_ = true;
}

void GameKeeper::GameGivesWay() {
    if (const std::shared_ptr<const KeptGame> settled = Settled()) {
        FileReplaced();
        WriteIfNew(settled);
        WriteTranscript();
        replaced_ = Kept{*settled, std::exchange(file_, std::nullopt)};
    }
    last_.reset();
    moved_ = false;
    opponent_.clear();
    side_ = NoSide;
    playedInClient_ = false;
    ShowBar();
}

KeptGame GameKeeper::Snapshot() const {
    return {AtRest(parts_.game), parts_.now(), parts_.record.GameFileName, opponent_, side_};
}

// The game as it can be gone on with; nothing when no move has been made. In the middle of a turn that needs
// its player, it is as it was before that turn.
std::shared_ptr<const KeptGame> GameKeeper::Settled() const {
    if (!moved_ || !parts_.settings.KeepsGameAside())
        return nullptr;
    if (parts_.game.Animating || AwaitsReturn(parts_.game))
        return last_;
    KeptGame settled = Snapshot();
    if (IsTurnOver(parts_.game))
        settled.game.Turn = parts_.game.Turn == Blue ? Red : Blue;
    if (last_)
        settled.moment = last_->moment;
    return std::make_shared<const KeptGame>(std::move(settled));
}

// False when the folder takes no file; that is told, and tried again after the next turn.
bool GameKeeper::HasFile() {
    if (file_)
        return true;
    try {
        file_ = NewKeptFile(UnfinishedFolder(parts_.folder));
        lastFailure_.clear();
    } catch (const platform::FileError& error) {
        Report(error.what());
    }
    return file_.has_value();
}

// Turns that come faster than the disk wait for it, so that no kill ever costs more than the last one.
void GameKeeper::Write(std::shared_ptr<const KeptGame> kept) {
    if (!HasFile())
        return;
    writer_->WaitForAll();
    writer_->Submit([kept = std::move(kept), file = *file_] { WriteKeptGame(*kept, file.path); });
}

void GameKeeper::WriteIfNew(std::shared_ptr<const KeptGame> kept) {
    if (last_ == nullptr || *kept != *last_)
        Write(std::move(kept));
}

// What was said in the network window, beside the game that was played there.
void GameKeeper::WriteTranscript() {
    if (!playedInClient_ || !file_)
        return;
    writer_->Submit([file = *file_, lines = parts_.transcript()] {
        if (!lines.empty())
            platform::WriteFileAtomically(TranscriptOf(file.path), platform::TextForFile(FromWire(lines)));
    });
}

void GameKeeper::Remove(std::optional<KeptFile> file) {
    if (file)
        writer_->Submit([file = *file] { RemoveKeptFile(file.path); });
}

// The file aside goes when the game is in the library; where that fails, the game is offered again.
void GameKeeper::FileInLibrary(const KeptGame& kept, bool finished, std::optional<KeptFile> file) {
    writer_->Submit([file = std::move(file), game = LibraryGame{kept, parts_.settings.Nickname, finished},
                     folder = parts_.folder] {
        const std::string path = AddToLibrary(game, folder);
        RecentGames(folder).Note(path);
        if (file) {
            MoveTranscript(file->path, path);
            RemoveKeptFile(file->path);
        }
    });
}

// The game on the board has a turn of its own, so the one before it can no longer be brought back by the bar.
void GameKeeper::FileReplaced() {
    if (!replaced_)
        return;
    FileInLibrary(replaced_->kept, false, std::move(replaced_->file));
    replaced_.reset();
}

void GameKeeper::Choose(BarChoice choice) {
    if (std::find(shown_.choices.begin(), shown_.choices.end(), choice) == shown_.choices.end())
        return; // the bar has changed since the click
    switch (choice) {
    case BarChoice::GoOn:
        TakeUp(TakeOffer());
        break;
    case BarChoice::BringBack:
        TakeUp(*std::exchange(replaced_, std::nullopt));
        break;
    case BarChoice::SaveAs:
        SaveOffered();
        break;
    case BarChoice::Discard:
        Remove(TakeOffer().file);
        break;
    case BarChoice::Close:
        problem_.clear();
        break;
    }
    ShowBar();
}

GameKeeper::Kept GameKeeper::TakeOffer() {
    Kept offer = std::move(offers_.front());
    offers_.pop_front();
    return offer;
}

void GameKeeper::TakeUp(Kept kept) {
    parts_.files.TakeUp(kept.kept.game, kept.kept.fileName); // the game on the board gives way
    opponent_ = kept.kept.opponent;
    side_ = kept.kept.side;
    moved_ = true;
    last_ = std::make_shared<const KeptGame>(std::move(kept.kept));
    file_ = std::move(kept.file);
}

void GameKeeper::SaveOffered() {
    const KeptGame kept = offers_.front().kept; // the dialog lets events run
    const std::string path =
        parts_.files.SaveOther(kept.game, kept.fileName.empty() ? ProposedName(kept) : kept.fileName);
    if (path.empty())
        return;
    const std::optional<KeptFile> file = TakeOffer().file;
    if (file)
        MoveTranscript(file->path, path);
    Remove(file);
}

// A failure that lasts is told once.
void GameKeeper::Report(const std::string& failure) {
    if (const std::string before = std::exchange(lastFailure_, failure); failure.empty() || failure == before)
        return;
    problem_ = "The game cannot be kept: " + failure;
    ShowBar();
}

void GameKeeper::ShowBar() {
    BarLine line;
    if (!problem_.empty())
        line = ProblemLine(problem_);
    else if (replaced_)
        line = ReplacedLine(replaced_->kept);
    else if (!offers_.empty())
        line = OfferLine(offers_.front().kept, parts_.now());
    if (line == shown_)
        return;
    shown_ = std::move(line);
    parts_.bar.ShowBar(shown_);
}

void GameKeeper::Close() {
    if (std::shared_ptr<const KeptGame> settled = Settled())
        WriteIfNew(std::move(settled));
    WriteTranscript();
    alive_.reset();
    writer_.reset();
    file_.reset();
    replaced_.reset();
    offers_.clear();
}

} // namespace tarveth
