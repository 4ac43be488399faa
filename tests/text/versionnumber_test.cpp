#include "text/versionnumber.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(VersionNumber, WeighsTheThreeParts) {
    for (const VersionForm form : {VersionForm::Exact, VersionForm::Leading}) {
        EXPECT_EQ(VersionNumber("2.6.4", form), 26004);
        EXPECT_EQ(VersionNumber("0.10.37", form), 10037);
        EXPECT_EQ(VersionNumber(" 2 . 6 . 4 ", form), 26004);
        EXPECT_EQ(VersionNumber("2", form), 20000);
        EXPECT_EQ(VersionNumber("2.6", form), 26000);
        EXPECT_EQ(VersionNumber("2.6.4.x", form), 26004);
    }
}

TEST(VersionNumber, OfTheExactFormIsThatOfAVersionOnly) {
    for (const char* text :
         {"", ".", "2.", "2.6.", "x", "2.x", "2.6.4b", "+2.6.4", "-1.0.0", "2.6.10000", "99999999999.0.0"})
        EXPECT_EQ(VersionNumber(text), std::nullopt) << text;
    EXPECT_EQ(VersionNumber("9999.0.0"), 99990000);
}

TEST(VersionNumber, OfTheLeadingFormTakesWhatEachPartBeginsWith) {
    EXPECT_EQ(VersionNumber("", VersionForm::Leading), 0);
    EXPECT_EQ(VersionNumber("x.y.z", VersionForm::Leading), 0);
    EXPECT_EQ(VersionNumber("3.x", VersionForm::Leading), 30000);
    EXPECT_EQ(VersionNumber("+2.6b.4 (beta)", VersionForm::Leading), 26004);
    EXPECT_EQ(VersionNumber("-1.-1.-1", VersionForm::Leading), -11001);
    EXPECT_EQ(VersionNumber("99999.0.0", VersionForm::Leading), 327670000);
    EXPECT_EQ(VersionNumber("1.0.99999999999", VersionForm::Leading), 42767);
}

} // namespace
} // namespace tarveth
