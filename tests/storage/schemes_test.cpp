// Picture schemes: a file with six names, written and read.
#include "storage/schemes.h"

#include "platform/file_error.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

const PictureNames kBlue = {"", "pics/64/blue1.bmp", "c:\\my pieces\\officer.bmp", "[none]"};
const PictureNames kRed = {"", "//server/pics/red1.bmp", "[none]", "/home/anna/a=b.bmp"};

constexpr const char* kBytes = "[Blue]\r\n"
                               "1Blue=pics/64/blue1.bmp\r\n"
                               "2Blue=c:\\my pieces\\officer.bmp\r\n"
                               "3Blue=[none]\r\n"
                               "[Red]\r\n"
                               "1Red=//server/pics/red1.bmp\r\n"
                               "2Red=[none]\r\n"
                               "3Red=/home/anna/a=b.bmp\r\n";

class Scheme : public testing::Test {
protected:
    void Read() { PictureSchemeRead(file, blue, red); }
    // Gives the error text of a command that fails.
    template <typename Command>
    static std::string Failure(Command command) {
        try {
            command();
        } catch (const platform::FileError& error) {
            return error.what();
        }
        return {};
    }

    TempFolder folder;
    std::string file = folder.File("blue.tps");
    PictureNames blue = {"", "b1", "b2", "b3"};
    PictureNames red = {"", "r1", "r2", "r3"};
};

TEST_F(Scheme, IsWrittenAsSixKeysInTwoSections) {
    PictureSchemeWrite(file, kBlue, kRed);
    EXPECT_EQ(GetBytes(file), kBytes);
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(Scheme, ReadsBackTheSixNames) {
    PictureSchemeWrite(file, kBlue, kRed);
    Read();
    EXPECT_EQ(blue, kBlue);
    EXPECT_EQ(red, kRed);
}

TEST_F(Scheme, ThatIsWrittenTwiceStaysTheSame) {
    PictureSchemeWrite(file, blue, red);
    PictureSchemeWrite(file, kBlue, kRed);
    EXPECT_EQ(GetBytes(file), kBytes);
}

TEST_F(Scheme, WithBlanksAroundItsValuesReadsTrimmed) {
    PutBytes(file, "[Blue]\n1Blue =   pics/a.bmp  \n2Blue=\" quoted \"\n[ red ]\n3RED=\tx.bmp \n");
    Read();
    EXPECT_EQ(blue, (PictureNames{"", "pics/a.bmp", "quoted", "b3"}));
    EXPECT_EQ(red, (PictureNames{"", "r1", "r2", "x.bmp"}));
}

TEST_F(Scheme, LeavesThePicturesWhoseKeysItLacks) {
    PutBytes(file, "[Blue]\r\n2Blue=two.bmp\r\n1Red=not of this section\r\n");
    Read();
    EXPECT_EQ(blue, (PictureNames{"", "b1", "two.bmp", "b3"}));
    EXPECT_EQ(red, (PictureNames{"", "r1", "r2", "r3"}));
}

TEST_F(Scheme, TakesAnEmptyValueForAnEmptyName) {
    PutBytes(file, "[Red]\r\n1Red=\r\n");
    Read();
    EXPECT_EQ(red[1], "");
}

TEST_F(Scheme, MayNamePicturesThatAreNotThere) {
    PutBytes(file, "[Blue]\r\n1Blue=/nowhere/at/all.bmp\r\n");
    Read();
    EXPECT_EQ(blue[1], "/nowhere/at/all.bmp");
}

TEST_F(Scheme, KeepsTheOtherLinesOfItsFile) {
    PutBytes(file, "; by Anna\r\n[Red]\r\nmade=1999\r\n2Red=old\r\n");
    PictureSchemeWrite(file, blue, red);
    EXPECT_EQ(GetBytes(file), "; by Anna\r\n[Red]\r\nmade=1999\r\n2Red=r2\r\n1Red=r1\r\n3Red=r3\r\n"
                              "[Blue]\r\n1Blue=b1\r\n2Blue=b2\r\n3Blue=b3\r\n");
}

TEST_F(Scheme, ThatCannotBeReadChangesNothingAndSaysSo) {
    const std::string missing = folder.File("missing.tps");
    EXPECT_TRUE(
        Failure([&] { PictureSchemeRead(missing, blue, red); }).starts_with(missing + ": cannot be read ("));
    EXPECT_NE(Failure([&] { PictureSchemeRead(folder.Name(), blue, red); }), "");
    PutBytes(file, std::string("[Blue]\n1Blue=x\n") + std::string(2 << 20, ';'));
    EXPECT_EQ(Failure([&] { Read(); }), file + ": is longer than 1048576 bytes.");
    EXPECT_EQ(blue, (PictureNames{"", "b1", "b2", "b3"}));
    EXPECT_EQ(red, (PictureNames{"", "r1", "r2", "r3"}));
}

TEST_F(Scheme, RefusesANameOfTwoLinesAndWritesNothing) {
    PictureSchemeWrite(file, kBlue, kRed);
    red[3] = "a\n[Blue]";
    EXPECT_EQ(Failure([&] { PictureSchemeWrite(file, blue, red); }),
              file + ": cannot hold a file name of more than one line.");
    EXPECT_EQ(GetBytes(file), kBytes);
}

TEST_F(Scheme, OfEachShippedSizeNamesSixPictures) {
    for (const int size : {32, 48, 64, 96, 128}) {
        const std::string root = TARVETH_SOURCE_DIR "/";
        PictureSchemeRead(root + "pics/tarveth" + std::to_string(size) + ".tps", blue, red);
        for (std::size_t kind = 1; kind <= 3; ++kind) {
            EXPECT_TRUE(std::filesystem::exists(root + blue[kind])) << blue[kind];
            EXPECT_TRUE(std::filesystem::exists(root + red[kind])) << red[kind];
        }
    }
}

} // namespace
} // namespace tarveth
