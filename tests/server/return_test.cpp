// Tests of users whose connection has ended, and who come back.
#include "tests/server/TestLobby.h"

#include <gtest/gtest.h>

#include <map>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

struct Return : testing::Test {
    TestLobby t;
    TestConnection& ann = t.Join("Ann", "192.0.2.1");
    TestConnection& bob = t.Join("Bob", "192.0.2.2");
};

TEST_F(Return, TheNicknameOfAUserWhoWasCutOffIsKeptForTheirAddress) {
    t.Hang(ann);
    t.Pass(59s);
    EXPECT_EQ(t.Join("Ann", "192.0.2.3").session.nick, "Ann2");
    EXPECT_EQ(t.Join("A.n.n", "192.0.2.3").session.nick, "A.n.n3");
    EXPECT_EQ(t.Join("Ann", "192.0.2.1").session.nick, "Ann");
}

TEST_F(Return, OneNetworkOfIPv6IsOneAddress) {
    t.Hang(t.Join("Cid", "2001:db8::1"));
    EXPECT_EQ(t.Join("Cid", "2001:db8:0:1::1").session.nick, "Cid2");
    EXPECT_EQ(t.Join("Cid", "2001:db8::ffff").session.nick, "Cid");
}

TEST_F(Return, AfterAMinuteTheNicknameIsFree) {
    t.Hang(ann);
    t.Pass(60s);
    EXPECT_EQ(t.Join("Ann", "192.0.2.3").session.nick, "Ann");
}

TEST_F(Return, WhoWasPutOutFindsTheNicknameFree) {
    t.lobby.PutOut(ann.session, "Out", "a test");
    EXPECT_EQ(t.Join("Ann", "192.0.2.3").session.nick, "Ann");
}

TEST_F(Return, ThePartnerIsToldOfTheEndAndOfTheReturn) {
    t.StartGame(ann, bob);
    t.Hang(ann);
    EXPECT_EQ(t.Heard(bob), "@end(Bob,Ann)@changenick(Bob,Bob,0)@removenick(Ann)");
    auto& back = t.Connect("192.0.2.1");
    t.Say(back, "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_EQ(t.Heard(bob),
              "@addnick(Ann,0)@sys(Ann is back. Invite them to go on with the game on your board.)");
    t.StartGame(bob, back);
    EXPECT_EQ(bob.session.partner, &back.session);
}

TEST_F(Return, APartnerWhoPlaysWithSomebodyElseIsToldWithoutAnOffer) {
    auto& cid = t.Join("Cid");
    t.StartGame(ann, bob);
    t.Hang(ann);
    t.StartGame(bob, cid);
    t.Join("Dan");
    auto& back = t.Connect("192.0.2.1");
    t.Say(back, "\251clientver(2.6.4)\251nick(Ann)");
    EXPECT_EQ(t.Heard(bob), "@addnick(Ann,0)@sys(Ann is back.)");
}

TEST_F(Return, APartnerWhoHasLeftIsNotTold) {
    t.StartGame(ann, bob);
    t.Hang(ann);
    t.Hang(bob);
    auto& back = t.Join("Ann", "192.0.2.1");
    EXPECT_EQ(back.session.nick, "Ann");
}

TEST_F(Return, OnlyTheLastOfTwoPartnersWhoWereCutOffIsRemembered) {
    t.StartGame(ann, bob);
    t.Hang(ann);
    auto& cid = t.Join("Cid", "192.0.2.3");
    t.StartGame(bob, cid);
    t.Hang(cid);
    t.Hang(bob);
    EXPECT_EQ(t.Join("Ann", "192.0.2.1").session.nick, "Ann");
    EXPECT_EQ(t.Join("Cid", "192.0.2.3").session.nick, "Cid");
}

// Connections whose systems acknowledge nothing any more, unless the test says so.
struct Ghost : Return {
    Ghost() {
        t.lobby.SetAcknowledged([this](const Session& session) { return acknowledged[&session]; });
    }
    TestConnection& ConnectAgain() {
        auto& again = t.Connect("192.0.2.1");
        t.Say(again, "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
        return again;
    }
    std::map<const Session*, std::uint64_t> acknowledged;
};

TEST_F(Ghost, IsClosedAndTheNewcomerGetsTheNickname) {
    auto& again = ConnectAgain();
    EXPECT_EQ(again.session.nick, "Ann2");
    EXPECT_FALSE(ann.session.cutOff);
    t.ForgetAll();
    t.Pass(5s);
    ASSERT_TRUE(ann.session.cutOff); // the transport closes it
    t.Hang(ann);
    EXPECT_EQ(again.session.nick, "Ann");
    EXPECT_EQ(t.Heard(again), "@removenick(Ann)@sys(Ann is free again, so you are Ann now.)nickname set to "
                              "Ann$@changenick(Ann2,Ann,0)");
    EXPECT_EQ(t.Heard(bob), "@removenick(Ann)@changenick(Ann2,Ann,0)");
}

TEST_F(Ghost, InAGameIsReportedToThePartnerAndSoIsTheReturn) {
    t.StartGame(ann, bob);
    ConnectAgain();
    t.Pass(5s);
    t.ForgetAll();
    t.Hang(ann);
    EXPECT_EQ(t.Heard(bob), "@end(Bob,Ann)@changenick(Bob,Bob,0)@removenick(Ann)@changenick(Ann2,Ann,0)"
                            "@sys(Ann is back. Invite them to go on with the game on your board.)");
}

TEST_F(Ghost, AUserWhoIsThereKeepsTheNickname) {
    auto& again = ConnectAgain();
    acknowledged[&ann.session] = 1;
    t.Pass(5s);
    acknowledged[&ann.session] = 2;
    t.Pass(60s);
    EXPECT_FALSE(ann.session.cutOff);
    EXPECT_EQ(ann.session.nick, "Ann");
    EXPECT_EQ(again.session.nick, "Ann2");
}

TEST_F(Ghost, AnAcknowledgementOfWhatWasSentBeforeIsNoSignOfLife) {
    auto& again = ConnectAgain();
    acknowledged[&ann.session] = 1;
    t.Pass(5s);
    EXPECT_FALSE(ann.session.cutOff);
    t.Pass(5s);
    EXPECT_TRUE(ann.session.cutOff);
    t.Hang(ann);
    EXPECT_EQ(again.session.nick, "Ann");
}

TEST_F(Ghost, SomebodyFromElsewhereStartsNoCheck) {
    auto& other = t.Connect("192.0.2.7");
    t.Say(other, "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    t.Pass(60s);
    EXPECT_FALSE(ann.session.cutOff);
    t.Hang(ann);
    EXPECT_EQ(other.session.nick, "Ann2");
}

TEST_F(Ghost, ANewcomerWhoHasChosenAnotherNicknameKeepsIt) {
    auto& again = ConnectAgain();
    t.Say(again, "\251nick(Eve)");
    t.Pass(5s);
    t.Hang(ann);
    EXPECT_EQ(again.session.nick, "Eve");
}

TEST_F(Ghost, ANewcomerWhoHasLeftGetsNothing) {
    t.Hang(ConnectAgain());
    t.Pass(5s);
    t.Hang(ann);
    EXPECT_EQ(t.Join("Ann", "192.0.2.1").session.nick, "Ann");
}

} // namespace
} // namespace tarveth
