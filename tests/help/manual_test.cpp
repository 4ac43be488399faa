// Compares the manual's source with the program: all that a user may meet is explained.

#include "engine/rules/captures.h"
#include "engine/rules/moves.h"
#include "engine/rules/positiontext.h"
#include "storage/settings_table.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarveth::test {
namespace {

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Gives the text of all chapters, with one blank for each run of white space.
std::string Manual() {
    std::string text;
    for (const auto& file : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/help"))
        if (file.path().extension() == ".but")
            text += ReadFile(file.path()) + ' ';
    std::string even;
    for (const char letter : text) {
        const char next = letter == '\n' || letter == '\t' ? ' ' : letter;
        if (next != ' ' || !even.ends_with(' '))
            even += next;
    }
    return even;
}

void ExpectExplained(const std::string& manual, const std::string& text) {
    EXPECT_NE(manual.find("\\dt \\q{" + text + "}"), std::string::npos) << text;
}

// Gives the section of the manual whose heading contains `words`; empty when there is none.
std::string SectionAbout(const std::string& manual, const std::string& words) {
    for (std::size_t at = manual.find("\\S{"); at != std::string::npos;) {
        const std::size_t next = manual.find("\\S{", at + 1);
        std::string section = manual.substr(at, next - at);
        if (section.substr(0, section.find("\\dt")).find(words) != std::string::npos)
            return section;
        at = next;
    }
    return {};
}

TEST(Manual, TellsWhatEveryKeyOfTheSettingsFileMeans) {
    const std::string manual = Manual();
    for (const SettingRow& name : kSettings) {
        const std::string section = SectionAbout(manual, '[' + std::string(name.section) + ']');
        EXPECT_NE(section.find("\\c{" + std::string(name.key) + '}'), std::string::npos)
            << '[' << name.section << "] " << name.key;
    }
}

TEST(Manual, TellsWhatTheWindowPositionsMean) {
    const std::string manual = Manual();
    EXPECT_NE(manual.find("\\dt \\c{X}, \\c{Y}, \\c{W}, \\c{H}"), std::string::npos);
    EXPECT_NE(manual.find("\\dt \\c{L}, \\c{T}, \\c{W}, \\c{H}"), std::string::npos);
}

TEST(Manual, ExplainsEveryRefusalOfAMove) {
    const std::string manual = Manual();
    Game game;
    SetPosition(game, "turn B | BM 4D");
    for (const Refusal refusal : {Refusal::NoDiagonal, Refusal::BadDiagonal, Refusal::TooManySquares,
                                  Refusal::Blocked, Refusal::Reflection, Refusal::CantCapture})
        ExpectExplained(manual, RefusalText(game, {refusal, PieceOn(game, SquareOf("4D"))}));
}

TEST(Manual, ExplainsEveryRefusalOfAPick) {
    const std::string manual = Manual();
    TestGame outside("turn B | BM 4D | RP 4E");
    outside.Click("4E");
    ExpectExplained(manual, outside.port.message);
    TestGame powerless("turn B | BM 4D | RP 5E | jail BO BO BO BO");
    powerless.Click("5E");
    EXPECT_NE(powerless.port.message, outside.port.message);
    ExpectExplained(manual, powerless.port.message);
}

TEST(Manual, ExplainsTheRefusalOfAReturnOnATakenSquare) {
    TestGame g("turn B | BM 4D | RO 4E | RM 8A | RP 1A | jail BP");
    g.Move("4D", "4E");
    g.Click("8A");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    ExpectExplained(Manual(), g.port.message);
}

TEST(Manual, QuotesTheSentenceOfAVictory) {
    Game game;
    SetPosition(game, "turn B | BM 4D | jail RM RM RM");
    EXPECT_NE(Manual().find("\\q{" + std::string(FindVictory(game).sentence) + '}'), std::string::npos);
}

// Each diagram file must be shown in a chapter, and each diagram in a chapter must have a file.
TEST(Manual, ShowsEveryDiagramAndHasEveryDiagramItShows) {
    const std::string manual = Manual();
    std::size_t uses = 0;
    for (const char* macro : {"\\diagram{", "\\picture{"})
        for (std::size_t at = manual.find(macro); at != std::string::npos; at = manual.find(macro, at + 1))
            ++uses;
    std::size_t files = 0;
    for (const auto& file : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/help/diagrams")) {
        const std::string name = file.path().stem().string();
        EXPECT_TRUE(manual.find("{" + name + "}") != std::string::npos) << name;
        ++files;
    }
    EXPECT_EQ(uses, files);
}

} // namespace
} // namespace tarveth::test
