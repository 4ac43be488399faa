// Loading what is no game: one message that names the file and the line, the game on the board untouched, and
// no more memory than a game may take.
#include "engine/checkgame.h"
#include "storage/modFileIO.h"
#include "tests/Dice.h"
#include "tests/platform/ForkedChild.h"
#include "tests/storage/FilesTable.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/resource.h>
#include <sys/stat.h>

namespace tarveth::test {
namespace {

namespace fs = std::filesystem;

constexpr char kBad[] = "bad.tsg";

// A game under way, with a title, onto which bad files are loaded.
class BadFiles : public testing::Test {
protected:
    BadFiles() {
        PlayOneCapture(t);
        good = GameText(t.game, "good.tsg");
        t.SaveAs("good.tsg");
        Restart();
        before = t.game;
    }

    // The good game with a piece selected; the next file to load is the bad one.
    void Restart() {
        t.files.OpenGame(t.folder.File("good.tsg"));
        t.Click("6E");
        t.asked.chosen = t.folder.File(kBad);
    }

    // Loads the file. True when it is refused as it should be, with that text behind the file's name.
    bool IsRefused(const std::string& behindName) {
        const int redraws = t.port.redraws;
        t.port.boxes.clear();
        t.files.LoadGame();
        return t.port.boxes.size() == 1 &&
               t.port.boxes.front().starts_with("The game is not loaded.\n" + t.folder.File(kBad) +
                                                behindName) &&
               t.game == before && t.port.redraws == redraws && t.record.GameTitle == "good.tsg" &&
               t.record.GameFileName == t.folder.File("good.tsg") && t.port.caption == "good.tsg (Tarveth)" &&
               t.port.marker;
    }
    bool IsRefusedOnLine(const std::string& bytes, const std::string& line = "") {
        fs::remove(t.folder.File(kBad)); // some disks wait for a file that is cut short and written anew
        PutBytes(t.folder.File(kBad), bytes);
        return IsRefused(", line " + line);
    }

    // The good game's text with one line, counted from 1, replaced.
    std::string WithLine(int number, const std::string& content) const {
        std::size_t start = 0;
        for (int line = 1; line < number; ++line)
            start = good.find('\n', start) + 1;
        return good.substr(0, start) + content + good.substr(good.find("\r\n", start));
    }

