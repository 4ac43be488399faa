#include "storage/modINI.h"

#include "tests/platform/IniBytes.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarveth {
namespace {

class ModIni : public testing::Test {
protected:
    TempFolder folder;
    std::string file = folder.File("tarveth.ini");
    std::vector<std::string> errors;
    modINI ini{
        [this](const std::string& text, const std::string& title) { errors.push_back(title + "|" + text); }};
};

TEST_F(ModIni, UseBeforeRegistrationIsReportedAndDoesNothing) {
    EXPECT_EQ(ini.IniGetInt("k", 7), 0);
    EXPECT_EQ(ini.IniGetString("k", "default"), "");
    EXPECT_EQ(ini.IniPutNumber("k", 1), 0);
    EXPECT_EQ(ini.IniPutString("k", "v"), 0);
    EXPECT_EQ(errors, std::vector<std::string>(
                          4, "IniFile Logic Error|[Section] and FileName Not Registered in Private.Ini!"));
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(folder.FileCount(), 0u);
}

TEST_F(ModIni, OnceRegisteredItStaysSo) {
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniGetInt("k", 7), 7);
    ini.IniRegister("", "");
    EXPECT_EQ(ini.IniGetInt("k", 8), 8);
    EXPECT_TRUE(errors.empty());
}

TEST_F(ModIni, AnAbsentKeyYieldsTheCallersDefault) {
    PutBytes(file, "[A]\r\nother=1\r\n");
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniGetInt("k", -5), -5);
    EXPECT_EQ(ini.IniGetString("k", "default"), "default");
}

TEST_F(ModIni, AnEmptyValueYieldsTheEmptyTextWhateverTheDefault) {
    PutBytes(file, "[A]\r\nk=\r\n");
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniGetString("k", "default"), "");
}

TEST_F(ModIni, ANumberIsTheOneThatTheLeadingDigitsForm) {
    PutBytes(file, "[A]\r\nk=12abc\r\nj=abc12\r\n");
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniGetInt("k", 7), 12);
    EXPECT_EQ(ini.IniGetInt("j", 7), 0);
}

TEST_F(ModIni, NumbersAreWrittenAsPlainDecimalText) {
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniPutNumber("true", -1), 1);
    EXPECT_EQ(ini.IniPutNumber("false", 0), 1);
    EXPECT_EQ(ini.IniPutNumber("most", INT32_MAX), 1);
    EXPECT_EQ(ini.IniPutNumber("least", INT32_MIN), 1);
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(GetBytes(file), "[A]\r\ntrue=-1\r\nfalse=0\r\nmost=2147483647\r\nleast=-2147483648\r\n");
}

TEST_F(ModIni, SectionAndFileAreRegisteredTrimmed) {
    ini.IniRegister("  A  ", "  " + file + "  ");
    EXPECT_EQ(ini.IniPutString("k", "v"), 1);
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=v\r\n");
}

TEST_F(ModIni, ValuesArePassedUntrimmed) {
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniPutString("k", "  v "), 1);
    EXPECT_EQ(ini.IniGetString("other", "  v"), "  v");
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(WithoutBlanksBeforeValues(GetBytes(file)), "[A]\r\nk=v \r\n");
}

TEST_F(ModIni, ALongValueIsCutTo254Characters) {
    ini.IniRegister("A", file);
    const std::string value(300, 'x');
    ini.IniPutString("k", value);
    EXPECT_EQ(ini.IniGetString("k", ""), value.substr(0, 254));
}

TEST_F(ModIni, AnotherRegistrationSwitchesSectionAndFile) {
    ini.IniRegister("A", file);
    ini.IniPutString("k", "a");
    ini.IniRegister("B", folder.File("other.ini"));
    ini.IniPutString("k", "b");
    ini.IniRegister("A", file);
    EXPECT_EQ(ini.IniGetString("k", ""), "a");
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(GetBytes(folder.File("other.ini")), "[B]\r\nk=b\r\n");
}

TEST_F(ModIni, AFailedWriteIsSilent) {
    ini.IniRegister("A", folder.File("missing/tarveth.ini"));
    EXPECT_EQ(ini.IniPutString("k", "v"), 0);
    EXPECT_EQ(ini.IniGetString("k", "default"), "default");
    EXPECT_TRUE(errors.empty());
}

} // namespace
} // namespace tarveth
