// The rules of the system's private-profile functions, the same on every system: everything is asked through
// the class, with real files. Where systems differ beyond what the functions promise (blank lines, odd
// spacing and comments after a write) nothing is asked here.
#include "platform/private_profile.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <array>

namespace tarveth {
namespace {

class PrivateProfile : public testing::Test {
protected:
    // The file as somebody else would have written it; what the class remembers of the last one is gone.
    void Given(std::string_view bytes) {
        profile.Flush();
        PutBytes(file, bytes);
    }
    std::string Text(const std::string& section, const std::string& key,
                     const std::string& defaultText = "(none)", std::size_t size = 255) const {
        std::array<char, 512> buffer = {};
        buffer.fill('#');
        const auto count =
            profile.GetPrivateProfileStringA(section, key, defaultText, std::span(buffer).first(size), file);
        EXPECT_LT(count, size);
        EXPECT_EQ(buffer[count], '\0');
        EXPECT_EQ(buffer[size], '#') << "wrote behind the buffer";
        return {buffer.data(), count};
    }
    std::int32_t Int(const std::string& key, std::int32_t defaultValue = -777) const {
        return profile.GetPrivateProfileIntA("A", key, defaultValue, file);
    }
    bool Write(const std::string& section, const std::string& key, const std::string& value) {
        return profile.WritePrivateProfileStringA(section, key, value, file) && profile.Flush();
    }

