// A game with its network play, on a recorded window and a socket that goes nowhere. The user is Ann.
#pragma once

#include "engine/modMAIN.h"
#include "net/modClient.h"
#include "storage/settings.h"
#include "storage/sounds.h"
#include "tests/RecordingPort.h"
#include "tests/net/FakeSocket.h"
#include "tests/net/RecordingClient.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarveth::test {

using Strings = std::vector<std::string>;

// How what a server sends at once may arrive.
enum class Delivery { Whole, Bytewise };

struct SilentSounds : SoundPort {
    int beeps = 0;
    Strings played;
    void Beep() override { ++beeps; }
    void PlayWav(const std::string& path) override { played.push_back(path); }
};

struct TestClient {
    Game game;
    NetGame net;
    Settings settings;
    RecordingPort port; // the main window, the board, the files
    SilentSounds noise;
    Sounds sounds{settings, noise, {}};
    RecordingClient window;
    FakeSocket socket;
    modMAIN main;
    modClient client;
    Delivery delivery;

    // A new game is on the board, and the client window is open and connected.
    explicit TestClient(Delivery delivery = Delivery::Whole);
    TestClient(const TestClient&) = delete;
    TestClient& operator=(const TestClient&) = delete;

    // As the window does after every event; then the person answers the question whether to join a game.
    void RunPasses();
    // Time passes: a line of chat without an end is shown.
    void EndChatTimer();
    // The server sends this, and nothing else for a while; the passes that follow from it are run. What is
    // sent in return.
    std::string Receive(std::string_view bytes);
    // The user types this and presses Enter. What is sent.
    std::string Enter(std::string_view line);
    // What has been sent since the last look, and the lines that have come into the transcript.
    std::string Sent() { return socket.TakeSent(); }
    Strings Lines() { return std::exchange(window.lines, {}); }

    // Bob has accepted an invitation; what that gave is forgotten. Ann is Blue.
    void StartGame();
    // Everything that can be seen of it from outside.
    std::string Everything() const;

private:
    bool AnswerJoinQuestion();
};

} // namespace tarveth::test
