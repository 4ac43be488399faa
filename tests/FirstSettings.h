// The content of tarveth.ini after the program has run for the first time, except the window's position at
// its end. Line ends are \n here and CR LF in the file.
#pragma once

namespace tarveth::test {

inline constexpr const char* kFirstSettings = R"([ClientOptions]
TranscriptFontName=MS Sans Serif
TranscriptFontSize=8
TranscriptMyColor=32768
TranscriptOppColor=0
TranscriptSysColor=8388736
TranscriptColor=0
UserListFontName=MS Sans Serif
UserListFontSize=8
ChatTextFontName=MS Sans Serif
ChatTextFontSize=8
[Options]
GameBoard=1
ZOCRight=-1
GridLabels=0
AnimateMoves=-1
History=0
AutoSaveLog=0
Nickname=Bubba
[Sounds]
UseNewUserSound=0
NewUserSound=
NewUserSoundDelay=1
SoundVictor=
SoundLoser=
[Pictures]
PictureScheme=[none]
1Blue=[none]
2Blue=[none]
3Blue=[none]
1Red=[none]
2Red=[none]
3Red=[none]
[BoardBlack]
R=0
G=0
B=0
[BoardWhite]
R=255
G=255
B=255
[Position]
)";

} // namespace tarveth::test
