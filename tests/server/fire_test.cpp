// Attacks on the program while two well-behaved clients play; the players must not lose a single move.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

// Two clients that exchange numbered moves until they are asked to stop.
class Players {
public:
    explicit Players(const LobbyProgram& program)
        : ann_(program, "Ann of the players"), bob_(program, "Bob of the players") {
        StartGame(ann_, "Ann of the players", bob_, "Bob of the players");
        play_ = std::thread([this] { Play(); });
    }
    ~Players() { Finish(); }

    // Gives how many moves were lost, doubled or out of order, after a few more moves have been played.
    int FaultsAfterAFewMoves() {
        constexpr int kAFew = 5;
        for (const int last = moves_ + kAFew; moves_ < last && faults_ == 0;)
            std::this_thread::sleep_for(1ms);
        Finish();
        return faults_;
    }

private:
    void Finish() {
        stop_ = true;
        if (play_.joinable())
            play_.join();
    }

    // Sends one move; true if the receiver gets exactly this move next.
    static bool Move(LobbyClient& from, LobbyClient& to, const std::string& name, int number) {
        const std::string move = "\251play(" + name + ",M(" + std::to_string(number) + ", 1))";
        from.Say(move);
        const std::string heard = to.HearUntil("\251play(" + name);
        const std::string rest = to.HearUntil("1))");
        return heard.ends_with("\251play(" + name) && rest == move.substr(move.find(",M("));
    }

    void Play() {
        for (int number = 0; !stop_ && faults_ == 0; ++number) {
            faults_ += Move(ann_, bob_, "Bob of the players", number) ? 0 : 1;
            faults_ += Move(bob_, ann_, "Ann of the players", number) ? 0 : 1;
            ++moves_;
            std::this_thread::sleep_for(6ms);
        }
    }

    LobbyClient ann_;
    LobbyClient bob_;
    std::thread play_;
    std::atomic<bool> stop_{false};
    std::atomic<int> faults_{0};
    std::atomic<int> moves_{0};
};

struct UnderFire : testing::Test {
    explicit UnderFire(const std::vector<std::string>& options = {}, unsigned fileLimit = 0)
        : program(options, fileLimit), players(program) {}

    void TearDown() override {
        LobbyClient late(program, "Late");
        late.Say("hello\n");
        EXPECT_NE(late.HearUntil("Late: hello\r\n"), "") << "the lobby serves no more";
        EXPECT_EQ(players.FaultsAfterAFewMoves(), 0);
    }

    LobbyProgram program;
    Players players;
};

TEST_F(UnderFire, AClientThatSendsItsBytesOneAtATimeIsServed) {
    LobbyClient slow(program);
    for (const char c : std::string("\251clientver(2.6.4)\251nick(Slow)\251sendnicks()hello\r\n"))
        slow.Say({&c, 1});
    EXPECT_NE(slow.HearUntil("Slow: hello\r\n"), "");
}

TEST_F(UnderFire, AHundredMovesInOneSegmentArriveInOrder) {
    LobbyClient cid(program, "Cid");
    LobbyClient dan(program, "Dan");
    StartGame(cid, "Cid", dan, "Dan");
    std::string moves;
    for (int i = 0; i < 100; ++i)
        moves += "\251play(Dan,M(" + std::to_string(i) + ",1))";
    cid.Say(moves);
    const std::string heard = dan.HearUntil("M(99,1))");
    EXPECT_TRUE(heard.ends_with(moves));
}

TEST_F(UnderFire, AMessageMayBeSplitAtEveryByte) {
    LobbyClient cid(program, "Cid");
    LobbyClient dan(program, "Dan");
    StartGame(cid, "Cid", dan, "Dan");
    const std::string move = "\251play(Dan,M(1, 2)X(so (so)))";
    for (std::size_t cut = 0; cut <= move.size(); ++cut) {
        cid.Say(std::string_view(move).substr(0, cut));
        std::this_thread::sleep_for(1ms);
        cid.Say(std::string_view(move).substr(cut));
        EXPECT_TRUE(dan.HearUntil("(so)))").ends_with(move)) << cut;
    }
}

TEST_F(UnderFire, RandomBytesHarmNobody) {
    std::minstd_rand random(1);
    for (int client = 0; client < 20; ++client) {
        LobbyClient noise(program, "Noise" + std::to_string(client));
        std::string bytes;
        for (int i = 0; i < 100000; ++i)
            bytes += static_cast<char>(random() >> 8);
        noise.Say(bytes);
    }
}

TEST_F(UnderFire, AfterUnbalancedParenthesesTheNextMessageIsTaken) {
    LobbyClient cid(program, "Cid");
    cid.Say("\251nick())))))\251play((((((\251sys)(\251end(((\r\n)\n");
    cid.Say("fine\r\n");
    cid.Say("\251nick(Cid)");
    EXPECT_NE(cid.HearUntil("nickname set to Cid\r\n"), "");
}

TEST_F(UnderFire, AfterAMegabyteWithoutAnEndTheNextMessageIsTaken) {
    LobbyClient cid(program, "Cid");
    cid.Say("\251play(Dan," + std::string(1 << 20, '(') + "\251nick(Still)");
    EXPECT_NE(cid.HearUntil("nickname set to Still\r\n"), "");
    LobbyClient dan(program, "Dan");
    dan.Say(std::string(1 << 20, 'x'));
    dan.Say("\251nick(Too)");
    EXPECT_NE(dan.HearUntil("nickname set to Too\r\n"), "");
}

