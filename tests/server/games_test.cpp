// Tests of invitations, and of the games that follow from them.
#include "tests/server/TestLobby.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

struct Three : testing::Test {
    TestLobby t;
    TestConnection& ann = t.Join("Ann");
    TestConnection& bob = t.Join("Bob");
    TestConnection& cid = t.Join("Cid");
};

using Invitations = Three;
using Games = Three;

TEST_F(Invitations, AnInvitationReachesTheUserItNames) {
    t.Say(ann, "\251invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "@invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(cid), "");
    EXPECT_EQ(t.Heard(ann), "");
}

TEST_F(Invitations, TheSenderIsNamedByTheLobby) {
    t.Say(ann, "\251invite(bob,Cid)");
    EXPECT_EQ(t.Heard(bob), "@invite(Bob,Ann)");
    t.Say(bob, "\251accept(ann,Cid,Cid has accepted)");
    EXPECT_EQ(t.Heard(ann),
              "@accept(Ann,Bob,Bob: Cid has accepted)@changenick(Ann,Ann,1)@changenick(Bob,Bob,1)");
}

TEST_F(Invitations, AnAbsentUserRefuses) {
    t.Say(ann, "\251invite(Dan,Ann)");
    EXPECT_EQ(t.Heard(ann), "@refuse(Ann, Dan is not here.)");
}

TEST_F(Invitations, AnInvitationOfOneselfIsRefusedWhateverTheCase) {
    t.Say(ann, "\251invite(ANN,Ann)");
    EXPECT_EQ(t.Heard(ann), "@refuse(Ann, You can't invite yourself to a game.)");
}

TEST_F(Invitations, ARefusalReachesTheInviter) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.Say(bob, "\251refuse(Ann, Bob has turned down your invitation.)");
    EXPECT_EQ(t.Heard(ann), "@refuse(Ann, Bob: Bob has turned down your invitation.)");
    t.Say(bob, "\251refuse(Ann, Bob has turned down your invitation.)");
    EXPECT_EQ(t.Heard(ann), "");
}

TEST_F(Invitations, ARefusalWithoutAnInvitationReachesNobody) {
    t.Say(bob, "\251refuse(Ann, Bob is rude)");
    EXPECT_EQ(t.Heard(ann), "");
}

TEST_F(Invitations, ARefusalThatDoesNotNameItsSenderIsSigned) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.Say(bob, "\251refuse(Ann, nickname set to x\r\nThe server is down)");
    EXPECT_EQ(t.Heard(ann), "@refuse(Ann, Bob: nickname set to xThe server is down)");
}

TEST_F(Invitations, ASecondInvitationOfTheSameUserIsNotSentWhileTheFirstIsOpen) {
    t.Say(ann, "\251invite(Bob,Ann)\251invite(bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "@invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(ann), "@sys(Bob has not answered your first invitation yet.)");
    t.Say(bob, "\251refuse(Ann, no)");
    t.Say(ann, "\251invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "@invite(Bob,Ann)");
}

TEST_F(Invitations, AnAnswerToAnInviterWhoHasRenamedReachesThem) {
    t.Say(ann, "\251invite(Bob,Ann)\251nick(Zed)");
    auto& other = t.Join("Ann");
    t.Say(other, "\251invite(Bob,Ann)");
    t.ForgetAll();
    t.Say(bob, "\251refuse(Ann, no)");
    EXPECT_EQ(t.Heard(ann), "@refuse(Zed, Bob: no)");
    EXPECT_EQ(t.Heard(other), "");
    t.Say(bob, "\251accept(Ann,Bob,yes)");
    EXPECT_EQ(other.session.partner, &bob.session);
}

TEST_F(Invitations, AnInvitationOfAUserWhoHasRenamedCanBeTakenBack) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.Say(bob, "\251nick(Rob)");
    t.Say(ann, "\251end(Bob,Ann)");
    t.Say(bob, "\251accept(Ann,Rob,yes)");
    EXPECT_EQ(bob.session.partner, nullptr);
}

