// The lines that a transcript keeps, and what of them a window is told to show.
#include "net/transcript.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

// What a window shows that does as it is told.
struct Shown {
    std::string text;

    void Follow(TranscriptLines& lines) {
        const TranscriptLines::Update update = lines.TakeUpdate();
        text.erase(0, update.gone);
        for (std::size_t i = update.firstNew; i < lines.Lines().size(); ++i)
            text += lines.Lines()[i].text + '\n';
    }
};

std::string TextOf(const TranscriptLines& lines) {
    std::string text;
    for (const TranscriptLine& line : lines.Lines())
        text += line.text + '\n';
    return text;
}

TEST(TranscriptLines, KeepTextAndKindInTheirOrder) {
    TranscriptLines lines;
    lines.Add("Ada: hello", LineKind::Opponent);
    lines.Add("", LineKind::Notice);
    ASSERT_EQ(lines.Lines().size(), 2U);
    EXPECT_EQ(lines.Lines()[0].text, "Ada: hello");
    EXPECT_EQ(lines.Lines()[0].kind, LineKind::Opponent);
    EXPECT_EQ(lines.Lines()[1].kind, LineKind::Notice);
}

TEST(TranscriptLines, HoldNoCharacterThatWouldEndALine) {
    TranscriptLines lines;
    lines.Add(std::string_view("one\ntwo\r\0three\t\x7F\xE9", 17), LineKind::Others);
    EXPECT_EQ(lines.Lines()[0].text, "one two  three  \xE9");
}

TEST(TranscriptLines, TellWhatIsNewOnce) {
    TranscriptLines lines;
    lines.Add("one", LineKind::Mine);
    EXPECT_EQ(lines.TakeUpdate().firstNew, 0U);
    EXPECT_EQ(lines.TakeUpdate().firstNew, 1U);
    lines.Add("two", LineKind::Mine);
    const TranscriptLines::Update update = lines.TakeUpdate();
    EXPECT_EQ(update.firstNew, 1U);
    EXPECT_EQ(update.gone, 0U);
}

TEST(TranscriptLines, LoseTheOldestWhenThereAreTooMany) {
    TranscriptLines lines;
    for (std::size_t i = 0; i < TranscriptLines::kMostLines; ++i)
        lines.Add(std::to_string(i), LineKind::Others);
    EXPECT_EQ(lines.Lines().front().text, "0");
    lines.Add("last", LineKind::Others);
    EXPECT_LE(lines.Lines().size(), TranscriptLines::kMostLines);
    EXPECT_GE(lines.Lines().size(), TranscriptLines::kMostLines / 2);
    EXPECT_NE(lines.Lines().front().text, "0");
    EXPECT_EQ(lines.Lines().back().text, "last");
}

TEST(TranscriptLines, LoseTheOldestWhenTheyAreTooLong) {
    TranscriptLines lines;
    const std::string longLine(TranscriptLines::kLongestLine, 'x');
    for (std::size_t i = 0; i < 2 * TranscriptLines::kMostCharacters / longLine.size(); ++i) {
        lines.Add(longLine, LineKind::Others);
        EXPECT_LE(TextOf(lines).size(), TranscriptLines::kMostCharacters);
    }
    lines.Add("last", LineKind::Others);
    EXPECT_GE(lines.Lines().size(), 3U);
    EXPECT_EQ(lines.Lines().back().text, "last");
}

TEST(TranscriptLines, AreCutWhenTheyAreTooLong) {
    TranscriptLines lines;
    const std::string longest(TranscriptLines::kLongestLine, 'x');
    lines.Add(longest, LineKind::Others);
    lines.Add(longest + 'x', LineKind::Others);
    ASSERT_EQ(lines.Lines().size(), 2U);
    EXPECT_EQ(lines.Lines()[0].text, longest);
    EXPECT_EQ(lines.Lines()[1].text, longest.substr(3) + "...");
}

TEST(TranscriptLines, AreWhatAWindowShowsHoweverRarelyItAsks) {
    for (const int often : {1, 7, 900, 6000, 20000}) {
        TranscriptLines lines;
        Shown shown;
        for (int i = 1; i <= 20000; ++i) {
            lines.Add("line " + std::to_string(i), LineKind::Others);
            if (i % 9999 == 0)
                lines.Clear();
            if (i % often == 0)
                shown.Follow(lines);
        }
        shown.Follow(lines);
        EXPECT_EQ(shown.text, TextOf(lines)) << often;
    }
}

TEST(TranscriptLines, AreGoneFromTheWindowOnceCleared) {
    TranscriptLines lines;
    Shown shown;
    lines.Add("shown", LineKind::Others);
    shown.Follow(lines);
    lines.Add("not shown yet", LineKind::Others);
    lines.Clear();
    shown.Follow(lines);
    EXPECT_EQ(shown.text, "");
    lines.Add("again", LineKind::Others);
    shown.Follow(lines);
    EXPECT_EQ(shown.text, "again\n");
}

} // namespace
} // namespace tarveth
