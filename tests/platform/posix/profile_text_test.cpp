// What the gathered text of an INI file keeps byte for byte, and where new lines go in an untidy one.
#include "platform/posix/profile_text.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

std::string AfterPut(std::string text, std::string_view section, std::string_view key,
                     std::string_view value) {
    platform::ProfileText profile(std::move(text));
    EXPECT_TRUE(profile.Put(section, key, value));
    return profile.Text();
}

TEST(ProfileText, AReplacedLineLeavesCommentsSpacingAndLineEndsOfTheOthers) {
    EXPECT_EQ(
        AfterPut("junk\n\n;c\r\n  [ A ] tail\r\n  x = 1 ; y\n\t k = old \nz='q'\r\n\r\n", "A", "K", "new"),
        "junk\n\n;c\r\n  [ A ] tail\r\n  x = 1 ; y\nk=new\nz='q'\r\n\r\n");
}

TEST(ProfileText, AReplacedLastLineWithoutALineEndStaysWithoutOne) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1", "A", "k", "2"), "[A]\r\nk=2");
}

TEST(ProfileText, ANewKeyGoesBeforeTheBlankLinesThatEndItsSection) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n\r\n \r\n[B]\r\nz=1\r\n", "A", "j", "2"),
              "[A]\r\nk=1\r\nj=2\r\n\r\n \r\n[B]\r\nz=1\r\n");
    EXPECT_EQ(AfterPut("[A]\r\n\r\n[B]\r\n", "A", "j", "2"), "[A]\r\nj=2\r\n\r\n[B]\r\n");
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n\r\ni=3\r\n\r\n", "A", "j", "2"),
              "[A]\r\nk=1\r\n\r\ni=3\r\nj=2\r\n\r\n");
}

TEST(ProfileText, ANewKeyGoesBehindTheCommentsOfItsSection) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n; end\r\n[B]\r\n", "A", "j", "2"),
              "[A]\r\nk=1\r\n; end\r\nj=2\r\n[B]\r\n");
}

TEST(ProfileText, ANewLineBehindAnUnfinishedOneFinishesItFirst) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1", "A", "j", "2"), "[A]\r\nk=1\r\nj=2\r\n");
    EXPECT_EQ(AfterPut("[A]", "A", "j", "2"), "[A]\r\nj=2\r\n");
    EXPECT_EQ(AfterPut("[A]\r\nk=1", "B", "j", "2"), "[A]\r\nk=1\r\n[B]\r\nj=2\r\n");
}

TEST(ProfileText, ANewSectionGoesToTheVeryEnd) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n\r\n", "B", "j", "2"), "[A]\r\nk=1\r\n\r\n[B]\r\nj=2\r\n");
    EXPECT_EQ(AfterPut("", "B", "j", "2"), "[B]\r\nj=2\r\n");
    EXPECT_EQ(AfterPut("\xef\xbb\xbf", "B", "j", "2"), "\xef\xbb\xbf[B]\r\nj=2\r\n");
}

TEST(ProfileText, ALoneCarriageReturnEndsALineToo) {
    const platform::ProfileText profile("[A]\rk=v\r[B]\rz=1\r");
    EXPECT_EQ(profile.Find("A", "k"), "v");
    EXPECT_EQ(profile.Find("B", "z"), "1");
}

TEST(ProfileText, AZeroByteEndsWhatIsReadOfItsLine) {
    const platform::ProfileText profile(std::string("[A]\r\nk=1\0 2\r\nj=3\r\n", 18));
    EXPECT_EQ(profile.Find("A", "k"), "1");
    EXPECT_EQ(profile.Find("A", "j"), "3");
    EXPECT_FALSE(platform::ProfileText().Put("A", "k", std::string_view("1\0 2", 4)));
}

TEST(ProfileText, AControlZBehindAValueDoesNotCount) {
    EXPECT_EQ(platform::ProfileText("[A]\r\nk=1\x1a").Find("A", "k"), "1");
}

TEST(ProfileText, AnEmptyNameFindsNothing) {
    const platform::ProfileText profile("k=1\r\n=2\r\n[]\r\nk=3\r\n=4\r\n[A]\r\n=5\r\n");
    EXPECT_EQ(profile.Find("", "k"), "3");
    EXPECT_FALSE(profile.Find("A", "k"));
}

} // namespace
} // namespace tarveth