TEST_F(Invitations, TheAcceptingProgramMayGoOnToNameTheInviterAsInTheInvitation) {
    t.Say(ann, "\251invite(Bob,Ann)\251nick(Zed)");
    t.Say(bob, "\251accept(Ann,Bob,yes)");
    t.ForgetAll();
    t.Say(bob, "\251play(Ann,M(1,2))");
    EXPECT_EQ(t.Heard(ann), "@play(Zed,M(1,2))");
}

TEST_F(Invitations, AnAcceptanceOfAnyLengthReachesTheInviter) {
    t.Say(ann, "\251invite(Bob,Ann)");
    const std::string accept = "accept(Ann,Bob," + std::string(32767 - 16, 'x') + ")";
    ASSERT_EQ(accept.size(), 32767U);
    t.Say(bob, "\251" + accept);
    const std::string heard = t.Heard(ann);
    const std::string message = heard.substr(1, heard.find(')'));
    EXPECT_TRUE(message.starts_with("accept(Ann,Bob,Bob: xxx"));
    EXPECT_LE(message.size(), 32767U);
    EXPECT_EQ(ann.session.partner, &bob.session);
}

TEST_F(Invitations, AnAcceptanceWithoutAnInvitationIsUndone) {
    t.Say(bob, "\251accept(Ann,Bob,Bob accepts)");
    EXPECT_EQ(t.Heard(ann), "");
    EXPECT_EQ(t.Heard(bob), "@end(Bob,Ann)@sys(That invitation does not stand any more.)");
    EXPECT_EQ(bob.session.partner, nullptr);
}

TEST_F(Invitations, TheInviterCanNotAcceptForTheInvitee) {
    t.Say(ann, "\251invite(Bob,Ann)\251accept(Bob,Ann,Ann accepts)");
    EXPECT_EQ(ann.session.partner, nullptr);
}

TEST_F(Invitations, AnInvitationEndsWhenItsInviterBeginsAnotherGame) {
    t.Say(ann, "\251invite(Bob,Ann)\251invite(Cid,Ann)");
    t.Say(cid, "\251accept(Ann,Cid,Cid accepts)");
    t.ForgetAll();
    t.Say(bob, "\251accept(Ann,Bob,Bob accepts)");
    EXPECT_EQ(t.Heard(bob), "@end(Bob,Ann)@sys(That invitation does not stand any more.)");
    EXPECT_EQ(t.Heard(ann), "");
    EXPECT_EQ(ann.session.partner, &cid.session);
}

TEST_F(Invitations, ALateRefusalDoesNotReachAUserInAGame) {
    t.Say(cid, "\251invite(Bob,Cid)");
    t.StartGame(ann, cid);
    t.Say(bob, "\251refuse(Cid, Bob has turned down your invitation.)");
    EXPECT_EQ(t.Heard(cid), "");
}

TEST_F(Invitations, AnInvitedUserWhoLeavesRefuses) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.Hang(bob);
    EXPECT_EQ(t.Heard(ann), "@refuse(Ann, Bob has left.)@removenick(Bob)");
}

TEST_F(Invitations, AnInvitationIsForgottenWhenItsInviterGoes) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.Hang(ann);
    t.Join("Ann");
    t.ForgetAll();
    t.Say(bob, "\251accept(Ann,Bob,Bob accepts)");
    EXPECT_EQ(bob.session.partner, nullptr);
}

