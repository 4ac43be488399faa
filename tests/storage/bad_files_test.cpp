// Loading files that are no game: one message names the file and the line, and the game on the board stays as
// it was.
#include "engine/rules/checkgame.h"
#include "tests/Dice.h"
#include "tests/storage/BadFiles.h"

namespace tarveth::test {
namespace {

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
    std::filesystem::create_directory(t.folder.File(kBad));
    EXPECT_TRUE(IsRefused(": cannot be read (")) << "a folder";
}

} // namespace
} // namespace tarveth::test