    FilesTable t;
    std::string good;
    Game before;
};

TEST_F(BadFiles, CutShortAtAnyByteAreRefusedOrStillAGame) {
    std::size_t refused = 0;
    for (std::size_t length = 0; length < good.size(); ++length) {
        if (IsRefusedOnLine(good.substr(0, length))) {
            ++refused;
            continue;
        }
        // What is left may be a game: without a history, or with the last line or number cut.
        ASSERT_TRUE(t.port.boxes.empty()) << "cut to " << length;
        ASSERT_EQ(CheckGame(t.game), "") << "cut to " << length;
        Restart();
    }
    EXPECT_GT(refused, good.size() * 9 / 10);
}

TEST_F(BadFiles, WithCountsThatLieAreRefused) {
    constexpr int kJailCount = 265;
    constexpr int kHistoryCount = kJailCount + 11; // one jailed piece
    ASSERT_NE(WithLine(kHistoryCount, " 2 ").find(" 2 \r\nB:BP 4E-4D"), std::string::npos);
    for (const char* count : {" 27 ", " 25 ", "-26 ", " 32767 ", " 65562 ", "1e300", "abc", ""})
        EXPECT_TRUE(IsRefusedOnLine(WithLine(4, count), "4: ")) << count;
    for (const char* count : {" 2 ", " 26 ", "-1 ", " 27 ", " 65537 ", "1e300"})
        EXPECT_TRUE(IsRefusedOnLine(WithLine(kJailCount, count), "265: ")) << count;
    for (const char* count : {" 3 ", "-1 ", " 32768 ", " 4294967298 ", "1e300"})
        EXPECT_TRUE(IsRefusedOnLine(WithLine(kHistoryCount, count), "276: ")) << count;
}

TEST_F(BadFiles, WithNumbersOutOfRangeAreRefused) {
    for (const char* side : {" 0 ", " 3 ", "-1 ", " 65537 "})
        EXPECT_TRUE(IsRefusedOnLine(WithLine(3, side), "3: ")) << side;
    for (const char* kind : {" 0", " 4", "-1", " 65537"})
        EXPECT_TRUE(IsRefusedOnLine(WithLine(5, kind), "5: ")) << kind;
    for (const char* column : {" 0", " 9", "-9", " 4.5", " 65540", "1e300"})
        EXPECT_TRUE(IsRefusedOnLine(WithLine(7, column), "7: ")) << column;
}

TEST_F(BadFiles, WithNumbersBeyondSixteenBitsAreRefused) {
    for (int field = 9; field <= 14; ++field)
        for (const char* number : {" 32768", "-32769", " 65536", " 2147483648", "1e300", "-1e300"})
            EXPECT_TRUE(IsRefusedOnLine(WithLine(field, number), std::to_string(field) + ": "))
                << number << " on line " << field;
}

TEST_F(BadFiles, OfAnyBytesAreRefused) {
    EXPECT_TRUE(IsRefusedOnLine("", "1: "));
    EXPECT_TRUE(IsRefusedOnLine(std::string(1000, '\0'), "2: "));
    EXPECT_TRUE(IsRefusedOnLine(std::string(100'000, '\n'), "3: "));
    EXPECT_TRUE(IsRefusedOnLine(GetBytes(TARVETH_SOURCE_DIR "/pics/tarveth-16.png")));
    Dice dice(77);
    for (int i = 0; i < 200; ++i) {
        std::string bytes;
        for (int length = dice.Below(5000); length > 0; --length)
            bytes += static_cast<char>(dice.Below(256));
        EXPECT_TRUE(IsRefusedOnLine(bytes)) << i;
    }
}

TEST_F(BadFiles, ThatCannotBeReadAreRefused) {
    EXPECT_TRUE(IsRefused(": cannot be read (")) << "missing";
    fs::create_directory(t.folder.File(kBad));
    EXPECT_TRUE(IsRefused(": cannot be read (")) << "a folder";
    fs::remove(t.folder.File(kBad));
    ASSERT_EQ(mkfifo(t.folder.File(kBad).c_str(), 0600), 0);
    EXPECT_TRUE(IsRefused(": cannot be read: it is not a plain file")) << "a pipe that nobody fills";
    fs::remove(t.folder.File(kBad));
    PutBytes(t.folder.File(kBad), good);
    fs::permissions(t.folder.File(kBad), fs::perms::none);
    EXPECT_TRUE(TrueInChild([&] { return BecomeNobody() && IsRefused(": cannot be read ("); }));
}

// By how many KiB the work raises what this process has used at most.
template <typename Work>
long PeakGrowth(Work work) {
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    const long before = usage.ru_maxrss;
    work();
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss - before;
}

TEST_F(BadFiles, Of50MillionBytesAreRefusedUnread) {
    PutBytes(t.folder.File(kBad), good);
    fs::resize_file(t.folder.File(kBad), 50'000'000);
    EXPECT_TRUE(TrueInChild([&] {
        bool refused = false;
        const long growth = PeakGrowth([&] { refused = IsRefused(": is longer than 8388608 bytes."); });
        return refused && growth < 4'096;
    }));
}

TEST_F(BadFiles, AsLongAsAFileMayBeTakeBoundedMemory) {
    std::string bytes = good.substr(0, good.rfind(" 2 \r\n"));
    bytes += " 100000 \r\n";
    bytes.append((std::size_t{8} << 20) - bytes.size(), '\n');
    bytes[bytes.size() - 1] = 'x';
    PutBytes(t.folder.File(kBad), bytes);
    EXPECT_TRUE(TrueInChild([&] {
        const long growth = PeakGrowth([&] { t.files.LoadGame(); });
        return t.game.lstHistory.size() == 100'000 && growth < 65'536;
    }));
}

} // namespace
} // namespace tarveth::test