TEST_F(Invitations, AnInvitationCanBeTakenBack) {
    t.Say(ann, "\251invite(Bob,Ann)\251end(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "@invite(Bob,Ann)@end(Bob,Ann)");
    t.Say(bob, "\251accept(Ann,Bob,Bob accepts)");
    EXPECT_EQ(bob.session.partner, nullptr);
    t.ForgetAll();
    t.Say(ann, "\251end(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Invitations, TheSeventeenthTakesThePlaceOfTheFirst) {
    t.Say(ann, "\251invite(Bob,Ann)");
    std::deque<TestConnection*> others;
    for (int i = 0; i < 16; ++i) {
        others.push_back(&t.Join("X" + std::to_string(i)));
        t.Pass(std::chrono::seconds(12));
        t.Say(ann, "\251invite(X" + std::to_string(i) + ",Ann)");
    }
    EXPECT_TRUE(bob.session.invitedBy.empty());
    EXPECT_EQ(others.front()->session.invitedBy.size(), 1U);
}

TEST_F(Invitations, AUserInAGameCanNotInvite) {
    t.StartGame(ann, bob);
    t.Say(ann, "\251invite(Cid,Ann)");
    EXPECT_EQ(t.Heard(ann), "@sys(You are in a game already.)");
    EXPECT_EQ(t.Heard(cid), "");
}

TEST_F(Invitations, AUserInAGameCanNotAccept) {
    t.Say(cid, "\251invite(Bob,Cid)");
    t.StartGame(ann, bob);
    t.Say(bob, "\251accept(Cid,Bob,Bob accepts)");
    EXPECT_EQ(t.Heard(bob), "@sys(You are in a game already.)");
    EXPECT_EQ(bob.session.partner, &ann.session);
}

TEST_F(Invitations, AUserInAGameCanBeInvitedAndTheirProgramRefuses) {
    t.StartGame(ann, bob);
    t.Say(cid, "\251invite(Ann,Cid)");
    EXPECT_EQ(t.Heard(ann), "@invite(Ann,Cid)");
    t.Say(ann, "\251refuse(Cid, [Auto] Ann is in a game already.)");
    EXPECT_EQ(t.Heard(cid), "@refuse(Cid, Ann: [Auto] Ann is in a game already.)");
}

TEST_F(Games, BothPlayersHaveTheSignOfAGame) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.Say(bob, "\251accept(Ann,Bob,Bob has accepted your invitation. Play may begin.)");
    EXPECT_EQ(t.Heard(cid), "@changenick(Ann,Ann,1)@changenick(Bob,Bob,1)");
    t.Say(cid, "\251sendnicks()");
    EXPECT_EQ(t.Heard(cid), "@addnick(Ann,1)@addnick(Bob,1)@addnick(Cid,0)");
    t.Say(bob, "\251end(Ann,Bob)");
    EXPECT_EQ(t.Heard(cid), "@changenick(Ann,Ann,0)@changenick(Bob,Bob,0)");
}

TEST_F(Games, WhatIsPlayedReachesThePartnerUntouched) {
    t.StartGame(ann, bob);
    t.Say(ann, "\251play(Bob,M(1, 2)M(3,4))\251play(Bob,X(so, (\"so\r\n)))");
    EXPECT_EQ(t.Heard(bob), "@play(Bob,M(1, 2)M(3,4))@play(Bob,X(so, (\"so$)))");
    t.Say(bob, "\251play(Ann,C(swap))");
    EXPECT_EQ(t.Heard(ann), "@play(Ann,C(swap))");
}

TEST_F(Games, WhatIsPlayedReachesNobodyElse) {
    t.StartGame(ann, bob);
    t.Say(ann, "\251play(Cid,M(1,2))");
    t.Say(cid, "\251play(Ann,M(1,2))");
    EXPECT_EQ(t.Heard(ann) + t.Heard(bob) + t.Heard(cid), "");
}

TEST_F(Games, AnInvitationAloneIsNoGame) {
    t.Say(ann, "\251invite(Bob,Ann)");
    t.ForgetAll();
    t.Say(ann, "\251play(Bob,M(1,2))");
    t.Say(bob, "\251play(Ann,M(1,2))");
    EXPECT_EQ(t.Heard(ann) + t.Heard(bob), "");
}

TEST_F(Games, TheEndReachesThePartnerAndEndsTheGame) {
    t.StartGame(ann, bob);
    t.Say(ann, "\251end(Bob,Cid)");
    EXPECT_EQ(t.Heard(bob), "@end(Bob,Ann)@changenick(Bob,Bob,0)@changenick(Ann,Ann,0)");
    t.ForgetAll();
    t.Say(bob, "\251play(Ann,M(1,2))\251end(Ann,Bob)");
    EXPECT_EQ(t.Heard(ann) + t.Heard(bob), "");
}

TEST_F(Games, NobodyElseEndsAGame) {
    t.StartGame(ann, bob);
    t.Say(cid, "\251end(Bob,Ann)");
    t.Say(ann, "\251end(Cid,Ann)");
    EXPECT_EQ(t.Heard(bob) + t.Heard(cid), "");
    EXPECT_EQ(ann.session.partner, &bob.session);
}

TEST_F(Games, APlayerWhoLeavesEndsTheirGame) {
    t.StartGame(ann, bob);
    t.Hang(ann);
    EXPECT_EQ(t.Heard(bob), "@end(Bob,Ann)@changenick(Bob,Bob,0)@removenick(Ann)");
    EXPECT_EQ(t.Heard(cid), "@changenick(Bob,Bob,0)@removenick(Ann)");
    EXPECT_EQ(t.lobby.Counts().games, 0U);
}

TEST_F(Games, ARenamedPartnerIsReachedByEitherName) {
    t.StartGame(ann, bob);
    t.Say(bob, "\251nick(Rob)");
    t.ForgetAll();
    t.Say(ann, "\251play(Bob,M(1,2))\251play(Rob,M(3,4))\251play(rob,M(5,6))");
    EXPECT_EQ(t.Heard(bob), "@play(Rob,M(1,2))@play(Rob,M(3,4))@play(Rob,M(5,6))");
    t.Say(ann, "\251end(Bob,Ann)");
    EXPECT_EQ(bob.session.partner, nullptr);
}

TEST_F(Games, APartnerWhoRenamesTwiceIsReachedByEachName) {
    t.StartGame(ann, bob);
    t.Say(bob, "\251nick(Rob)\251nick(Rod)");
    auto& other = t.Join("Bob");
    t.Say(ann, "\251play(Bob,M(1,2))\251play(Rob,M(3,4))\251play(Rod,M(5,6))\251end(Bob,Ann)");
    const std::string heard = t.Heard(bob);
    EXPECT_TRUE(heard.starts_with("@play(Rod,M(1,2))@play(Rod,M(3,4))@play(Rod,M(5,6))@end(Rod,Ann)"))
        << heard;
    EXPECT_EQ(t.Heard(other).find("play"), std::string::npos);
}

TEST_F(Games, AFormerNameOfAnEarlierGameReachesNobody) {
    t.StartGame(ann, bob);
    t.Say(bob, "\251nick(Rob)");
    t.Say(ann, "\251end(Bob,Ann)");
    t.StartGame(ann, bob);
    t.Say(ann, "\251play(Bob,M(1,2))");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Games, AMoveThatALongerNameWouldMakeTooLongKeepsTheNameOfItsSender) {
    t.StartGame(ann, bob);
    t.Say(bob, "\251nick(Bob with a much longer nickname)");
    t.ForgetAll();
    const std::string play = "play(Bob," + std::string(32767 - 10, 'x') + ")";
    t.Say(ann, "\251" + play);
    EXPECT_EQ(t.Heard(bob), "@" + play);
}

TEST_F(Games, AnotherGameCanFollow) {
    t.StartGame(ann, bob);
    t.Say(ann, "\251end(Bob,Ann)");
    t.StartGame(bob, ann);
    t.Say(ann, "\251play(Bob,M(1,2))");
    EXPECT_EQ(t.Heard(bob), "@play(Bob,M(1,2))");
    EXPECT_EQ(t.lobby.Counts().games, 1U);
}

} // namespace
} // namespace tarveth
