// Where everything stands in the client window, at many sizes, on dense screens, in a dark theme and with
// fonts of all sizes.

#include "tests/window/ClientDesk.h"

#include <gtest/gtest.h>

#include <map>

namespace tarveth::harness {
namespace {

constexpr const char* kLargeFonts = "[ClientOptions]\r\nTranscriptFontSize=30\r\nUserListFontSize=30\r\n"
                                    "ChatTextFontSize=30\r\n";
constexpr const char* kGiantFonts = "[ClientOptions]\r\nTranscriptFontSize=999\r\nUserListFontSize=999\r\n"
                                    "ChatTextFontSize=999\r\n";

bool Overlap(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

bool Within(const Rect& inner, const Rect& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

// Where the controls that are shown stand, by their given names.
std::map<std::string, Rect> Places(const GameDesk& desk) {
    std::map<std::string, Rect> places;
    bool inClient = false;
    for (const AccessibleNode& node : desk.reader.Read()) {
        inClient = node.depth == 1 ? node.name.starts_with("Internet Tarveth") : inClient;
        if (inClient && !node.id.empty() && node.Has("showing")) {
            places[node.id] = desk.Pixels(node.extents);
        }
    }
    return places;
}

void ExpectGoodLayout(GameDesk& desk, const ClientDesk& client) {
    desk.WaitUntilAtRest();
    const Rect inside = client.window.ClientArea();
    const auto places = Places(desk);
    EXPECT_EQ(places.size(), 11U); // one of the two transcripts is hidden
    for (auto one = places.begin(); one != places.end(); ++one) {
        EXPECT_TRUE(Within(one->second, inside)) << one->first;
        EXPECT_GE(one->second.height, 15) << one->first;
        for (auto other = std::next(one); other != places.end(); ++other) {
            EXPECT_FALSE(Overlap(one->second, other->second)) << one->first << " and " << other->first;
        }
    }
    for (const char* button : {"btnBreak", "btnNickname", "btnExit"}) {
        EXPECT_EQ(places.at(button).width, places.at("btnInvite").width);
        EXPECT_EQ(places.at(button).height, places.at("btnInvite").height);
    }
}

struct Surroundings {
    const char* name;
    std::map<std::string, std::string> environment;
    int scale;
    const char* ini;
};

class ClientLayout : public testing::TestWithParam<Surroundings> {
protected:
    void Resize(int width, int height) {
        client.window.MoveTo({0, 0});
        client.window.Resize(width, height);
        // A window that cannot be so small stops before.
        EXPECT_TRUE(WaitUntil([&] { return client.window.ClientArea() != before; }));
        desk.WaitUntilAtRest();
        before = client.window.ClientArea();
    }

    Lobby lobby;
    GameFolder folder{std::string("[Options]\r\nNickname=Ada\r\n") + GetParam().ini};
    GameDesk desk{folder, {.environment = GetParam().environment, .scale = GetParam().scale}};
    ClientDesk client{desk, lobby.Address()};
    Rect before;
};

TEST_P(ClientLayout, LeavesEverythingItsPlace) {
    ASSERT_TRUE(client.Hears("nickname set to Ada"));
    LobbyClient bob(lobby, "Bob");
    LobbyClient longest(lobby, "Anna Maria with the longest name");
    bob.Say("Good evening! Who would like to play? I have half an hour before my train leaves.\n");
    ASSERT_TRUE(client.Hears("Bob: Good evening! Who would like to play? I have half an hour before my train "
                             "leaves."));
    client.Enter("Here I am.");
    ASSERT_TRUE(client.Hears("Ada: Here I am."));
    ExpectGoodLayout(desk, client);
    for (const Point size : {Point{100, 100}, Point{1400, 300}, Point{900, 1100}}) {
        SCOPED_TRACE(size.x);
        ASSERT_NO_FATAL_FAILURE(Resize(size.x, size.y));
        ExpectGoodLayout(desk, client);
        client.KeepShot(std::string("client-") + GetParam().name + '-' + std::to_string(size.x));
    }
    client.Press("btnP");
    ASSERT_TRUE(desk.TextBecomes("lblRX", "Transcript: (private mode)"));
    ASSERT_NO_FATAL_FAILURE(Resize(100, 100));
    ExpectGoodLayout(desk, client);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, ClientLayout,
                         testing::Values(Surroundings{"plain", {}, 1, ""},
                                         Surroundings{"dark", {{"GTK_THEME", "Adwaita:dark"}}, 1, ""},
                                         Surroundings{"dense", {}, 2, ""},
                                         Surroundings{"type", {{"GDK_DPI_SCALE", "1.5"}}, 1, ""},
                                         Surroundings{"fonts", {}, 1, kLargeFonts},
                                         Surroundings{"giant", {}, 1, kGiantFonts}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace tarveth::harness
