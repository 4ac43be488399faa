// The first words with the server: its version, ours, the nickname, and the list of users.
#include "tests/net/Delivered.h"
#include "version.h"

namespace tarveth::test {
namespace {

const std::string kAnswer = "\251clientver(" + std::string(kVersion) + ")\251nick(Ann)\251sendnicks()";

class Handshake : public Delivered {};
INSTANTIATE_TEST_SUITE_P(Server, Handshake, kDeliveries, DeliveryName);

TEST_P(Handshake, AnswersTheServersVersion) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Sent(), "");
    EXPECT_EQ(c.Receive("\251update(2.6.4)"), "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST_P(Handshake, ASecondVersionIsIgnored) {
    TestClient c(GetParam());
    c.Receive("\251update(1.0.37)");
    EXPECT_EQ(c.Receive("\251update(1.0.37)"), "");
    EXPECT_EQ(c.Receive("\251update(0.0.1)"), "");
    EXPECT_EQ(c.window.unloads, 0);
}

TEST_P(Handshake, EmptiesTheListOfUsers) {
    TestClient c(GetParam());
    c.Receive("\251addnick(Old,0)");
    c.Receive("\251update(1.0.37)\251addnick(Ann,0)\251addnick(Bob,1)");
    EXPECT_EQ(c.client.Users().Entries(), (Strings{"Ann", "Bob\256"}));
}

TEST_P(Handshake, AServerThatIsTooOldIsLeft) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251update(1.0.36)\251sys(not heard)"), "");
    EXPECT_EQ(c.window.boxes,
              Strings{"!Incompatible|The Tarveth Server to which you are connecting is too old, and will not "
                      "work properly with this version of Tarveth. You need to connect to a newer server."});
    EXPECT_EQ(c.window.unloads, 1);
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST_P(Handshake, AServerThatFindsUsTooOldIsLeft) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251oldver()\251sys(not heard)\251update(1.0.37)"), "");
    EXPECT_EQ(c.window.boxes,
              Strings{"!Incompatible|I'm not compatible with that version of Tarveth Server. You need to "
                      "upgrade your Tarveth to a newer version."});
    EXPECT_EQ(c.window.unloads, 1);
    EXPECT_EQ(c.Lines(), Strings{});
}

struct VersionCase {
    const char* version;
    bool accepted;
};

TEST(ServerVersion, IsComparedAsOneNumber) {
    const VersionCase cases[] = {
        {"1.0.37", true},         {"1.0.36", false}, {"0.9.999", false}, // 9,999
        {"0.10.37", true},                                               // 10,037
        {" 1 . 0 . 37 ", true},   {"2", true},       {"1", false},       {"0.0.10037", true},
        {"0.0.10036", false},     {"3.2.767", true}, {"4.0.0", true}, // more than 16 bits hold
        {"9999.9999.9999", true},
    };
    for (const VersionCase& row : cases) {
        TestClient c;
        const std::string answer = c.Receive("\251update(" + std::string(row.version) + ")");
        EXPECT_EQ(answer, row.accepted ? kAnswer : "") << row.version;
        EXPECT_EQ(c.window.unloads, row.accepted ? 0 : 1) << row.version;
    }
}

TEST(ServerVersion, APartThatIsNoNumberCountsAsNoneAndOneThatIsTooLargeAsTheLargest) {
    const VersionCase cases[] = {
        {"", false},
        {"new", false},
        {"x.y.10037", true},
        {"1.0.37beta", true},
        {"99999999999999999999.0.0", true},
        {"0.0.99999999999999999999", true},
        {"-99999999999999999999.0.0", false},
        {"2.-99999999999.0", false},
        {"-1.32767.0", true},
    };
    for (const VersionCase& row : cases) {
        TestClient c;
        c.Receive("\251update(" + std::string(row.version) + ")");
        EXPECT_EQ(c.window.unloads, row.accepted ? 0 : 1) << row.version;
    }
}

TEST(OwnNickname, TheNicknameIsTheSettingsInTheWiresCodePage) {
    TestClient c;
    c.client.Close();
    c.settings.Nickname = "J\u00F6rg (\u20AC)";
    c.client.Open(c.window, c.window, c.socket);
    EXPECT_EQ(c.client.NickName(), "J\xF6rg \x80");
    EXPECT_EQ(c.Receive("\251update(1.0.37)"),
              "\251clientver(" + std::string(kVersion) + ")\251nick(J\xF6rg \x80)\251sendnicks()");
}

} // namespace
} // namespace tarveth::test
