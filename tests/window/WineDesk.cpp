#include "tests/window/WineDesk.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace tarveth::harness {

namespace {

constexpr int kSquares = 8; // in a row of the board
constexpr int kMenuAttempts = 5;
constexpr Milliseconds kMenuPatience{4'000};
constexpr std::uint32_t kDark = 0x0A1464;
constexpr std::uint32_t kLight = 0xE6F0A0;

std::filesystem::path NewFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tarveth-wine-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    return name;
}

ProgramOptions ForProgram(const WineFolder& folder, const std::vector<std::string>& arguments) {
    ProgramOptions options{.path = WINE,
                           .arguments = {"tarveth.exe"},
                           .environment = WineEnvironment(),
                           .workingFolder = folder.Path()};
    options.arguments.insert(options.arguments.end(), arguments.begin(), arguments.end());
    return options;
}

// The rows and columns that hold one of the board's colours.
Rect AreaOfBoardColours(const Picture& picture) {
    Rect area{picture.width, picture.height, 0, 0};
    int right = -1;
    int bottom = -1;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t pixel = picture.Pixel(x, y);
            if (pixel == kDark || pixel == kLight) {
                area.x = std::min(area.x, x);
                area.y = std::min(area.y, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
        }
    }
    area.width = right - area.x + 1;
    area.height = bottom - area.y + 1;
    return area;
}

} // namespace

WineFolder::WineFolder(const std::string& options, const std::string& sections) : path_(NewFolder()) {
    std::filesystem::copy_file(WINDOWS_PROGRAM, path_ / "tarveth.exe");
    Write("tarveth.ini", "[Options]\r\nAnimateMoves=0\r\nAutoSaveLog=-1\r\n" + options +
                             "[Position]\r\nX=0\r\nY=0\r\n" + kBoardColours + sections);
}

WineFolder::~WineFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string WineFolder::Read(const std::string& file) const {
    std::ifstream bytes(path_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(bytes), {}};
}

void WineFolder::Write(const std::string& file, std::string_view bytes) const {
    std::ofstream(path_ / file, std::ios::binary) << bytes;
}

void WineFolder::Bring(const std::string& file) const {
    std::filesystem::copy_file(std::filesystem::path(WINDOWS_PROGRAM).parent_path() / file, path_ / file);
}

WineDesk::WineDesk(const WineFolder& folder, const std::vector<std::string>& arguments)
    : WineDesk(ForProgram(folder, arguments)) {}

WineDesk::WineDesk(const ProgramOptions& start)
    : program(screen, start), window(program.WaitForWindow("Tarveth", kWinePatience)), board_(FindBoard()) {}

// Once it is all there: as many pixels wide as high, and whole squares.
Rect WineDesk::FindBoard() {
    Rect area;
    const bool found = WaitUntil([&] {
        const Rect client = window.ClientArea();
        area = AreaOfBoardColours(screen.Capture(client));
        area.x += client.x;
        area.y += client.y;
        return area.width >= kSquares * 16 && area.width == area.height && area.width % kSquares == 0;
    });
    if (!found) {
        throw std::runtime_error("no board is to be seen: " + program.Output());
    }
    return area;
}

bool WineDesk::Click(std::string_view square) {
    const Picture before = Board();
    const int size = board_.width / kSquares;
    const Rect area{board_.x + (square.at(0) - '1') * size, board_.y + (square.at(1) - 'A') * size, size,
                    size};
    screen.Click(area.Centre());
    return WaitUntil([&] { return Board() != before; });
}

void WineDesk::Choose(std::string_view menuKey, std::string_view itemKey) {
    // Under Wine a window may have the keyboard a little later than the desktop says, and then the key is
    // lost.
    const Picture before = screen.Capture();
    const auto menuIsOpen = [&] { return screen.Capture() != before; };
    for (int attempt = 0; attempt < kMenuAttempts; ++attempt) {
        screen.Key("Alt+" + std::string(menuKey));
        if (WaitUntil(menuIsOpen, kMenuPatience)) {
            screen.Key(itemKey);
            return;
        }
    }
    throw std::runtime_error("no menu opens: " + program.Output());
}

void WineDesk::KeepShot(const std::string& name) const {
    std::filesystem::create_directories(SHOTS_FOLDER);
    screen.Capture().WritePng(std::filesystem::path(SHOTS_FOLDER) / (name + ".png"));
}

bool WineDesk::Close() {
    window.Close();
    return program.WaitForExit().has_value();
}

} // namespace tarveth::harness
