// The user's settings: their names and their built-in values.
#pragma once

#include "engine/GameOptions.h"

#include <array>
#include <cstdint>
#include <string>

namespace tarveth {

inline constexpr char kSettingsFile[] = "tarveth.ini"; // in the program's folder
inline constexpr char kNoPicture[] = "[none]";         // stands for a picture or a scheme where there is none

// The colour of one kind of board square. Components are meant to be 0 to 255, but are kept as they are read.
struct BoardColor {
    std::int16_t R = 0;
    std::int16_t G = 0;
    std::int16_t B = 0;

    friend bool operator==(const BoardColor&, const BoardColor&) = default;
};

// A yes-or-no setting holds the number that was read, so that a 1 written by hand stays 1: 0 is no, any other
// number is yes, and the program itself writes -1. The questions below ask for what they mean.
// Colours are red + green * 256 + blue * 65536.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the members stand in the order of the file
struct Settings : GameOptions {
    std::int16_t ZOCRight = -1;
    std::int16_t GridLabels = 0;
    std::int16_t History = 0;
    std::int16_t AutoSaveLog = 0;
    std::string Nickname = "Bubba";

    std::int16_t UseNewUserSound = 0;
    std::string NewUserSound; // a WAV file; any other text makes a beep
    std::int16_t NewUserSoundDelay = 1;
    std::string SoundVictor;
    std::string SoundLoser;

    std::string PictureScheme = kNoPicture;
    std::array<std::string, 4> BluePics = {"", kNoPicture, kNoPicture, kNoPicture}; // by PieceKind, 1 to 3
    std::array<std::string, 4> RedPics = {"", kNoPicture, kNoPicture, kNoPicture};

    BoardColor BoardBlack = {0, 0, 0};
    BoardColor BoardWhite = {255, 255, 255};

    std::string TranscriptFontName = "MS Sans Serif";
    std::int16_t TranscriptFontSize = 8; // sizes in points
    std::int32_t TranscriptMyColor = 32768;
    std::int32_t TranscriptOppColor = 0;
    std::int32_t TranscriptSysColor = 8388736;
    std::int32_t TranscriptColor = 0;
    std::string UserListFontName = "MS Sans Serif";
    std::int16_t UserListFontSize = 8;
    std::string ChatTextFontName = "MS Sans Serif";
    std::int16_t ChatTextFontSize = 8;

    std::int16_t LegalMoves = -1; // marks where a piece may go, and which pieces may be picked
    std::int16_t LastMove = -1;   // marks what the last move and return have done
    std::int16_t Zones = 0;       // shows the zones of the side to move as long as it is on
    std::int16_t BothZones = 0;   // with Zones: those of the other side too
    std::int16_t KeepAside = -1;  // the game on the board, for the next start and to be brought back
    std::int16_t KeepGames = -1;  // finished games, in the library

    std::int16_t OwnSide = 0; // against the computer: a Side, or 0 for one by chance
    std::int16_t ComputerLevel = 2;

    friend bool operator==(const Settings&, const Settings&) = default;

    bool ShowsZoneOnRightClick() const { return ZOCRight != 0; }
    bool ShowsGridLabels() const { return GridLabels != 0; }
    bool ShowsHistory() const { return History != 0; }
    bool SavesLogAtGameEnd() const { return AutoSaveLog != 0; }
    bool MarksLegalMoves() const { return LegalMoves != 0; }
    bool MarksLastMove() const { return LastMove != 0; }
    bool ShowsZones() const { return Zones != 0; }
    bool ShowsBothZones() const { return BothZones != 0; }
    bool KeepsGameAside() const { return KeepAside != 0; }
    bool KeepsFinishedGames() const { return KeepGames != 0; }
    bool PlaysNewUserSound() const { return UseNewUserSound != 0; }
};

} // namespace tarveth
