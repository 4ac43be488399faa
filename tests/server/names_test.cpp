#include "server/names.h"

#include "net/wire/framing.h"
#include "server/wording.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

namespace tarveth {
namespace {

TEST(Nicknames, NicknamesThatLookAlikeHaveOneSkeleton) {
    const std::vector<std::pair<const char*, const char*>> pairs = {
        {"Ann", "aNN"},   {"Ann", "A n n"},     {"Ann", "A.nn."},  {"Bill", "B1ll"},    {"Bill", "BIII"},
        {"Bob", "B0b"},   {"Bob", "B\xF8\x62"}, {"Arnie", "Amie"}, {"Jos\xE9", "Jose"}, {"Zo\xEB", "ZOE"},
        {"Mae", "M\xE6"}, {"Ann", "'Ann'"},     {"Ann", "\xC0nn"}, {"vvilma", "Wilma"}};
    for (const auto& [one, other] : pairs)
        EXPECT_EQ(NicknameSkeleton(one), NicknameSkeleton(other)) << one << " " << other;
}

TEST(Nicknames, OtherNicknamesHaveOtherSkeletons) {
    std::set<std::string> skeletons;
    const std::vector<std::string> nicks = {"Ann", "Anna", "Ann2", "Ann3", "Bob", "Rob", "...", "..", "-"};
    for (const std::string& nick : nicks)
        skeletons.insert(NicknameSkeleton(nick));
    EXPECT_EQ(skeletons.size(), nicks.size());
}

TEST(Nicknames, ANicknameHasNoColon) {
    EXPECT_EQ(LobbyNickname("Ann: hello"), "Ann hello");
    EXPECT_EQ(LobbyNickname(":"), "Player");
}

TEST(Nicknames, ReservedNamesAndTheirLookAlikesAreForbidden) {
    const ReservedNames reserved({"Judge"});
    for (const char* nick : {"Server", "SERVER", "5erver Server", "Adm1n", "The Lobby", "Server2",
                             "Tarveth-Server", "L0bby", "A.d.m.i.n", "judge", "Judge 7"})
        EXPECT_TRUE(reserved.Forbids(nick)) << nick;
    for (const char* nick : {"Ann", "Serverin", "Observer", "Judgement", "Player", "2"})
        EXPECT_FALSE(reserved.Forbids(nick)) << nick;
}

TEST(Nicknames, AVariantIsNoLongerThanANicknameMayBe) {
    EXPECT_EQ(NicknameVariant("Ann", 2), "Ann2");
    EXPECT_EQ(NicknameVariant(std::string(32, 'x'), 10), std::string(30, 'x') + "10");
}

TEST(Wording, ASentenceAlwaysNamesItsSender) {
    EXPECT_EQ(SignedSentence(" [Auto] Ann is in a game already.", "Ann"),
              "Ann: [Auto] Ann is in a game already.");
    EXPECT_EQ(SignedSentence("Ann of the lobby says, no", "Ann"), "Ann: Ann of the lobby says, no");
    EXPECT_EQ(SignedSentence("The lobby closes in 5 minutes.", "Ann"), "Ann: The lobby closes in 5 minutes.");
    EXPECT_EQ(SignedSentence("nickname set to Ann", "Ann"), "Ann: nickname set to Ann");
    EXPECT_EQ(SignedSentence("", "Ann"), "Ann: ");
}

TEST(Wording, ASentenceIsCutToWhatAClientTakes) {
    const std::string nick(32, 'n');
    const std::string sentence = SignedSentence(std::string(40000, '('), nick);
    EXPECT_LE(("accept(" + nick + "," + nick + "," + sentence + ")").size(), kLongestMessage);
    EXPECT_GT(sentence.size(), 32000U);
    EXPECT_EQ(sentence.find_first_of("()"), std::string::npos);
}

bool IsAnnOrBob(std::string_view text) {
    return text == "Ann" || text == "Bob";
}

TEST(Wording, AnOrdinaryChatLineIsPassedOnAsItIs) {
    EXPECT_EQ(ChatLine("Ann", "see http://example.org: 10:30, Bob", IsAnnOrBob),
              "Ann: see http://example.org: 10:30, Bob\r\n");
}

TEST(Wording, NoRestOfAChatLineBeginsLikeAnotherLine) {
    EXPECT_EQ(ChatLine("Ann", "hi Bob: I resign", IsAnnOrBob), "Ann: hi Bob : I resign\r\n");
    EXPECT_EQ(ChatLine("Ann", "xBob:Ann:Bob:", IsAnnOrBob), "Ann: xBob :Ann :Bob :\r\n");
    EXPECT_EQ(ChatLine("Big Bob", "hi", IsAnnOrBob), "Big Bob : hi\r\n");
    EXPECT_EQ(ChatLine("Ann", "x NickName set to Bob", IsAnnOrBob), "Ann: x NickName-set to Bob\r\n");
}

TEST(Wording, AChatLineIsCutToWhatAClientTakes) {
    const std::string line = ChatLine("Ann", std::string(40000, 'x'), IsAnnOrBob);
    EXPECT_EQ(line.size(), kLongestMessage);
    EXPECT_TRUE(line.ends_with("x\r\n"));
}

} // namespace
} // namespace tarveth
