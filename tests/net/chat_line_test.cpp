// The line that is typed: who is to read it, and how it goes out.
#include "tests/net/TestClient.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(ChatLine, GoesToAllAsItStands) {
    TestClient c;
    EXPECT_EQ(c.Enter("hello, all :-)"), "hello, all :-)");
    EXPECT_EQ(c.Enter(" (two blanks)  "), " (two blanks)  ");
    EXPECT_EQ(c.Lines(), Strings{}); // it comes back from the server
}

TEST(ChatLine, AnEmptyOneGoesNowhere) {
    TestClient c;
    c.StartGame();
    EXPECT_EQ(c.Enter(""), "");
    EXPECT_EQ(c.Enter("/p "), "");
    c.client.SetPrivateMode(true);
    EXPECT_EQ(c.Enter(""), "");
    EXPECT_EQ(c.Enter("/g "), "");
    EXPECT_EQ(c.socket.sent.size(), 0U);
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(ChatLine, WithSlashPGoesToTheOpponent) {
    TestClient c;
    c.StartGame();
    EXPECT_EQ(c.Enter("/p well, well"), "\251play(Bob,X(well, well))");
    EXPECT_EQ(c.Lines(), Strings{"mine|Ann:[p] well, well"});
}

TEST(ChatLine, SlashPMayBeInAnyCaseAndNeedsItsBlank) {
    TestClient c;
    c.StartGame();
    EXPECT_EQ(c.Enter("/P hello"), "\251play(Bob,X(hello))");
    EXPECT_EQ(c.Enter("/phello"), "/phello");
    EXPECT_EQ(c.Enter("/p"), "/p");
    EXPECT_EQ(c.Enter(" /p hello"), " /p hello");
}

TEST(ChatLine, WithSlashGInGeneralModeGoesAsItStands) {
    TestClient c;
    EXPECT_EQ(c.Enter("/g hello"), "/g hello");
}

TEST(ChatLine, InPrivateModeGoesToTheOpponent) {
    TestClient c;
    c.StartGame();
    c.client.SetPrivateMode(true);
    EXPECT_EQ(c.Enter("hello"), "\251play(Bob,X(hello))");
    EXPECT_EQ(c.Enter("/p hello"), "\251play(Bob,X(hello))");
    EXPECT_EQ(c.Lines(), (Strings{"mine|Ann:[p] hello", "mine|Ann:[p] hello"}));
}

TEST(ChatLine, InPrivateModeWithSlashGGoesToAllWithoutIt) {
    TestClient c;
    c.StartGame();
    c.client.SetPrivateMode(true);
    EXPECT_EQ(c.Enter("/g hello"), "hello");
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(ChatLine, APrivateOneWithoutAnOpponentIsSeenByNobody) {
    TestClient c;
    EXPECT_EQ(c.Enter("/p hello"), "");
    EXPECT_EQ(c.Lines(),
              (Strings{"mine|Ann:[p] hello", "notice|Nobody has seen that line: you have no opponent."}));
}

TEST(ChatLine, PrivateParenthesesAreBalancedAsShownAndSent) {
    TestClient c;
    c.StartGame();
    EXPECT_EQ(c.Enter("/p :-) (or (so)"), "\251play(Bob,X(:-] [or (so)))");
    EXPECT_EQ(c.Lines(), Strings{"mine|Ann:[p] :-] [or (so)"});
}

TEST(ChatLine, HoldsNoMarkers) {
    TestClient c;
    c.StartGame();
    EXPECT_EQ(c.Enter("\251nick(Bob) \251 2026"), "(c)nick(Bob) (c) 2026");
    EXPECT_EQ(c.Enter("/p \251 2026"), "\251play(Bob,X((c) 2026))");
}

TEST(ChatLine, TheModeIsShownAndBeginsAsGeneral) {
    TestClient c;
    EXPECT_FALSE(c.client.PrivateMode());
    c.client.SetPrivateMode(true);
    EXPECT_TRUE(c.client.PrivateMode());
    EXPECT_TRUE(c.window.privateMode);
    c.client.Close();
    c.client.Open(c.window, c.window, c.socket);
    EXPECT_FALSE(c.client.PrivateMode());
    EXPECT_FALSE(c.window.privateMode);
}

TEST(Nickname, IsAskedForKeptAndSent) {
    TestClient c;
    c.window.text = "  J\xF6rg ";
    c.client.ChangeNickname();
    EXPECT_EQ(c.window.questions, Strings{"Nickname|Enter your preferred nickname:"});
    EXPECT_EQ(c.window.proposal, "Ann");
    EXPECT_EQ(c.Sent(), "\251nick(J\xF6rg)");
    EXPECT_EQ(c.client.NickName(), "J\xF6rg");
    EXPECT_EQ(c.settings.Nickname, "J\u00F6rg");
    EXPECT_EQ(c.window.caption, "Internet Tarveth (J\xF6rg vs. <nobody>)");
}

TEST(Nickname, AnEmptyOrBlankAnswerOrNoneChangesNothing) {
    TestClient c;
    for (const std::optional<std::string>& answer : {std::optional<std::string>(), {""}, {"   "}}) {
        c.window.text = answer;
        c.client.ChangeNickname();
        EXPECT_EQ(c.Sent(), "");
        EXPECT_EQ(c.client.NickName(), "Ann");
        EXPECT_EQ(c.settings.Nickname, "Ann");
    }
}

TEST(Nickname, IsMadeFitForTheWire) {
    TestClient c;
    c.window.text = "A(n),n\251a";
    c.client.ChangeNickname();
    EXPECT_EQ(c.Sent(), "\251nick(Anna)");
    EXPECT_EQ(c.client.NickName(), "Anna");
}

TEST(Victory, IsToldToAllByTheWinnersAndTheLosersProgram) {
    TestClient c;
    c.StartGame();
    c.client.AnnounceVictory(true);
    EXPECT_EQ(c.Sent(), "*** Ann (playing Blue) has defeated Bob! ***");
    c.client.AnnounceVictory(false);
    EXPECT_EQ(c.Sent(), "*** Bob (playing Red) has defeated Ann! ***");
    c.client.Swap();
    c.Sent();
    c.client.AnnounceVictory(true);
    EXPECT_EQ(c.Sent(), "*** Bob (playing Blue) has defeated Ann! ***");
    c.client.AnnounceVictory(false);
    EXPECT_EQ(c.Sent(), "*** Ann (playing Red) has defeated Bob! ***");
}

} // namespace
} // namespace tarveth::test
