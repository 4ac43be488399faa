// What the server says outside invitations: the list of users, notices, and what is no message.
#include "net/boxtext.h"
#include "net/wire/framing.h"
#include "tests/net/Delivered.h"
#include "tests/platform/TempFolder.h"

namespace tarveth::test {
namespace {

class Dispatch : public Delivered {};
INSTANTIATE_TEST_SUITE_P(Server, Dispatch, kDeliveries, DeliveryName);

TEST_P(Dispatch, AddNickListsAUser) {
    TestClient c(GetParam());
    c.Receive("\251addnick(Bob,0)\251addnick( Cid , 1 )\251addnick(Dan,2)\251addnick(Eve)");
    EXPECT_EQ(c.client.Users().Entries(), (Strings{"Bob", "Cid\256", "Dan", "Eve"}));
}

TEST_P(Dispatch, ChangeNickMovesAUserToTheEnd) {
    TestClient c(GetParam());
    c.Receive("\251addnick(Bob,0)\251addnick(Cid,0)\251changenick(Bob, Bo ,1)\251changenick(Dan,Eve,0)");
    EXPECT_EQ(c.client.Users().Entries(), (Strings{"Cid", "Bo\256"}));
}

TEST_P(Dispatch, RemoveNickTakesTheFirstField) {
    TestClient c(GetParam());
    c.Receive("\251addnick(Bob,1)\251addnick(Cid,0)\251removenick(Bob,Cid)");
    EXPECT_EQ(c.client.Users().Entries(), Strings{"Cid"});
}

TEST_P(Dispatch, SysIsANoticeWithAllItsText) {
    TestClient c(GetParam());
    c.Receive("\251sys( Welcome, all (of you), to this lobby )");
    EXPECT_EQ(c.Lines(), Strings{"notice| Welcome, all (of you), to this lobby "});
}

TEST_P(Dispatch, AlertIsABoxWithAllItsText) {
    TestClient c(GetParam());
    c.Receive("\251alert(Down in 5 minutes, sorry)");
    EXPECT_EQ(c.window.boxes, Strings{"!Alert|Down in 5 minutes, sorry"});
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST_P(Dispatch, NamesAreComparedExactly) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251Sys(a)\251sys (b)\251SYS(c)\251unknown(d)\251(e)\251update2(1.0.37)"), "");
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_EQ(c.window.boxes, Strings{});
}

TEST_P(Dispatch, FieldsThatAreMissingMakeNoMessage) {
    TestClient c(GetParam());
    c.StartGame();
    EXPECT_EQ(c.Receive("\251changenick(Bob)\251play(Ann)\251invite(Cid)\251accept(Cid)"), "");
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_EQ(c.client.OpponentNick(), "Bob");
}

TEST_P(Dispatch, AMessageThatIsTooLongIsToldOfAndLeftOut) {
    TestClient c(GetParam());
    c.Receive("\251sys(" + std::string(kLongestMessage, 'x') + ")\251sys(next)");
    EXPECT_EQ(c.Lines(),
              (Strings{"notice|A message of more than 32767 characters was ignored.", "notice|next"}));
}

TEST_P(Dispatch, CommasInTheOpponentsTextSeparateNothing) {
    TestClient c(GetParam());
    c.StartGame();
    c.Receive("\251play(Ann, X(well, well (\"hm, hm\"), really))");
    EXPECT_EQ(c.Lines(), Strings{"opponent|Bob:[p] well, well (\"hm, hm\"), really"});
}

TEST_P(Dispatch, NicknamesThatAreTooLongOrEmptyAreToldOfOnce) {
    TestClient c(GetParam());
    const std::string tooLong(256, 'x');
    c.Receive("\251addnick(" + tooLong + ",0)\251addnick(,0)\251addnick(Bob,0)\251changenick(Bob," + tooLong +
              ",0)");
    EXPECT_EQ(c.client.Users().Entries(), Strings{"Bob"});
    EXPECT_EQ(c.Lines(), Strings{"notice|The server's list of users is too long, or holds nicknames that are "
                                 "too long or empty; not all users are shown."});
}

TEST(UserListBound, MoreUsersThanItsMostAreToldOfOnce) {
    TestClient c;
    std::string arrivals;
    for (std::size_t i = 0; i < UserList::kMostEntries + 2; ++i)
        arrivals += "\251addnick(x,0)";
    c.Receive(arrivals);
    EXPECT_EQ(c.client.Users().Entries().size(), UserList::kMostEntries);
    EXPECT_EQ(c.Lines().size(), 1U);
}

TEST(UserListShown, OnceForABatchAndBeforeABoxIsOpen) {
    TestClient c;
    const int before = c.window.userListings;
    c.Receive("\251addnick(Bob,0)\251addnick(Cid,0)\251removenick(Bob)");
    EXPECT_EQ(c.window.userListings, before + 1);
    int shownMeanwhile = 0;
    c.window.onQuestion = [&] { shownMeanwhile = c.window.userListings; };
    c.Receive("\251addnick(Bob,0)\251alert(Look)");
    EXPECT_EQ(shownMeanwhile, before + 2);
    c.Receive("\251sys(nothing new)\251removenick(Nobody)");
    EXPECT_EQ(c.window.userListings, before + 2);
}

TEST(NewUser, IsHeardWhenTheSettingsSaySo) {
    TestClient c;
    c.Receive("\251addnick(Bob,0)");
    EXPECT_EQ(c.noise.beeps, 0);
    c.settings.UseNewUserSound = -1;
    c.Receive("\251addnick(Cid,0)\251addnick(Dan,0)\251changenick(Dan,Don,0)");
    EXPECT_EQ(c.noise.beeps, 2);
}

TEST(NewUser, HasASoundOfHisOwn) {
    const TempFolder folder;
    PutBytes(folder.File("hello.wav"), "RIFF");
    TestClient c;
    c.settings.UseNewUserSound = -1;
    c.settings.NewUserSound = folder.Name() + "hello.wav";
    c.Receive("\251addnick(Bob,0)\251addnick(Cid,0)");
    EXPECT_EQ(c.noise.played, Strings{c.settings.NewUserSound});
    EXPECT_EQ(c.noise.beeps, 0);
}

TEST(ServerText, IsShownAfterTheMessagesOfItsBatch) {
    TestClient c;
    c.Receive("Bob: hello\r\n\251sys(first)Cid: hi\r\n\251sys(second)");
    EXPECT_EQ(c.Lines(), (Strings{"notice|first", "notice|second", "others|Bob: hello", "others|Cid: hi"}));
}

TEST(ServerText, BeforeAndBehindAMessageIsOne) {
    TestClient c;
    c.Receive("Bob: hel\251sys(notice)lo\r\n");
    EXPECT_EQ(c.Lines(), (Strings{"notice|notice", "others|Bob: hello"}));
}

TEST(ServerText, IsShownLineByLineWithoutTheEmptyOnes) {
    TestClient c;
    c.Receive("\r\nBob: a\r\n\r\nCid: b\nDan: c\rEve: d");
    EXPECT_EQ(c.Lines(), (Strings{"others|Bob: a", "others|Cid: b", "others|Dan: c", "others|Eve: d"}));
}

TEST(ServerText, ALoneCarriageReturnShowsNothing) {
    TestClient c;
    c.Receive("\r");
    c.Receive("");
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(ServerText, WithoutAMarkerAMessageIsText) {
    TestClient c;
    EXPECT_EQ(c.Receive("update(1.0.37)"), "");
    EXPECT_EQ(c.Lines(), Strings{"others|update(1.0.37)"});
}

TEST(ServerText, BeforeAnIncompleteMessageIsShownAtOnce) {
    TestClient c;
    c.Receive("Bob: hello\r\n\251sys(wel");
    EXPECT_EQ(c.Lines(), Strings{"others|Bob: hello"});
    c.Receive("come)Cid: hi\r\n");
    EXPECT_EQ(c.Lines(), (Strings{"notice|welcome", "others|Cid: hi"}));
}

TEST(ServerText, IsDroppedWithTheRestWhenTheWindowIsToClose) {
    TestClient c;
    c.Receive("Bob: hello\r\n\251oldver()Cid: hi\r\n");
    EXPECT_EQ(c.Lines(), Strings{});
}

// Whole sessions, in which every message's outcome depends on those before it.
const std::vector<Strings>& Sessions() {
    static const std::vector<Strings> sessions = {
        {"\251update(1.0.37)", "\251addnick(Ann,0)", "\251addnick(Bob,0)", "\251invite(Ann,Bob)",
         "\251play(Ann,C(board))", "\251play(Ann,T(1))", "\251play(Ann,C(play))",
         "\251play(Ann,X(good luck, Ann))", "\251changenick(Bob,Bob,1)", "\251invite(Ann,Cid)",
         "\251changenick(Bob,Rob,1)", "\251removenick(Rob)", "\251end(Ann,Rob)"},
        {"\251update(1.0.37)", "\251invite(Ann,Cid)", "\251accept(Ann,Bob,yes (of course), now)",
         "\251play(Ann,X(a)X(b)C(swap))", "\251accept(Ann,Dan,late)", "\251end(Ann,Bob)", "\251alert(bye)"},
        {"\251unknown(a(b)c)", "\251sys(one)", "\251update(1.0.36)", "\251sys(two)"},
        {"\251oldver()", "\251update(1.0.37)"},
    };
    return sessions;
}

std::string Outcome(const Strings& batches, Delivery delivery) {
    TestClient c(delivery);
    c.window.answers = {true, false};
    for (const std::string& batch : batches) {
        if (delivery == Delivery::Whole)
            c.socket.TellData(batch);
        else
            for (const char byte : batch)
                c.socket.TellData({&byte, 1});
    }
    c.RunPasses();
    return c.Everything();
}

TEST(Sessions, AreTheSameHoweverTheyAreCut) {
    for (const Strings& session : Sessions()) {
        std::string glued;
        for (const std::string& batch : session)
            glued += batch;
        const std::string expected = Outcome(session, Delivery::Whole);
        EXPECT_EQ(Outcome({glued}, Delivery::Whole), expected);
        EXPECT_EQ(Outcome(session, Delivery::Bytewise), expected);
        for (std::size_t cut = 1; cut < glued.size(); ++cut)
            EXPECT_EQ(Outcome({glued.substr(0, cut), glued.substr(cut)}, Delivery::Whole), expected) << cut;
    }
}

TEST(BoxText, OfAFewLinesIsLeftAlone) {
    EXPECT_EQ(BoxText(""), "");
    EXPECT_EQ(BoxText("Down in 5 minutes\r\nSorry"), "Down in 5 minutes\nSorry");
    EXPECT_EQ(BoxText(std::string(200, 'x')), std::string(200, 'x'));
}

TEST(BoxText, IsCutToTwentyLinesOfTwoHundredCharacters) {
    std::string text;
    for (int i = 0; i < 15'000; ++i)
        text += "line\n";
    std::string cut;
    for (int i = 0; i < 20; ++i)
        cut += "line\n";
    EXPECT_EQ(BoxText(text), cut + "\x85"
                                   "and 14,980 more lines");
    EXPECT_EQ(BoxText(std::string(201, 'x')), std::string(199, 'x') + "\x85");
}

TEST(BoxText, IsWhatAnAlertShows) {
    TestClient c;
    c.Receive("\251alert(" + std::string(1000, 'x') + ")");
    EXPECT_EQ(c.window.boxes, Strings{"!Alert|" + std::string(199, 'x') + "\x85"});
}

} // namespace
} // namespace tarveth::test