TEST_F(UnderFire, NoTrickGivesANicknameThatIsNotClean) {
    LobbyClient watcher(program, "Watcher");
    const std::vector<std::string> tricks = {"",
                                             "   ",
                                             "(a)",
                                             "a,b",
                                             "a|b",
                                             "\"",
                                             "\256",
                                             "WATCHER",
                                             "watcher ",
                                             "Watcher: hi",
                                             "Wat\255cher",
                                             "a\r\nb",
                                             std::string(1000, 'x'),
                                             "nickname set to Watcher",
                                             "\x01\x02",
                                             "sys",
                                             "Watch\240er"};
    for (const std::string& trick : tricks) {
        LobbyClient client(program);
        client.Say("\251clientver(2.6.4)\251nick(" + trick + ")\251sendnicks()");
        client.HearUntil("nickname set to ");
        std::string nick = client.HearUntil("\r\n");
        nick.resize(nick.size() < 2 ? 0 : nick.size() - 2);
        EXPECT_TRUE(!nick.empty() && nick.size() <= 32) << trick;
        EXPECT_EQ(nick.find_first_of("(),\"|\251\256\r\n\x01\x02"), std::string::npos) << trick;
        EXPECT_NE(nick, "Watcher");
        EXPECT_NE(watcher.HearUntil("\251addnick(" + nick + ",0)"), "") << trick;
        client.Close();
        EXPECT_NE(watcher.HearUntil("\251removenick(" + nick + ")"), "") << trick;
    }
}

TEST_F(UnderFire, MessagesInAnothersNameAreSentInTheSendersOwn) {
    LobbyClient cid(program, "Cid");
    LobbyClient dan(program, "Dan");
    cid.Say("\251invite(Dan,Ann of the players)");
    EXPECT_NE(dan.HearUntil("\251invite(Dan,Cid)"), "");
    cid.Say("\251play(Bob of the players,M(0, 1))\251end(Bob of the players,Ann of the players)");
    cid.Say("\251accept(Ann of the players,Bob of the players, fine)\251refuse(Bob of the players, no)");
    EXPECT_NE(cid.HearUntil("\251end(Cid,Ann of the players)"), "");
}

TEST_F(UnderFire, AThousandSilentConnectionsHarmNobody) {
    std::vector<LobbyClient> silent;
    silent.reserve(1000);
    for (int i = 0; i < 1000; ++i)
        silent.emplace_back(program);
    const LobbyClient cid(program, "Cid");
}

TEST_F(UnderFire, AClientThatShutsDownItsSendingSideHasLeft) {
    LobbyClient watcher(program, "Watcher");
    for (int i = 0; i < 20; ++i) {
        LobbyClient cid(program, "Cid" + std::to_string(i));
        cid.StopWriting();
        EXPECT_NE(watcher.HearUntil("\251removenick(Cid" + std::to_string(i) + ")"), "");
    }
}

TEST_F(UnderFire, AThousandConnectionsResetInTheMiddleOfAMessageHarmNobody) {
    LobbyClient watcher(program, "Watcher");
    for (int i = 0; i < 1000; ++i) {
        LobbyClient cid(program);
        cid.Say("\251clientver(2.6.4)\251nick(Cid" + std::to_string(i) +
                ")\251sendnicks()hal\251play(Ann,M(");
        cid.Abort();
    }
    LobbyClient last(program, "Last");
    last.Say("/who\n");
    while (last.HearUntil(")").find("sys(4 users") == std::string::npos)
        last.Say("\251nick(Last)");
}

struct SlowReader : UnderFire {
    SlowReader() : UnderFire({"--unsent-bytes", "200000", "--chat-lines", "0", "--chat-characters", "0"}) {}
};

// Each line is received before the next one is sent, and the other clients have larger buffers: a client that
// reads at all keeps up, however busy the machine is.
TEST_F(SlowReader, AClientThatNeverReadsIsDropped) {
    constexpr int kSmallBuffer = 4096;
    constexpr int kMoreThanBuffersHold = 10000; // lines
    const LobbyClient deaf(program, "Deaf", kSmallBuffer);
    LobbyClient speaker(program, "Speaker");
    const std::string line = std::string(10000, 'x') + "\n";
    bool dropped = false;
    for (int i = 0; i < kMoreThanBuffersHold && !dropped; ++i) {
        speaker.Say(line);
        const std::string heard = speaker.HearUntil("x\r\n");
        ASSERT_NE(heard, "");
        dropped = heard.find("\251removenick(Deaf)") != std::string::npos;
    }
    EXPECT_TRUE(dropped);
    EXPECT_NE(program.LogLineWith("Deaf (127.0.0.1) has left: it does not read, and "), "");
}

struct FewFiles : UnderFire {
    FewFiles() : UnderFire({}, 64) {}
};

TEST_F(FewFiles, WithoutDescriptorsLeftClientsAreToldAndLaterServedAgain) {
    {
        std::vector<LobbyClient> crowd;
        crowd.reserve(100);
        for (int i = 0; i < 100; ++i)
            crowd.emplace_back(program);
        EXPECT_EQ(crowd.back().HearToTheEnd(), "\251alert(The lobby is full. Please try again later.)");
    }
    bool served = false;
    for (int i = 0; i < 100 && !served; ++i) {
        LobbyClient again(program);
        served = again.HearUntil(")").starts_with("\251update(");
        std::this_thread::sleep_for(10ms);
    }
    EXPECT_TRUE(served);
}

} // namespace
} // namespace tarveth
