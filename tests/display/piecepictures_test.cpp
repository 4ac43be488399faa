// Which picture a piece gets, with real files in folders of the test's own.
#include "display/bitmap.h"
#include "display/builtin_pictures.h"
#include "display/piecepictures.h"
#include "tests/GoldenPicture.h"
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tarveth::test {

namespace {

constexpr Pixel kInk = Rgb(12, 34, 56);
constexpr Pixel kOtherInk = Rgb(65, 43, 21);

// A picture of one colour as a file's bytes.
std::string Bmp(int width, int height, Pixel colour = kInk) {
    return WriteBitmap(PixelBuffer(width, height, colour));
}

struct PictureFolder {
    TempFolder folder;
    TempFolder second;
    Settings settings;
    PiecePictures pictures;

    PictureFolder() {
        for (std::size_t i = 1; i <= 3; ++i)
            settings.BluePics[i] = settings.RedPics[i] = "";
    }
    void Put(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(std::filesystem::path(folder.File(name)).parent_path());
        PutBytes(folder.File(name), bytes);
    }
    std::vector<std::string> Load() {
        return pictures.LoadPiecePictures(settings, {folder.Name(), second.Name()});
    }
    // Loads `name` as the Blue Master; true when that gave the picture in kInk, without a word.
    bool Finds(const std::string& name) {
        settings.BluePics[Master] = name;
        return Load().empty() && pictures.picBlue[Master].At(0, 0) == kInk;
    }
    // Loads bytes that are no usable picture as the Red Pawn, and gives what is told about it.
    std::string ProblemWith(const std::string& bytes) {
        Put("bad.bmp", bytes);
        settings.RedPics[Pawn] = "bad.bmp";
        const std::vector<std::string> problems = Load();
        EXPECT_TRUE(pictures.picRed[Pawn] == pictures.picDefaultRed[Pawn]);
        EXPECT_EQ(problems.size(), 1U);
        return problems.empty() ? "" : problems[0];
    }
};

const char* const kSizeRule = "a piece picture measures 8 to 512 pixels an edge.";

} // namespace

TEST(PiecePictures, TheBuiltInOnesAre64PixelsWideAndAllDifferent) {
    const PiecePictures pictures;
    std::vector<PixelBuffer> all;
    for (std::size_t kind = Master; kind <= Pawn; ++kind) {
        all.push_back(pictures.picDefaultBlue[kind]);
        all.push_back(pictures.picDefaultRed[kind]);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i].Width(), 64);
        EXPECT_EQ(all[i].Height(), 64);
        EXPECT_EQ(all[i].At(0, 0), kKeyGreen); // the board shows through in the corner
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(all[i] == all[j]);
    }
}

TEST(PiecePictures, AnEmptyNameGivesTheBuiltInPictureAndSquaresOf64) {
    PictureFolder f;
    EXPECT_TRUE(f.Load().empty());
    for (std::size_t kind = Master; kind <= Pawn; ++kind) {
        EXPECT_TRUE(f.pictures.picBlue[kind] == f.pictures.picDefaultBlue[kind]);
        EXPECT_TRUE(f.pictures.picRed[kind] == f.pictures.picDefaultRed[kind]);
    }
    EXPECT_EQ(f.pictures.SquareSize, 64);
}

TEST(PiecePictures, AMissingFileGivesTheBuiltInPictureSilently) {
    PictureFolder f;
    for (const char* name :
         {"[none]", "no/such.bmp", "c:\\pics\\blue1.bmp", "//server/pics/blue1.bmp", "."}) {
        f.settings.BluePics[Master] = name;
        EXPECT_TRUE(f.Load().empty()) << name;
        EXPECT_TRUE(f.pictures.picBlue[Master] == f.pictures.picDefaultBlue[Master]) << name;
    }
}

