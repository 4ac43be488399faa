// Where the dialogs of games begin for a game whose folder takes no files.
#include "storage/gamefiles.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

// /proc takes no file from anybody, not even from root.
TEST(DialogStart, SavesOnlyWhereOneCanWrite) {
    const TempFolder folder;
    const std::string here = folder.Path().string();
    const std::string shipped = "/proc/self/status";
    using Start = std::pair<std::string, std::string>;
    using enum FileQuestion::Purpose;
    EXPECT_EQ(DialogStart({.purpose = Save, .folder = here, .name = shipped}), Start(here, "status"));
    EXPECT_EQ(DialogStart({.purpose = Open, .folder = here, .name = shipped}), Start("/proc/self", "status"));
}

} // namespace
} // namespace tarveth::test
