// servers.txt: what a line says, what is forgiven, and where the file is looked for.
#include "net/serverlist.h"

#include "fuzz/servers_property.h"
#include "platform/file_error.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using Servers = std::vector<Server>;

TEST(ServerList, ALineIsADescriptionACommaAndAnAddress) {
    EXPECT_EQ(ParseServerList("This computer,127.0.0.1\r\nHome,10.0.0.2\r\n"),
              (Servers{{"This computer", "127.0.0.1"}, {"Home", "10.0.0.2"}}));
}

TEST(ServerList, BlanksAroundTheLineAndItsFieldsAreTakenOff) {
    EXPECT_EQ(ParseServerList("  This computer  ,  127.0.0.1  \r\n"),
              (Servers{{"This computer", "127.0.0.1"}}));
}

TEST(ServerList, CommentsAndEmptyLinesAreSkipped) {
    EXPECT_EQ(ParseServerList("; a comment,1\r\n   ; another,2\r\n\r\n   \r\n"), Servers{});
    EXPECT_EQ(ParseServerList("a ; b,1\r\n"), (Servers{{"a ; b", "1"}}));
}

TEST(ServerList, WithoutACommaTheAddressIsEmpty) {
    EXPECT_EQ(ParseServerList("nowhere\r\n"), (Servers{{"nowhere", ""}}));
}

TEST(ServerList, FieldsBehindTheSecondAreIgnored) {
    EXPECT_EQ(ParseServerList("a,1,2,3\r\n"), (Servers{{"a", "1"}}));
}

TEST(ServerList, CommasInParenthesesAndQuotesStayInTheDescription) {
    EXPECT_EQ(ParseServerList("Home (left, right),1\r\n"), (Servers{{"Home (left, right)", "1"}}));
    EXPECT_EQ(ParseServerList("\"Home, sweet\",1\r\n"), (Servers{{"\"Home, sweet\"", "1"}}));
}

TEST(ServerList, AnyLineEndsWillDo) {
    const Servers two{{"a", "1"}, {"b", "2"}};
    for (const char* text : {"a,1\r\nb,2\r\n", "a,1\nb,2\n", "a,1\rb,2\r", "a,1\nb,2"})
        EXPECT_EQ(ParseServerList(text), two) << text;
}

TEST(ServerList, TheMarkOfAnEditorIsNoPartOfTheFirstLine) {
    EXPECT_EQ(ParseServerList("\xEF\xBB\xBF; comment\r\na,1\r\n"), (Servers{{"a", "1"}}));
}

TEST(ServerList, IsReadFromTheFirstFolderThatHasOne) {
    const TempFolder user;
    const TempFolder program;
    EXPECT_EQ(ReadServerList({user.Name(), program.Name()}), Servers{});
    PutBytes(program.File("servers.txt"), "shipped,1\r\n");
    EXPECT_EQ(ReadServerList({user.Name(), program.Name()}), (Servers{{"shipped", "1"}}));
    PutBytes(user.File("servers.txt"), "own,2\r\n");
    EXPECT_EQ(ReadServerList({user.Name(), program.Name()}), (Servers{{"own", "2"}}));
}

TEST(ServerList, OfMoreThanAMebibyteIsRefused) {
    const TempFolder folder;
    PutBytes(folder.File("servers.txt"), std::string((1 << 20) + 1, ';'));
    EXPECT_THROW(ReadServerList({folder.Name()}), platform::FileError);
}

TEST(ServerListCorpus, EveryServerReadsBackAsItIsWritten) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/servers")) {
        EXPECT_EQ(ServerListFault(GetBytes(entry.path().string())), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 4);
}

} // namespace
} // namespace tarveth