    TempFolder folder;
    std::string file = folder.File("p.ini");
    platform::PrivateProfile profile;
};

TEST_F(PrivateProfile, AMissingFileGivesTheDefaultsAndStaysMissing) {
    EXPECT_EQ(Text("A", "k", "default"), "default");
    EXPECT_EQ(Text("A", "k", ""), "");
    EXPECT_EQ(Int("k", 7), 7);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(PrivateProfile, AMissingSectionOrKeyGivesTheDefault) {
    Given("[A]\r\nk=v\r\n");
    EXPECT_EQ(Text("B", "k", "default"), "default");
    EXPECT_EQ(Text("A", "j", "default"), "default");
    EXPECT_EQ(Int("j", 7), 7);
}

TEST_F(PrivateProfile, ADefaultLosesTheBlanksBehindItOnly) {
    EXPECT_EQ(Text("A", "k", "  d d   "), "  d d");
}

TEST_F(PrivateProfile, SectionsAndKeysMatchInAnyCase) {
    Given("[Options]\r\nNickName=Ann\r\n");
    EXPECT_EQ(Text("OPTIONS", "nickname"), "Ann");
    EXPECT_TRUE(Write("options", "NICKNAME", "Bob"));
    EXPECT_EQ(GetBytes(file), "[Options]\r\nNickName=Bob\r\n");
}

TEST_F(PrivateProfile, TheFirstSectionOfANameIsMeant) {
    Given("[A]\r\nk=first\r\n[a]\r\nk=second\r\nonly=second\r\n");
    EXPECT_EQ(Text("A", "k"), "first");
    EXPECT_EQ(Text("A", "only"), "(none)");
    EXPECT_TRUE(Write("A", "only", "new"));
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=first\r\nonly=new\r\n[a]\r\nk=second\r\nonly=second\r\n");
}

TEST_F(PrivateProfile, TheFirstKeyInASectionIsMeant) {
    Given("[A]\r\nk=1\r\nK=2\r\n");
    EXPECT_EQ(Text("A", "k"), "1");
    EXPECT_TRUE(Write("A", "k", "3"));
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=3\r\nK=2\r\n");
}

TEST_F(PrivateProfile, BlanksRoundSectionsKeysAndValuesDoNotCount) {
    Given("  [ A ]  \r\n  k  =  v  v  \r\n\tq\t=\tw\t\r\n");
    EXPECT_EQ(Text("A", "k"), "v  v");
    EXPECT_EQ(Text(" A ", " k "), "v  v");
    EXPECT_EQ(Text("A", "q"), "w");
}

TEST_F(PrivateProfile, AValueInAPairOfEqualQuotesLosesThem) {
    Given("[A]\r\na=\"  v  \"\r\nb='v w'\r\nc=\"v'\r\nd=\"v\"w\r\ne=\"\"v\"\"\r\nf=\"\"\r\ng=\"\r\n");
    EXPECT_EQ(Text("A", "a"), "  v  ");
    EXPECT_EQ(Text("A", "b"), "v w");
    EXPECT_EQ(Text("A", "c"), "\"v'");
    EXPECT_EQ(Text("A", "d"), "\"v\"w");
    EXPECT_EQ(Text("A", "e"), "\"v\"");
    EXPECT_EQ(Text("A", "f"), "");
    EXPECT_EQ(Text("A", "g"), "\"");
}

TEST_F(PrivateProfile, AnEmptyValueIsTheEmptyTextNotTheDefault) {
    Given("[A]\r\nk=\r\nj=   \r\n");
    EXPECT_EQ(Text("A", "k", "default"), "");
    EXPECT_EQ(Text("A", "j", "default"), "");
}

TEST_F(PrivateProfile, OnlyTheFirstEqualsSignAndNoSemicolonBehindItCount) {
    Given("[A]\r\nk=a=b;c\r\n");
    EXPECT_EQ(Text("A", "k"), "a=b;c");
}

TEST_F(PrivateProfile, CommentsAndLinesWithoutEqualsSignAreNoKeys) {
    Given("; first\r\n[A]\r\n;k=comment\r\n  ; k=comment\r\nk\r\nj\r\n=5\r\nk2=v\r\n");
    EXPECT_EQ(Text("A", "k"), "(none)");
    EXPECT_EQ(Int("j"), -777);
    EXPECT_EQ(Text("A", "k2"), "v");
}

TEST_F(PrivateProfile, LinesBeforeAnySectionBelongToNone) {
    Given("k=before\r\n[A]\r\nj=1\r\n");
    EXPECT_EQ(Text("A", "k"), "(none)");
}

TEST_F(PrivateProfile, WhatFollowsASectionsBracketDoesNotCount) {
    Given("[A]=x\r\nk=1\r\n[B] tail\r\nk=2\r\n");
    EXPECT_EQ(Text("A", "k"), "1");
    EXPECT_EQ(Text("B", "k"), "2");
}

TEST_F(PrivateProfile, ALineThatBeginsLikeASectionButDoesNotCloseEndsNone) {
    Given("[A]\r\nk=1\r\n[B\r\nj=2\r\n");
    EXPECT_EQ(Text("A", "j"), "2");
    EXPECT_EQ(Text("B", "j"), "(none)");
}

TEST_F(PrivateProfile, AFileMayLackTheLastLineEndAndTheCarriageReturns) {
    Given("[A]\nk=v\n[B]\nj=w");
    EXPECT_EQ(Text("A", "k"), "v");
    EXPECT_EQ(Text("B", "j"), "w");
    EXPECT_TRUE(Write("B", "new", "1"));
    EXPECT_EQ(Text("A", "k"), "v");
    EXPECT_EQ(Text("B", "j"), "w");
    EXPECT_EQ(Text("B", "new"), "1");
}

TEST_F(PrivateProfile, AByteOrderMarkIsPassedOver) {
    Given("\xef\xbb\xbf[A]\r\nk=v\r\n");
    EXPECT_EQ(Text("A", "k"), "v");
    EXPECT_TRUE(Write("A", "j", "w"));
    EXPECT_EQ(GetBytes(file), "\xef\xbb\xbf[A]\r\nk=v\r\nj=w\r\n");
}

TEST_F(PrivateProfile, AValueLongerThanTheBufferIsCut) {
    const std::string value(400, 'y');
    Given("[A]\r\nk=" + value + "\r\n");
    EXPECT_EQ(Text("A", "k"), value.substr(0, 254));
    EXPECT_EQ(Text("A", "k", "", 5), "yyyy");
    EXPECT_EQ(Text("A", "k", "", 1), "");
    EXPECT_EQ(Text("A", "j", "a long default", 5), "a lo");
    Given("[A]\r\nk=" + value.substr(0, 254) + "\r\nj=" + value.substr(0, 255) + "\r\n");
    EXPECT_EQ(Text("A", "k"), value.substr(0, 254));
    EXPECT_EQ(Text("A", "j"), value.substr(0, 254));
}

TEST_F(PrivateProfile, ANumberIsASignAndTheLeadingDigits) {
    Given("[A]\r\na=12abc\r\nb=-5\r\nc=+7\r\nd=  12  \r\ne=1.9\r\nf=1,000\r\ng=\"42\"\r\nh=' "
          "-3'\r\ni=017\r\nj=\t8\r\n");
    EXPECT_EQ(Int("a"), 12);
    EXPECT_EQ(Int("b"), -5);
    EXPECT_EQ(Int("c"), 7);
    EXPECT_EQ(Int("d"), 12);
    EXPECT_EQ(Int("e"), 1);
    EXPECT_EQ(Int("f"), 1);
    EXPECT_EQ(Int("g"), 42);
    EXPECT_EQ(Int("h"), -3);
    EXPECT_EQ(Int("i"), 17);
    EXPECT_EQ(Int("j"), 8);
}

TEST_F(PrivateProfile, AValueWithoutLeadingDigitsIsZero) {
    Given("[A]\r\na=abc\r\nb=--5\r\nc=- 5\r\nd=-\r\ne=+\r\nf=+-5\r\ng=x1\r\n");
    for (const char* key : {"a", "b", "c", "d", "e", "f", "g"})
        EXPECT_EQ(Int(key), 0) << key;
}

TEST_F(PrivateProfile, AnEmptyNumberIsTheDefault) {
    Given("[A]\r\na=\r\nb=   \r\nc=\"\"\r\n");
    for (const char* key : {"a", "b", "c"})
        EXPECT_EQ(Int(key, 7), 7) << key;
}

TEST_F(PrivateProfile, ANumberMayHaveABasePrefixInSmallLetters) {
    Given("[A]\r\na=0x1F\r\nb=-0x10\r\nc=0b11\r\nd=0o17\r\ne=0X1F\r\nf=0x\r\ng=0xg\r\n");
    EXPECT_EQ(Int("a"), 31);
    EXPECT_EQ(Int("b"), -16);
    EXPECT_EQ(Int("c"), 3);
    EXPECT_EQ(Int("d"), 15);
    EXPECT_EQ(Int("e"), 0);
    EXPECT_EQ(Int("f"), 0);
    EXPECT_EQ(Int("g"), 0);
}

TEST_F(PrivateProfile, ANumberIsTakenModuloTwoToThe32) {
    Given("[A]\r\na=4294967295\r\nb=4294967296\r\nc=99999999999\r\nd=2147483648\r\ne=-2147483649\r\n"
          "f=-4294967297\r\ng=0x1FFFFFFFF\r\n");
    EXPECT_EQ(Int("a"), -1);
    EXPECT_EQ(Int("b"), 0);
    EXPECT_EQ(Int("c"), 1215752191);
    EXPECT_EQ(Int("d"), INT32_MIN);
    EXPECT_EQ(Int("e"), INT32_MAX);
    EXPECT_EQ(Int("f"), -1);
    EXPECT_EQ(Int("g"), -1);
}

TEST_F(PrivateProfile, TheFirstWriteCreatesTheFile) {
    EXPECT_TRUE(Write("A", "k", "v"));
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=v\r\n");
    EXPECT_EQ(Text("A", "k"), "v");
}

TEST_F(PrivateProfile, SectionsAndKeysStandInTheOrderFirstWritten) {
    for (const auto& [section, key] :
         {std::pair("B", "k"), {"A", "k"}, {"B", "j"}, {"C", "k"}, {"A", "a"}, {"B", "k"}})
        EXPECT_TRUE(Write(section, key, "1"));
    EXPECT_EQ(GetBytes(file), "[B]\r\nk=1\r\nj=1\r\n[A]\r\nk=1\r\na=1\r\n[C]\r\nk=1\r\n");
}

TEST_F(PrivateProfile, AWriteReplacesItsOwnLineOnly) {
    Given("; my settings\r\n[A]\r\nk=1\r\n; more\r\nunknown=x\r\n[B]\r\nk=2\r\n");
    EXPECT_TRUE(Write("A", "k", "a longer value"));
    EXPECT_EQ(GetBytes(file),
              "; my settings\r\n[A]\r\nk=a longer value\r\n; more\r\nunknown=x\r\n[B]\r\nk=2\r\n");
}

TEST_F(PrivateProfile, AValueReadsBackAsItWasWritten) {
    for (const std::string value :
         {"v", "", "a b", "-1", "a=b", ";x", "[x]", "C:\\PICS\\BLUE.BMP", "\xe4\xf6\xfc"}) {
        EXPECT_TRUE(Write("A", "k", value));
        EXPECT_EQ(Text("A", "k"), value);
    }
}

TEST_F(PrivateProfile, AValuesOuterBlanksAndQuotesAreLostOnReading) {
    EXPECT_TRUE(Write("A", "k", "  v  "));
    EXPECT_EQ(Text("A", "k"), "v");
    EXPECT_TRUE(Write("A", "k", "\"v\""));
    EXPECT_EQ(Text("A", "k"), "v");
}

TEST_F(PrivateProfile, ALineThatWouldNotReadBackIsRefused) {
    Given("[A]\r\nk=v\r\n");
    EXPECT_FALSE(Write("A", "k", "x\r\n[B]\r\nj=1"));
    EXPECT_FALSE(Write("A", "k", "x\nj=1"));
    EXPECT_FALSE(Write("A\n", "k", "x"));
    EXPECT_FALSE(Write("A", "j\n", "x"));
    EXPECT_FALSE(Write("A", "a=b", "x"));
    EXPECT_FALSE(Write("A", ";j", "x"));
    EXPECT_FALSE(Write("A", "[j", "x"));
    EXPECT_FALSE(Write("A", " ", "x"));
    EXPECT_FALSE(Write("", "k", "x"));
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=v\r\n");
}

TEST_F(PrivateProfile, AWriteWhereNoFileCanBeIsRefused) {
    EXPECT_FALSE(profile.WritePrivateProfileStringA("A", "k", "v", folder.File("missing/p.ini")));
    EXPECT_FALSE(profile.WritePrivateProfileStringA("A", "k", "v", folder.Path().string()));
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(folder.FileCount(), 0u);
}

} // namespace
} // namespace tarveth