TEST(PiecePictures, EachSideAndKindHasItsOwnFile) {
    PictureFolder f;
    for (int kind = Master; kind <= Pawn; ++kind) {
        const auto i = static_cast<std::size_t>(kind);
        f.settings.BluePics[i] = "blue" + std::to_string(kind);
        f.settings.RedPics[i] = "red" + std::to_string(kind);
        f.Put(f.settings.BluePics[i], Bmp(16, 16, Rgb(kind, 0, 0)));
        f.Put(f.settings.RedPics[i], Bmp(16, 16, Rgb(10 + kind, 0, 0)));
    }
    EXPECT_TRUE(f.Load().empty());
    for (int kind = Master; kind <= Pawn; ++kind) {
        EXPECT_EQ(f.pictures.Of(Blue, kind)->At(0, 0), Rgb(kind, 0, 0));
        EXPECT_EQ(f.pictures.Of(Red, kind)->At(0, 0), Rgb(10 + kind, 0, 0));
        EXPECT_EQ(f.pictures.Of(NoSide, kind), f.pictures.Of(Red, kind));
    }
    EXPECT_EQ(f.pictures.Of(Blue, 0), nullptr);
    EXPECT_EQ(f.pictures.Of(Blue, 4), nullptr);
}

TEST(PiecePictures, TheBlueMasterAloneSetsTheSquareSize) {
    PictureFolder f;
    f.Put("forty.bmp", Bmp(40, 24));
    f.Put("thirty-two.bmp", Bmp(32, 32));
    f.settings.BluePics[Master] = "forty.bmp";
    f.settings.BluePics[Pawn] = f.settings.RedPics[Master] = "thirty-two.bmp";
    EXPECT_TRUE(f.Load().empty());
    EXPECT_EQ(f.pictures.SquareSize, 40);
    EXPECT_EQ(f.pictures.picRed[Master].Width(), 32);
}

TEST(PiecePictures, LoadingAgainForgetsTheFilesOfBefore) {
    PictureFolder f;
    f.Put("a.bmp", Bmp(20, 20));
    EXPECT_TRUE(f.Finds("a.bmp"));
    f.settings.BluePics[Master] = "";
    f.Load();
    EXPECT_TRUE(f.pictures.picBlue[Master] == f.pictures.picDefaultBlue[Master]);
    EXPECT_EQ(f.pictures.SquareSize, 64);
}

TEST(PiecePictures, ARelativeNameIsLookedUpInTheFolder) {
    PictureFolder f;
    f.Put("pics/blue1.bmp", Bmp(16, 16));
    EXPECT_TRUE(f.Finds("pics/blue1.bmp"));
}

TEST(PiecePictures, BackslashesSeparateFoldersOnEverySystem) {
    PictureFolder f;
    f.Put("pics/blue1.bmp", Bmp(16, 16));
    EXPECT_TRUE(f.Finds("pics\\blue1.bmp"));
    EXPECT_TRUE(f.Finds(".\\pics\\blue1.bmp"));
}

TEST(PiecePictures, TheFirstFolderWithTheFileWins) {
    PictureFolder f;
    PutBytes(f.second.File("a.bmp"), Bmp(16, 16));
    EXPECT_TRUE(f.Finds("a.bmp"));
    f.Put("a.bmp", Bmp(16, 16, kOtherInk));
    f.Load();
    EXPECT_EQ(f.pictures.picBlue[Master].At(0, 0), kOtherInk);
}

TEST(PiecePictures, AnAbsoluteNameIsUsedAsItStands) {
    PictureFolder f;
    TempFolder elsewhere;
    PutBytes(elsewhere.File("a.bmp"), Bmp(16, 16));
    EXPECT_TRUE(f.Finds(elsewhere.File("a.bmp")));
    f.settings.BluePics[Master] = "";
}

TEST(PiecePictures, TwoForwardSlashesMarkAShareAndAreNotPutBehindTheFolder) {
    PictureFolder f;
    f.Put("server/blue1.bmp", Bmp(16, 16));
    EXPECT_FALSE(f.Finds("//server/blue1.bmp"));
    EXPECT_FALSE(f.Finds("server//blue1.bmp")); // anywhere in the name
}

