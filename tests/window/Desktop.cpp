#include "tests/window/Desktop.h"

#include "tests/window/Screen.h"

#include <gio/gio.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tarveth::harness {

namespace {

// A window manager without key bindings and without handling of clicks inside windows, so that all events
// reach the program in their order. A click that the window manager handles first arrives after a key that
// follows it.
constexpr std::string_view kWindowManagerSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy></placement>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard/>
  <mouse>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
    <context name="Close">
      <mousebind button="Left" action="Click"><action name="Close"/></mousebind>
    </context>
  </mouse>
</openbox_config>
)";

std::filesystem::path NewHome() {
    std::string name = (std::filesystem::temp_directory_path() / "tarveth-desktop-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    return name;
}

// A pipe through which a process of the desktop reports its address.
class AnswerPipe {
public:
    AnswerPipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0) {
            throw std::system_error(errno, std::generic_category(), "pipe");
        }
    }
    ~AnswerPipe() {
        close(ends_[0]);
        close(ends_[1]);
    }
    AnswerPipe(const AnswerPipe&) = delete;
    AnswerPipe& operator=(const AnswerPipe&) = delete;

    [[nodiscard]] int WriteEnd() const { return ends_[1]; }

    // Reads the first line, without its end. Throws std::runtime_error when none comes.
    [[nodiscard]] std::string ReadLine(const std::string& who) const {
        std::string line;
        for (;;) {
            pollfd waiting{ends_[0], POLLIN, 0};
            char letter = 0;
            if (poll(&waiting, 1, static_cast<int>(kPatience.count())) != 1 ||
                read(ends_[0], &letter, 1) != 1) {
                throw std::runtime_error(who + " does not start");
            }
            if (letter == '\n') {
                return line;
            }
            line += letter;
        }
    }

private:
    std::array<int, 2> ends_{};
};

void Set(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
}

// Announces a screen reader on the message bus, which also starts the accessibility service.
void TurnAccessibilityOn() {
    GError* error = nullptr;
    GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
    if (bus != nullptr) {
        g_dbus_connection_set_exit_on_close(bus, FALSE);
        GVariant* answer = g_dbus_connection_call_sync(
            bus, "org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
            g_variant_new("(ssv)", "org.a11y.Status", "IsEnabled", g_variant_new_boolean(TRUE)), nullptr,
            G_DBUS_CALL_FLAGS_NONE, static_cast<int>(kPatience.count()), nullptr, &error);
        if (answer != nullptr) {
            g_variant_unref(answer);
        }
        g_object_unref(bus);
    }
    if (error != nullptr) {
        const std::string text = error->message;
        g_error_free(error);
        throw std::runtime_error("no accessibility: " + text);
    }
}

} // namespace

Desktop::Desktop(const DesktopOptions& options) : home_(NewHome()) {
    SetEnvironment();
    StartServer();
    if (options.accessibility) {
        StartBus();
        TurnAccessibilityOn();
    } else {
        Set("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        Set("NO_AT_BRIDGE", "1");
    }
    if (options.windowManager) {
        StartWindowManager();
    }
}

Desktop::~Desktop() {
    windowManager_.reset();
    bus_.reset();
    server_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
}

void Desktop::SetEnvironment() const {
    const std::filesystem::path run = home_ / "run";
    std::filesystem::create_directory(run);
    std::filesystem::permissions(run, std::filesystem::perms::owner_all);
    Set("HOME", home_.string());
    Set("XDG_CONFIG_HOME", (home_ / "config").string());
    Set("XDG_DATA_HOME", (home_ / "data").string());
    Set("XDG_CACHE_HOME", (home_ / "cache").string());
    Set("XDG_RUNTIME_DIR", run.string());
    Set("GSETTINGS_BACKEND", "memory");
    Set("GDK_BACKEND", "x11");
    Set("LC_ALL", "C.UTF-8");
    for (const char* foreign :
         {"WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE", "GTK_THEME", "GTK_MODULES", "GDK_SCALE",
          "GDK_DPI_SCALE", "XAUTHORITY", "SESSION_MANAGER", "DESKTOP_STARTUP_ID"}) {
        unsetenv(foreign);
    }
}

void Desktop::StartServer() {
    const AnswerPipe answer;
    const std::string descriptor = std::to_string(answer.WriteEnd());
    server_ = std::make_unique<Process>(
        ProcessOptions{.command = {"Xvfb", "-displayfd", descriptor, "-screen", "0", "1600x1200x24", "-dpi",
                                   "96", "-nolisten", "tcp", "-noreset"},
                       .output = home_ / "server.log",
                       .inheritedDescriptor = answer.WriteEnd()});
    Set("DISPLAY", std::string(":").append(answer.ReadLine("Xvfb")));
}

void Desktop::StartBus() {
    const AnswerPipe answer;
    bus_ = std::make_unique<Process>(
        ProcessOptions{.command = {"dbus-daemon", "--session", "--nofork", "--nopidfile",
                                   "--address=unix:dir=" + (home_ / "run").string(),
                                   "--print-address=" + std::to_string(answer.WriteEnd())},
                       .output = home_ / "bus.log",
                       .inheritedDescriptor = answer.WriteEnd()});
    Set("DBUS_SESSION_BUS_ADDRESS", answer.ReadLine("dbus-daemon"));
}

void Desktop::StartWindowManager() {
    const std::filesystem::path settings = home_ / "openbox.xml";
    std::ofstream(settings) << kWindowManagerSettings;
    windowManager_ = std::make_unique<Process>(
        ProcessOptions{.command = {"openbox", "--sm-disable", "--config-file", settings.string()},
                       .output = home_ / "openbox.log"});
    const Screen screen;
    if (!WaitUntil([&] { return !screen.Property(screen.Root(), "_NET_SUPPORTING_WM_CHECK").empty(); })) {
        throw std::runtime_error("openbox does not start");
    }
}

} // namespace tarveth::harness
