#include "platform/atomic_file.h"

#include "platform/file_error.h"
#include "tests/platform/TempFolder.h"
#include "tests/platform/WriteFails.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::FileError;
using platform::ReadWholeFile;
using platform::WriteFileAtomically;

TEST(AtomicFile, AMissingFileIsCreated) {
    const TempFolder folder;
    WriteFileAtomically(folder.File("a"), std::string_view("one\0two\r\n", 9));
    EXPECT_EQ(GetBytes(folder.File("a")), std::string("one\0two\r\n", 9));
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicFile, AnExistingFileIsReplacedWhole) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "a much longer old content");
    WriteFileAtomically(folder.File("a"), "new");
    EXPECT_EQ(GetBytes(folder.File("a")), "new");
    WriteFileAtomically(folder.File("a"), "");
    EXPECT_EQ(GetBytes(folder.File("a")), "");
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicFile, AFolderOrAFileInAMissingOneIsRefused) {
    const TempFolder folder;
    fs::create_directory(folder.File("a"));
    EXPECT_TRUE(WriteFails(folder.File("a"), "new"));
    EXPECT_TRUE(WriteFails(folder.File("missing/a"), "new"));
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(ReadWholeFile, GivesTheBytesUpToItsLimit) {
    const TempFolder folder;
    const std::string bytes(200'000, 'x');
    PutBytes(folder.File("a"), bytes);
    EXPECT_EQ(ReadWholeFile(folder.File("a"), 200'000), bytes);
    EXPECT_EQ(ReadWholeFile(folder.File("a"), 1'000'000), bytes);
    EXPECT_THROW(ReadWholeFile(folder.File("a"), 199'999), FileError);
    PutBytes(folder.File("a"), "");
    EXPECT_EQ(ReadWholeFile(folder.File("a"), 0), "");
}

TEST(ReadWholeFile, RefusesAMissingFileAndAFolder) {
    const TempFolder folder;
    EXPECT_THROW(ReadWholeFile(folder.File("missing"), 10), FileError);
    EXPECT_THROW(ReadWholeFile(folder.Name(), 10), FileError);
}

TEST(FileError, SaysFileLineAndCauseInOneSentence) {
    EXPECT_STREQ(FileError("a.tsg", "is empty").what(), "a.tsg: is empty.");
    const FileError onLine("a.tsg", 12, "is not a number");
    EXPECT_STREQ(onLine.what(), "a.tsg, line 12: is not a number.");
    EXPECT_EQ(onLine.Path(), "a.tsg");
    EXPECT_EQ(onLine.Line(), 12u);
    EXPECT_EQ(onLine.Cause(), "is not a number");
}

} // namespace
} // namespace tarveth
