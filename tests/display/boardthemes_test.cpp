// The themes of the board's colours.
#include "storage/boardthemes.h"

#include "display/board.h"
#include "display/contrast.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tarveth::test {

TEST(BoardThemes, BeginWithTheBuiltInOne) {
    EXPECT_EQ(kBoardThemes[0].black, Settings().BoardBlack);
    EXPECT_EQ(kBoardThemes[0].white, Settings().BoardWhite);
}

TEST(BoardThemes, AreAtLeastSixThatDiffer) {
    std::set<std::string> names;
    std::set<std::pair<Pixel, Pixel>> colours;
    for (const BoardTheme& theme : kBoardThemes) {
        names.insert(theme.name);
        colours.insert({ColourOf(theme.black), ColourOf(theme.white)});
    }
    EXPECT_GE(kBoardThemes.size(), 6U);
    EXPECT_EQ(names.size(), kBoardThemes.size());
    EXPECT_EQ(colours.size(), kBoardThemes.size());
}

TEST(BoardThemes, HaveSquaresThatAreEasilyToldApartAndADarkerBlack) {
    for (const BoardTheme& theme : kBoardThemes) {
        EXPECT_GE(Contrast(ColourOf(theme.black), ColourOf(theme.white)), kShapeContrast) << theme.name;
        EXPECT_LT(Luminance(ColourOf(theme.black)), Luminance(ColourOf(theme.white))) << theme.name;
    }
}

} // namespace tarveth::test
