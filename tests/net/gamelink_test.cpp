// The link to an opponent while a game lasts, and its end: what is asked, sent and told, with every byte.
#include "tests/net/Delivered.h"

namespace tarveth::test {
namespace {

class Link : public Delivered {};
INSTANTIATE_TEST_SUITE_P(Server, Link, kDeliveries, DeliveryName);

TEST_P(Link, ALateAcceptanceEndsTheOthersGameAndNotOurs) {
    TestClient c(GetParam());
    c.StartGame();
    EXPECT_EQ(c.Receive("\251accept(Ann,Cid,Cid has accepted your invitation.)"), "\251end(Cid,Ann)");
    EXPECT_EQ(c.Lines(), Strings{"notice|Cid has accepted your invitation, but you are in a game already."});
    EXPECT_EQ(c.client.OpponentNick(), "Bob");
    EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
}

TEST_P(Link, TheOpponentsAcceptanceSaidTwiceIsHeardOnce) {
    TestClient c(GetParam());
    c.StartGame();
    EXPECT_EQ(c.Receive("\251accept(Ann,Bob,again)"), "");
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST_P(Link, ALateRefusalDoesNotEndTheGame) {
    TestClient c(GetParam());
    c.StartGame();
    c.Receive("\251refuse(Ann, Cid has turned down your invitation.)");
    EXPECT_EQ(c.Lines(), Strings{"notice|Cid has turned down your invitation."});
    EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
}

void ExpectNoGame(const TestClient& c) {
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_EQ(c.client.OpponentNick(), "");
    EXPECT_EQ(c.window.caption, "Internet Tarveth (Ann vs. <nobody>)");
    EXPECT_FALSE(c.net.InGame);
    EXPECT_FALSE(c.window.inGame);
    EXPECT_TRUE(c.net.PlayingBlue);
    EXPECT_EQ(c.port.localSide, NoSide);
}

TEST_P(Link, EndsWhenTheOpponentBreaksIt) {
    TestClient c(GetParam());
    c.window.answers = {true};
    c.Receive("\251invite(Ann,Bob)");
    c.Lines();
    EXPECT_EQ(c.Receive("\251end(Ann,Bob)"), "");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has broken the connection with you."});
    ExpectNoGame(c);
}

TEST_P(Link, EndsOnce) {
    TestClient c(GetParam());
    c.StartGame();
    c.Receive("\251end(Ann,Bob)\251end(Ann,Bob)\251removenick(Bob)");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has broken the connection with you."});
    EXPECT_EQ(c.Receive("\251end(Ann,Bob)"), "");
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST_P(Link, EndsWhenWeBreakIt) {
    TestClient c(GetParam());
    c.StartGame();
    c.client.Break();
    EXPECT_EQ(c.Sent(), "\251end(Bob,Ann)");
    EXPECT_EQ(c.Lines(), Strings{"notice|You have broken the connection with Bob."});
    ExpectNoGame(c);
    c.client.Break();
    EXPECT_EQ(c.Sent(), "");
}

TEST_P(Link, EndsWhenTheOpponentLeavesWithoutAWord) {
    TestClient c(GetParam());
    c.StartGame();
    c.Receive("\251addnick(Bob,1)\251removenick(Cid)\251removenick(Bob)\251end(Ann,Bob)");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has left."});
    EXPECT_EQ(c.client.Users().Entries(), Strings{});
    ExpectNoGame(c);
}

TEST_P(Link, FollowsTheOpponentToAnotherNickname) {
    TestClient c(GetParam());
    c.StartGame();
    c.Receive("\251changenick(Bob,Robert,1)");
    EXPECT_EQ(c.client.OpponentNick(), "Robert");
    EXPECT_EQ(c.window.caption, "Internet Tarveth (Ann vs. Robert)");
    EXPECT_EQ(c.Enter("/p hello"), "\251play(Robert,X(hello))");
}

TEST_P(Link, PlayIsHeardInAGameOnly) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251play(Ann,X(hello))\251play(Ann,C(board))"), "");
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_EQ(c.game.GameState, kPickPiece);
    c.StartGame();
    c.Receive("\251play(Ann,X(hello))");
    EXPECT_EQ(c.Lines(), Strings{"opponent|Bob:[p] hello"});
}

TEST_P(Link, ABoardArrivesAndIsPlayedOn) {
    TestClient c(GetParam());
    c.window.answers = {true};
    c.Receive("\251invite(Ann,Bob)");
    c.Receive("\251play(Ann,C(board))");
    EXPECT_EQ(c.game.GameState, kGetBoard);
    c.Receive("\251play(Ann,T(2))\251play(Ann,C(play))");
    EXPECT_EQ(c.game.GameState, kPickPiece);
    EXPECT_EQ(c.game.Turn, Red);
}

TEST_P(Link, SwapIsDoneAndSent) {
    TestClient c(GetParam());
    c.StartGame();
    c.client.Swap();
    EXPECT_EQ(c.Sent(), "\251play(Bob,C(swap))");
    EXPECT_FALSE(c.net.PlayingBlue);
    EXPECT_EQ(c.Receive("\251play(Ann,C(swap))"), "");
    EXPECT_TRUE(c.net.PlayingBlue);
}

TEST_P(Link, WithoutAnOpponentNothingIsSwapped) {
    TestClient c(GetParam());
    c.client.Swap();
    EXPECT_EQ(c.Sent(), "");
    EXPECT_TRUE(c.net.PlayingBlue);
}

// An invitation that is not answered yet makes no opponent.
TEST_P(Link, HearsNothingOfAGameWhileItIsInviting) {
    TestClient c(GetParam());
    c.Receive("\251addnick(Ann,0)\251addnick(Bob,0)");
    c.client.SelectUser(1);
    c.client.Invite();
    ASSERT_EQ(c.Sent(), "\251invite(Bob,Ann)");
    const Game before = c.game;
    c.Lines();
    EXPECT_EQ(c.Receive("\251play(Ann,X(hello))\251play(Ann,C(board))\251play(Ann,M(4, 5))"), "");
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_EQ(c.game, before);
}

} // namespace
} // namespace tarveth::test
