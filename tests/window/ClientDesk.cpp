#include "tests/window/ClientDesk.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarveth::harness {

namespace {

constexpr std::uint16_t kPort = 9090;
constexpr const char* kQuestion = "Enter Server IP Address";

Window OpenWindow(GameDesk& desk) {
    desk.window.Activate();
    desk.WaitUntilAtRest();
    desk.Choose("F", "i");
    std::optional<Window> client;
    WaitUntil([&] {
        for (const Window& window : desk.program.Windows()) {
            if (window.Title().starts_with("Internet Tarveth")) {
                client = window;
            }
        }
        return client.has_value();
    });
    if (!client) {
        throw std::runtime_error("no client window\n" + desk.reader.Outline());
    }
    desk.program.WaitForWindow(kQuestion);
    desk.WaitUntilAtRest();
    return *client;
}

std::vector<std::string> AtOwnAddress(std::vector<std::string> options) {
    options.insert(options.end(), {"--bind", OwnAddress(), "--port", std::to_string(kPort)});
    return options;
}

} // namespace

// The middle two numbers of the address are made from the process id, since tests run in parallel, and the
// last one is a counter.
std::string OwnAddress() {
    static int count = 0;
    const int process = getpid();
    return "127." + std::to_string(1 + process / 250 % 250) + '.' + std::to_string(process % 250) + '.' +
           std::to_string(++count % 250 + 2);
}

Lobby::Lobby(std::vector<std::string> options) : LobbyProgram(AtOwnAddress(std::move(options))) {}

PlainServer::PlainServer() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(kPort);
    inet_pton(AF_INET, address_.c_str(), &address.sin_addr);
    const int on = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 1) != 0) {
        throw std::system_error(errno, std::generic_category(), address_);
    }
}

PlainServer::~PlainServer() {
    close(client_);
    close(listener_);
}

void PlainServer::Accept() {
    client_ = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
}

void PlainServer::Say(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = send(client_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) {
            throw std::system_error(errno, std::generic_category(), "the client does not listen");
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

ClientDesk::ClientDesk(GameDesk& desk) : window(OpenWindow(desk)), desk_(&desk) {}

ClientDesk::ClientDesk(GameDesk& desk, const std::string& address) : ClientDesk(desk) {
    ChooseServer(address);
}

void ClientDesk::ChooseServer(const std::string& address) {
    const Window question = desk_->program.WaitForWindow(kQuestion);
    if (address.empty()) {
        desk_->screen.Key("Escape");
    } else {
        desk_->screen.Key("Ctrl+A");
        desk_->screen.Type(address);
        if (!desk_->TextBecomes("txtIP", address)) {
            throw std::runtime_error("the address is not taken\n" + desk_->reader.Outline());
        }
        desk_->screen.Key("Return");
    }
    if (!question.WaitUntilGone()) {
        throw std::runtime_error("the question for a server stays\n" + desk_->reader.Outline());
    }
}

// Brings the window to the front, unless it is there, since keys may be lost while the window manager does
// it.
void ClientDesk::BringToFront() {
    if (desk_->screen.Active() != window.Id()) {
        window.Activate();
    }
}

void ClientDesk::Press(const std::string& id) {
    BringToFront();
    desk_->screen.Click(desk_->Place(id).Centre());
}

// Waits until the line has the focus, since keys that closely follow a click may be lost.
void ClientDesk::Enter(std::string_view line) {
    BringToFront();
    if (!Control("txtTX").Has("focused")) {
        Press("txtTX");
        WaitUntil([&] { return Control("txtTX").Has("focused"); });
        desk_->WaitUntilAtRest();
    }
    desk_->screen.Type(line);
    desk_->screen.Key("Return");
}

void ClientDesk::Select(const std::string& nick) {
    const auto row = desk_->reader.WaitFor(WithRoleAndName("table cell", nick));
    if (!row) {
        throw std::runtime_error("no user " + nick + "\n" + desk_->reader.Outline());
    }
    BringToFront();
    desk_->screen.Click(desk_->Pixels(row->extents).Centre());
    const bool selected = WaitUntil([&] {
        const auto now = desk_->reader.Find(WithRoleAndName("table cell", nick));
        return now && now->Has("selected");
    });
    if (!selected) {
        throw std::runtime_error("the user is not selected: " + nick);
    }
}

bool ClientDesk::Hears(const std::string& line) const {
    return WaitUntil([&] { return ('\n' + Transcript()).find('\n' + line + '\n') != std::string::npos; });
}

bool ClientDesk::TitleBecomes(const std::string& title) const {
    return WaitUntil([&] { return window.Title() == title; });
}

std::vector<std::string> ClientDesk::Users() const {
    std::vector<std::string> users;
    bool inList = false;
    for (const AccessibleNode& node : desk_->reader.Read()) {
        inList = node.role.starts_with("table c") ? inList : node.id == "lstUsers"; // header and cells
        if (inList && node.role == "table cell") {
            users.push_back(node.name);
        }
    }
    return users;
}

bool ClientDesk::UsersBecome(const std::vector<std::string>& users) const {
    return WaitUntil([&] { return Users() == users; });
}

AccessibleNode ClientDesk::Control(const std::string& id) const {
    const auto control = desk_->reader.WaitFor(WithId(id));
    if (!control) {
        throw std::runtime_error("no control is called " + id + "\n" + desk_->reader.Outline());
    }
    return *control;
}

Window ClientDesk::Box(std::string_view title, const std::string& text) const {
    // The text is checked first, since the window that asks to wait has the same title.
    const auto saysIt = [&](const AccessibleNode& node) { return node.role == "label" && node.text == text; };
    if (!desk_->reader.WaitFor(saysIt)) {
        throw std::runtime_error("no box says: " + text + "\n" + desk_->reader.Outline());
    }
    std::optional<Window> box;
    const bool hasKeyboard = WaitUntil([&] {
        std::optional<Window> newest;
        for (const Window& other : desk_->program.Windows()) {
            if (other.Title() == title && other.Id() != desk_->window.Id() && other.Id() != window.Id()) {
                newest = other;
            }
        }
        if (newest && (!box || box->Id() != newest->Id())) {
            newest->AskForKeyboard();
        }
        box = newest;
        return box && desk_->screen.Active() == box->Id();
    });
    if (!hasKeyboard) {
        throw std::runtime_error("no box \"" + std::string(title) + "\"\n" + desk_->reader.Outline());
    }
    desk_->WaitUntilAtRest();
    return *box;
}

void ClientDesk::Join(const std::string& inviter) {
    const Window question = Box("Join Game?", inviter + " is inviting you to a game.");
    std::this_thread::sleep_for(Milliseconds(600)); // so long it takes no key
    desk_->screen.Key("Alt+y");
    if (!question.WaitUntilGone()) {
        throw std::runtime_error("the question stays\n" + desk_->reader.Outline());
    }
}

void ClientDesk::Choose(std::string_view menuKey, std::string_view itemKey) {
    BringToFront();
    desk_->Choose(menuKey, itemKey);
}

void ClientDesk::KeepShot(const std::string& name) {
    BringToFront();
    desk_->WaitUntilAtRest();
    std::filesystem::create_directories(SHOTS_FOLDER);
    window.Capture().WritePng(std::filesystem::path(SHOTS_FOLDER) / (name + ".png"));
}

} // namespace tarveth::harness