TEST(PiecePictures, TwoBackslashesDoNotMarkAShare) {
    PictureFolder f;
    f.Put("server/blue1.bmp", Bmp(16, 16));
    EXPECT_TRUE(f.Finds("\\\\server\\blue1.bmp"));
    EXPECT_TRUE(f.Finds("\\server\\blue1.bmp"));
}

TEST(PiecePictures, AColonMarksADriveAnywhereInTheName) {
    PictureFolder f;
    if (std::filesystem::path::preferred_separator == '/') // elsewhere no file can have the name
        f.Put("a:b.bmp", Bmp(16, 16));
    EXPECT_FALSE(f.Finds("a:b.bmp"));
}

TEST(PiecePictures, WhatIsNoBMPFileIsToldByItsName) {
    PictureFolder f;
    EXPECT_EQ(f.ProblemWith("GIF89a, or so it says, and then some more"),
              "The picture " + f.folder.File("bad.bmp") + " is not a BMP file.");
    EXPECT_EQ(f.ProblemWith(""), "The picture " + f.folder.File("bad.bmp") + " ends too early.");
}

TEST(PiecePictures, APictureTooSmallOrTooLargeIsToldWithItsSize) {
    PictureFolder f;
    const std::string start = "The picture " + f.folder.File("bad.bmp") + " is ";
    EXPECT_EQ(f.ProblemWith(Bmp(1, 1)), start + "1 x 1 pixels; " + kSizeRule);
    EXPECT_EQ(f.ProblemWith(Bmp(513, 8)), start + "513 x 8 pixels; " + kSizeRule);
    EXPECT_EQ(f.ProblemWith(Bmp(8, 7)), start + "8 x 7 pixels; " + kSizeRule);
}

TEST(PiecePictures, AHeaderThatClaims8000By8000PixelsIsRefused) {
    PictureFolder f;
    std::string bytes = Bmp(8, 8);
    bytes.replace(18, 8, std::string("\x40\x1F\0\0\x40\x1F\0\0", 8));
    EXPECT_EQ(f.ProblemWith(bytes),
              "The picture " + f.folder.File("bad.bmp") + " is 8000 x 8000 pixels; " + kSizeRule);
}

TEST(PiecePictures, ATruncatedFileIsToldByItsName) {
    PictureFolder f;
    const std::string bytes = Bmp(16, 16);
    EXPECT_EQ(f.ProblemWith(bytes.substr(0, bytes.size() - 1)),
              "The picture " + f.folder.File("bad.bmp") + " ends too early.");
}

TEST(PiecePictures, AFileTooLongForAnyPictureIsRefusedUnread) {
    PictureFolder f;
    const std::string problem = f.ProblemWith(Bmp(16, 16) + std::string(std::size_t{5} * 1024 * 1024, ' '));
    EXPECT_NE(problem.find(f.folder.File("bad.bmp")), std::string::npos) << problem;
}

TEST(PiecePictures, OneBadFileLeavesTheOthersInUse) {
    PictureFolder f;
    f.Put("good.bmp", Bmp(24, 24));
    f.settings.BluePics[Master] = "good.bmp";
    f.ProblemWith("rubbish");
    EXPECT_EQ(f.pictures.picBlue[Master].At(0, 0), kInk);
    EXPECT_EQ(f.pictures.SquareSize, 24);
}

TEST(PiecePictures, EveryBadFileGetsASentenceOfItsOwn) {
    PictureFolder f;
    f.Put("bad.bmp", "rubbish");
    for (std::size_t i = 1; i <= 3; ++i)
        f.settings.BluePics[i] = f.settings.RedPics[i] = "bad.bmp";
    EXPECT_EQ(f.Load().size(), 6U);
}

TEST(PiecePictures, TheSchemesThatShipHaveSquaresOfTheirSize) {
    for (const int size : {32, 48, 64, 96, 128}) {
        const DisplayGame g(size);
        EXPECT_EQ(g.pictures.SquareSize, size);
        EXPECT_EQ(g.board.picBoard.Pixels.Width(), size * kBoardSize);
    }
}

} // namespace tarveth::test
