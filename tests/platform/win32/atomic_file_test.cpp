// Atomic files where files have rights of their own, and are locked by whoever has them open.
#include "platform/atomic_file.h"

#include "platform/win32/wide_text.h"
#include "tests/platform/TempFolder.h"
#include "tests/platform/WriteFails.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <windows.h>

#include <sddl.h>

namespace tarveth {
namespace {

using platform::WriteFileAtomically;

class AtomicFileHere : public testing::Test {
protected:
    AtomicFileHere() { PutBytes(file, "old"); }

    HANDLE OpenForReading() const {
        return CreateFileW(wide.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    }

    std::wstring Rights() const {
        std::vector<unsigned char> rights(4096);
        DWORD size = 0;
        EXPECT_TRUE(GetFileSecurityW(wide.c_str(), DACL_SECURITY_INFORMATION, rights.data(), 4096, &size));
        wchar_t* text = nullptr;
        EXPECT_TRUE(ConvertSecurityDescriptorToStringSecurityDescriptorW(
            rights.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr));
        const std::wstring copy = text;
        LocalFree(text);
        return copy;
    }

    const TempFolder folder;
    const std::string file = folder.File("a");
    const std::wstring wide = platform::WideFromText(file);
};

TEST_F(AtomicFileHere, TheOldFilesRightsStay) {
    const std::wstring usual = Rights();
    PSECURITY_DESCRIPTOR forAll = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(A;;FA;;;WD)", SDDL_REVISION_1,
                                                                     &forAll, nullptr));
    ASSERT_TRUE(SetFileSecurityW(wide.c_str(), DACL_SECURITY_INFORMATION, forAll));
    LocalFree(forAll);
    const std::wstring before = Rights();
    ASSERT_NE(before, usual);
    WriteFileAtomically(file, "new");
    EXPECT_EQ(Rights(), before);
    EXPECT_EQ(GetBytes(file), "new");
}

TEST_F(AtomicFileHere, AFileThatAnotherProgramReadsForAMomentIsReplacedThen) {
    const HANDLE reader = OpenForReading();
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    std::thread closing([reader] {
        Sleep(120);
        CloseHandle(reader);
    });
    WriteFileAtomically(file, "new");
    closing.join();
    EXPECT_EQ(GetBytes(file), "new");
}

TEST_F(AtomicFileHere, AFileThatAnotherProgramKeepsOpenIsRefusedAndLeftAlone) {
    const HANDLE reader = OpenForReading();
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(WriteFails(file, "new"));
    CloseHandle(reader);
    EXPECT_EQ(GetBytes(file), "old");
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(AtomicFileHere, AWriteProtectedFileIsRefusedAndLeftAlone) {
    ASSERT_TRUE(SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(WriteFails(file, "new"));
    EXPECT_EQ(GetBytes(file), "old");
    EXPECT_EQ(folder.FileCount(), 1U);
    SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_NORMAL);
}

} // namespace
} // namespace tarveth
