// The lines of the transcripts: whose they are, and what a nickname's confirmation does.
#include "tests/net/TestClient.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(Transcript, ALineIsAnothersUnlessItBeginsWithANameAndAColon) {
    TestClient c;
    c.StartGame();
    c.Receive("Cid: hi\r\nAnn: hello\r\nBob: hey\r\nAnn is here\r\nBobby: no\r\nann: no\r\n: no\r\n");
    EXPECT_EQ(c.Lines(),
              (Strings{"others|Cid: hi", "mine|Ann: hello", "opponent|Bob: hey", "others|Ann is here",
                       "others|Bobby: no", "others|ann: no", "others|: no"}));
}

TEST(Transcript, WithoutAnOpponentNoLineIsTheOpponents) {
    TestClient c;
    c.Receive(": hm\r\nBob: hey\r\n");
    EXPECT_EQ(c.Lines(), (Strings{"others|: hm", "others|Bob: hey"}));
}

TEST(Transcript, TheOpponentsLineOverridesMine) {
    TestClient c;
    c.Receive("\251accept(Ann,Ann,yes)");
    c.Lines();
    c.Receive("Ann: who is it?\r\n");
    EXPECT_EQ(c.Lines(), Strings{"opponent|Ann: who is it?"});
}

TEST(Transcript, ANoticeOverridesBoth) {
    TestClient c;
    c.StartGame();
    c.Receive("\251sys(Ann: hello)\251sys(Bob: hello)");
    EXPECT_EQ(c.Lines(), (Strings{"notice|Ann: hello", "notice|Bob: hello"}));
}

TEST(Transcript, AnEmptyNoticeShowsNothing) {
    TestClient c;
    c.Receive("\251sys()\251refuse(Ann)");
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(Transcript, TheServerConfirmsANickname) {
    TestClient c;
    c.Receive("nickname set to Ann2\r\n");
    EXPECT_EQ(c.client.NickName(), "Ann2");
    EXPECT_EQ(c.window.caption, "Internet Tarveth (Ann2 vs. <nobody>)");
    EXPECT_EQ(c.Lines(), Strings{"others|nickname set to Ann2"});
    c.Receive("Ann2: hello\r\nAnn: hello\r\n");
    EXPECT_EQ(c.Lines(), (Strings{"mine|Ann2: hello", "others|Ann: hello"}));
}

TEST(Transcript, AConfirmationMayBeInAnyCaseAndANotice) {
    TestClient c;
    c.Receive("NickName SET To   Ann of Green  \r\n");
    EXPECT_EQ(c.client.NickName(), "Ann of Green");
    c.Receive("\251sys(Nickname set to Anna)");
    EXPECT_EQ(c.client.NickName(), "Anna");
}

TEST(Transcript, AConfirmationStandsAtTheStartOfALine) {
    TestClient c;
    c.Receive("Bob: nickname set to Bob\r\n nickname set to Bob\r\nnickname set to\r\nnickname set to  \r\n");
    EXPECT_EQ(c.client.NickName(), "Ann");
    c.Receive("nickname set to " + std::string(256, 'x') + "\r\n");
    EXPECT_EQ(c.client.NickName(), "Ann");
}

TEST(Transcript, ALineThatTheNetworkCutsIsShownWhenItIsWhole) {
    TestClient c;
    c.socket.TellData("Bob: good mor");
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_TRUE(c.window.chatTimer);
    c.socket.TellData("ning\r");
    c.socket.TellData("\nCid: hi\r\nDan:");
    EXPECT_EQ(c.Lines(), (Strings{"others|Bob: good morning", "others|Cid: hi"}));
    c.EndChatTimer();
    EXPECT_EQ(c.Lines(), Strings{"others|Dan:"});
    c.client.ShowKeptText();
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(Transcript, ACutLineCannotPassForTheServersWordOrAnotherPersons) {
    TestClient c;
    c.socket.TellData("Bob: ");
    c.socket.TellData("nickname set to Fool\r\nBob: ");
    c.socket.TellData("Ann: I give up\r\n");
    EXPECT_EQ(c.client.NickName(), "Ann");
    EXPECT_EQ(c.Lines(), (Strings{"others|Bob: nickname set to Fool", "others|Bob: Ann: I give up"}));
}

TEST(Transcript, TheRestOfALineThatIsTooLongIsNoLineOfItsOwn) {
    for (const std::size_t length : {2000U, 2001U, 5000U}) {
        TestClient c;
        c.socket.TellData(std::string(length, 'x'));
        c.socket.TellData("nickname set to Fool");
        c.EndChatTimer();
        c.socket.TellData("nickname set to Fool\r\nBob: hello\r\n");
        EXPECT_EQ(c.client.NickName(), "Ann") << length;
        const Strings lines = c.Lines();
        ASSERT_EQ(lines.size(), 2U) << length;
        EXPECT_TRUE(lines[0].starts_with("others|xxx"));
        EXPECT_EQ(lines[1], "others|Bob: hello");
    }
}

TEST(Transcript, WhatWaitsForItsRestIsShownWhenTheConnectionCloses) {
    TestClient c;
    c.socket.TellData("Good bye");
    c.socket.TellClose();
    EXPECT_EQ(c.Lines(), Strings{"others|Good bye"});
}

TEST(Transcript, AConfirmedNicknameIsNotKeptInTheSettings) {
    TestClient c;
    c.Receive("nickname set to Ann2\r\n");
    EXPECT_EQ(c.settings.Nickname, "Ann");
}

TEST(Transcript, AnOpponentsPrivateLineIsOneLine) {
    TestClient c;
    c.StartGame();
    c.Receive("\251play(Ann,X(hello\r\nCid: fool))");
    EXPECT_EQ(c.Lines(), Strings{"opponent|Bob:[p] helloCid: fool"});
}

} // namespace
} // namespace tarveth::test
