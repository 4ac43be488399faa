// Tests of the handshake, from the connection to a nickname that is announced to all.
#include "tests/server/TestLobby.h"

#include "version.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

TEST(Handshake, TheServerSpeaksFirst) {
    TestLobby t;
    EXPECT_EQ(t.Heard(t.Connect()), std::string("@update(") + kVersion + ")");
}

TEST(Handshake, ANicknameIsConfirmedAndTheUsersListed) {
    TestLobby t({}, "Welcome (all");
    t.Join("Bob");
    auto& ann = t.Connect();
    t.ForgetAll();
    t.Say(ann, "\251clientver(2.6.4)\251nick( Ann )\251sendnicks()");
    EXPECT_EQ(t.Heard(ann), "nickname set to Ann$@addnick(Bob,0)@addnick(Ann,0)@sys(Welcome [all)");
}

TEST(Handshake, TheLinesOfTheMessageOfTheDayStayApart) {
    TestLobby t({}, "One\r\n\nTwo \251\n");
    auto& ann = t.Connect();
    t.ForgetAll();
    t.Say(ann, "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_EQ(t.Heard(ann), "nickname set to Ann$@addnick(Ann,0)@sys(One)@sys(Two )");
}

TEST(Handshake, ArrivalsDeparturesAndRenamesAreAnnounced) {
    TestLobby t;
    auto& bob = t.Join("Bob");
    auto& ann = t.Connect();
    t.Say(ann, "\251clientver(2.6.4)");
    EXPECT_EQ(t.Heard(bob), "");
    t.Say(ann, "\251nick(Ann)");
    EXPECT_EQ(t.Heard(bob), "@addnick(Ann,0)");
    t.Say(ann, "\251nick(Anna)");
    EXPECT_EQ(t.Heard(bob), "@changenick(Ann,Anna,0)");
    t.Hang(ann);
    EXPECT_EQ(t.Heard(bob), "@removenick(Anna)");
}

TEST(Handshake, ArrivalsBeforeTheListIsAskedForAreToldOnlyOnce) {
    TestLobby t;
    auto& ann = t.Connect();
    t.Say(ann, "\251clientver(2.6.4)\251nick(Ann)");
    t.ForgetAll();
    t.Join("Bob");
    t.Say(ann, "\251sendnicks()");
    EXPECT_EQ(t.Heard(ann), "@addnick(Ann,0)@addnick(Bob,0)");
    t.Join("Cid");
    t.Say(ann, "\251sendnicks()");
    EXPECT_EQ(t.Heard(ann), "@addnick(Ann,0)@addnick(Bob,0)@addnick(Cid,0)");
}

TEST(Handshake, AUserWhoHasLeftIsNotListed) {
    TestLobby t;
    t.Join("Ann");
    t.Hang(t.Join("Bob"));
    auto& cid = t.Connect();
    t.ForgetAll();
    t.Say(cid, "\251clientver(2.6.4)\251nick(Cid)\251sendnicks()");
    EXPECT_EQ(t.Heard(cid), "nickname set to Cid$@addnick(Ann,0)@addnick(Cid,0)");
}

TEST(Handshake, ATakenNicknameGetsAVariantWhateverItsCase) {
    TestLobby t;
    t.Join("Ann");
    const std::vector<std::pair<std::string, std::string>> wantedAndGot = {
        {"ANN", "ANN2"}, {"ann", "ann3"}, {"A.n n", "A.n n4"}, {"\xC5\xF1n", "\xC5\xF1n5"}};
    for (const auto& [wanted, got] : wantedAndGot) {
        auto& other = t.Connect();
        t.ForgetAll();
        t.Say(other, "\251clientver(2.6.4)\251nick(" + wanted + ")");
        std::string told = "@sys(" + wanted;
        told.append(" is taken, so you are ")
            .append(got)
            .append(".)nickname set to ")
            .append(got)
            .append("$");
        EXPECT_EQ(t.Heard(other), told);
        EXPECT_EQ(t.lobby.FindUser(got), &other.session);
    }
}

TEST(Handshake, AThousandUsersMayAskForOneNickname) {
    TestLobby t;
    for (int i = 0; i < 1000; ++i)
        t.Join("Player");
    EXPECT_EQ(t.lobby.Users().size(), 1000U);
}

TEST(Handshake, ANicknameThatCanNotBeHadIsChangedAndSaid) {
    TestLobby t;
    auto& ann = t.Connect();
    t.ForgetAll();
    t.Say(ann, "\251clientver(2.6.4)\251nick(A,n|n)");
    EXPECT_EQ(t.Heard(ann),
              "@sys(That nickname can't be had as it stands, so you are Ann.)nickname set to Ann$");
}

TEST(Handshake, AUserMayChangeTheCaseOfTheirNickname) {
    TestLobby t;
    auto& ann = t.Join("ann");
    t.Say(ann, "\251nick(Ann)");
    EXPECT_EQ(t.Heard(ann), "nickname set to Ann$@changenick(ann,Ann,0)");
    t.Say(ann, "\251nick(Ann)");
    EXPECT_EQ(t.Heard(ann), "nickname set to Ann$");
}

TEST(Handshake, AFormerNicknameIsFreeAgain) {
    TestLobby t;
    auto& ann = t.Join("Ann");
    t.Say(ann, "\251nick(Anna)");
    EXPECT_EQ(t.Join("Ann").session.nick, "Ann");
}

TEST(Handshake, AClientThatIsTooOldIsToldAndDismissed) {
    for (const char* version : {"1.9.9", "0.10.37", "", "x.y.z", "2.-1.0", "99999999999.0.0"}) {
        TestLobby t;
        auto& ann = t.Connect();
        t.ForgetAll();
        t.Say(ann, "\251clientver(" + std::string(version) + ")\251nick(Ann)");
        EXPECT_EQ(t.Heard(ann), "@oldver()") << version;
        EXPECT_EQ(ann.session.stage, Stage::Dismissed);
        EXPECT_EQ(t.lobby.FindUser("Ann"), nullptr);
    }
}

TEST(Handshake, VersionsAreComparedAsOneNumber) {
    for (const char* version : {"2.0.0", "1.9.1000", "0.20.0", "2.6.4", "4.0.0", "2"}) {
        TestLobby t;
        auto& ann = t.Connect();
        t.Say(ann, "\251clientver(" + std::string(version) + ")");
        EXPECT_EQ(ann.session.stage, Stage::Versioned) << version;
    }
}

TEST(Handshake, AClientThatDoesNotCompleteItInTimeIsDismissed) {
    TestLobby t;
    auto& silent = t.Connect();
    auto& halfway = t.Connect();
    auto& ann = t.Join("Ann");
    t.Say(halfway, "\251clientver(2.6.4)\251nick(Bob)");
    t.Pass(14999ms);
    EXPECT_NE(silent.session.stage, Stage::Dismissed);
    t.ForgetAll();
    t.Pass(1ms);
    EXPECT_EQ(t.Heard(silent), "@sys(You took too long to say who you are.)");
    EXPECT_EQ(silent.session.stage, Stage::Dismissed);
    EXPECT_EQ(halfway.session.stage, Stage::Dismissed);
    EXPECT_EQ(t.Heard(ann), "@removenick(Bob)");
    EXPECT_TRUE(ann.session.IsUser());
    t.Pass(2000ms);
    EXPECT_TRUE(silent.session.cutOff);
    EXPECT_EQ(t.lobby.NextTimer(), std::nullopt);
}

TEST(Handshake, ADismissedClientIsNotHeard) {
    TestLobby t;
    auto& bob = t.Join("Bob");
    auto& ann = t.Join("Ann");
    t.ForgetAll();
    t.lobby.Dismiss(ann.session, "a test");
    t.Say(ann, "hello\r\n\251invite(Bob,Ann)");
    t.Pass(1000ms);
    EXPECT_EQ(t.Heard(bob), "@removenick(Ann)");
}

} // namespace
} // namespace tarveth
