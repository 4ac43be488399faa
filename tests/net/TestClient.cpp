#include "tests/net/TestClient.h"

#include "storage/modFileIO.h"

namespace tarveth::test {

TestClient::TestClient(Delivery how)
    : main(game, net, settings, Ports{port, port, port, port, client}),
      client(game, net, settings.Nickname, main, port, [this] { sounds.NewUserSound(); }),
      delivery(how) {
    port.game = &game;
    settings.Nickname = "Ann";
    main.NewGame();
    client.Open(window, window, socket);
    socket.TellConnected();
    RunPasses();
}

void TestClient::RunPasses() {
    do {
        while (main.RunPasses()) {
        }
    } while (AnswerJoinQuestion());
}

bool TestClient::AnswerJoinQuestion() {
    const bool closes = window.unloads > 0; // a window that is about to close takes no answer any more
    if (window.joinQuestion.empty() || window.leavesJoinQuestionOpen || closes)
        return false;
    client.AnswerInvitation(window.TakeAnswer());
    return true;
}

void TestClient::EndChatTimer() {
    if (std::exchange(window.chatTimer, false))
        client.ShowKeptText();
}

std::string TestClient::Receive(std::string_view bytes) {
    if (delivery == Delivery::Whole)
        socket.TellData(bytes);
    else
        for (const char byte : bytes)
            socket.TellData({&byte, 1});
    EndChatTimer();
    RunPasses();
    return Sent();
}

std::string TestClient::Enter(std::string_view line) {
    client.EnterLine(line);
    return Sent();
}

void TestClient::StartGame() {
    Receive("\251accept(Ann,Bob,Bob has accepted your invitation.)");
    window.lines.clear();
}

std::string TestClient::Everything() const {
    std::string all = window.caption + '\n' + client.NickName() + '/' + client.OpponentNick() + '/' +
                      std::to_string(client.GameLinkState()) + (net.InGame ? " in game" : "") +
                      (net.PlayingBlue ? " blue" : " red") + '\n';
    for (const Strings& texts :
         {window.lines, window.questions, window.boxes, socket.sent, client.Users().Entries()}) {
        for (const std::string& text : texts)
            all += text + '\n';
        all += "--\n";
    }
    return all + std::to_string(window.unloads) + ' ' + port.message + ' ' + GameText(game, "");
}

} // namespace tarveth::test
