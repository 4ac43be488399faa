#include "net/wire/modPARSER.h"

#include <gtest/gtest.h>

#include <array>

namespace tarveth {
namespace {

using Strings = std::vector<std::string>;

Strings Split(std::string_view text, unsigned options, std::string_view separators = ",") {
    MessageFields fields;
    fields.SplitArgs(text, separators, options);
    Strings args;
    for (int i = 1; i <= fields.ArgCount(); ++i)
        args.push_back(fields.GetArg(i));
    const auto views = SplitFields(text, separators, options);
    EXPECT_EQ(args, Strings(views.begin(), views.end()));
    EXPECT_EQ(fields.ArgCount(), CountSeparators(text, separators, options) + 1);
    return args;
}

TEST(SplitArgs, ParenthesesGroupWhenTheyAreAskedTo) {
    EXPECT_EQ(Split("a,(b,c),d", kGroupParentheses), (Strings{"a", "(b,c)", "d"}));
    EXPECT_EQ(Split("a,(b,c),d", 0), (Strings{"a", "(b", "c)", "d"}));
    EXPECT_EQ(Split("a,((b,c),d),e", kGroupParentheses), (Strings{"a", "((b,c),d)", "e"}));
}

TEST(SplitArgs, QuotesGroupWhenTheyAreAskedToAndStay) {
    EXPECT_EQ(Split("a,\"b,c\",d", kGroupQuotes), (Strings{"a", "\"b,c\"", "d"}));
    EXPECT_EQ(Split("a,\"b,c\",d", kGroupParentheses), (Strings{"a", "\"b", "c\"", "d"}));
    EXPECT_EQ(Split("\"a,(b\",c),d", kGroupParentheses | kGroupQuotes), (Strings{"\"a,(b\",c)", "d"}));
}

TEST(SplitArgs, ASeparatorAtAnEndMakesAnEmptyField) {
    EXPECT_EQ(Split("x,y", 0), (Strings{"x", "y"}));
    EXPECT_EQ(Split("x,", 0), (Strings{"x", ""}));
    EXPECT_EQ(Split(",x", 0), (Strings{"", "x"}));
}

TEST(SplitArgs, AnEmptyTextIsOneEmptyField) {
    EXPECT_EQ(Split("", kGroupParentheses | kGroupQuotes), (Strings{""}));
}

TEST(SplitArgs, FieldsAreNotTrimmed) {
    EXPECT_EQ(Split(" a , b", 0), (Strings{" a ", " b"}));
}

TEST(SplitArgs, AnUnbalancedClosingParenthesisEndsTheGroupingEarly) {
    EXPECT_EQ(Split("(a),b,c)", kGroupParentheses), (Strings{"(a)", "b", "c)"}));
    EXPECT_EQ(Split("(a)b),c,(d,e)", kGroupParentheses), (Strings{"(a)b)", "c", "(d,e)"}));
}

TEST(SplitArgs, AnUnbalancedOpeningParenthesisGroupsTheRest) {
    EXPECT_EQ(Split("a,(b,c", kGroupParentheses), (Strings{"a", "(b,c"}));
}

TEST(SplitArgs, VersionsSplitAtPeriods) {
    EXPECT_EQ(Split("2.6.4", 0, "."), (Strings{"2", "6", "4"}));
}

TEST(SplitArgs, EachFieldButTheLastHasItsSeparator) {
    MessageFields fields;
    fields.SplitArgs("a.b,c", ",.", 0);
    ASSERT_EQ(fields.ArgSeparators.size(), 3U);
    EXPECT_EQ(fields.ArgSeparators[1], ".");
    EXPECT_EQ(fields.ArgSeparators[2], ",");
}

TEST(SplitArgs, ASecondSplitForgetsTheFirst) {
    MessageFields fields;
    fields.SplitArgs("a,b,c", ",", 0);
    fields.SplitArgs("d", ",", 0);
    EXPECT_EQ(fields.ArgCount(), 1);
    EXPECT_EQ(fields.GetArg(1), "d");
    EXPECT_EQ(fields.ArgSeparators.size(), 1U);
}

TEST(GetArg, IsEmptyOutsideTheFields) {
    MessageFields fields;
    EXPECT_EQ(fields.ArgCount(), 0);
    fields.SplitArgs("a,b,c", ",", 0);
    EXPECT_EQ(fields.GetArg(3), "c");
    EXPECT_EQ(fields.GetArg(5), "");
    EXPECT_EQ(fields.GetArg(0), "");
    EXPECT_EQ(fields.GetArg(-1), "");
}

TEST(FindClosingParen, FindsTheOneThatCloses) {
    EXPECT_EQ(FindClosingParen("a(b)c)d"), 6);
    EXPECT_EQ(FindClosingParen(")"), 1);
    EXPECT_EQ(FindClosingParen("a))"), 2);
}

TEST(FindClosingParen, IsZeroWhenNothingCloses) {
    EXPECT_EQ(FindClosingParen(""), 0);
    EXPECT_EQ(FindClosingParen("a(b)c"), 0);
}

TEST(TakeShortArgs, TakesTheFirstMessageOfTheText) {
    std::string_view text = "M(3,4)R(2)";
    EXPECT_EQ(TakeShortArgs(text), "3,4");
    EXPECT_EQ(text, "R(2)");
    EXPECT_EQ(TakeShortArgs(text), "2");
    EXPECT_EQ(text, "");
}

TEST(TakeShortArgs, KeepsNestedParentheses) {
    std::string_view text = "X(so (so))M(1,2)";
    EXPECT_EQ(TakeShortArgs(text), "so (so)");
    EXPECT_EQ(text, "M(1,2)");
}

TEST(TakeShortArgs, AMessageThatNeverClosesIsTakenWhole) {
    for (std::string_view text : {"M(3,4", "M(", "M", "", "X((a)"}) {
        EXPECT_EQ(TakeShortArgs(text), std::nullopt);
        EXPECT_EQ(text, "");
    }
}

TEST(SplitFields, FillsTheRoomThatThereIsAndCountsAll) {
    std::array<std::string_view, 2> fields;
    EXPECT_EQ(SplitFields("a,(b,c),d", ",", kGroupParentheses, fields), 3U);
    EXPECT_EQ(fields, (std::array<std::string_view, 2>{"a", "(b,c)"}));
}

TEST(SplitFields, LeavesTheFieldsAloneThatAreNotThere) {
    std::array<std::string_view, 3> fields{"", "", "z"};
    EXPECT_EQ(SplitFields("x,", ",", 0, fields), 2U);
    EXPECT_EQ(fields, (std::array<std::string_view, 3>{"x", "", "z"}));
    EXPECT_EQ(SplitFields("", ",", 0, fields), 1U);
}

} // namespace
} // namespace tarveth
