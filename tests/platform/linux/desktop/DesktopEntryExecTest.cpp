#include "platform/linux/desktop/DesktopEntryExec.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Words = std::vector<std::string>;

std::optional<Words> words(std::string_view exec) {
    return execArguments(exec, "Disk Doctor");
}

TEST(DesktopEntryExec, ArgumentsStandBetweenBlanks) {
    EXPECT_EQ(words("systemsettings  kcm_network\t-x "), (Words{"systemsettings", "kcm_network", "-x"}));
}

TEST(DesktopEntryExec, QuotedArgumentKeepsItsBlanks) {
    EXPECT_EQ(words(R"("/opt/my program/run" "a b")"), (Words{"/opt/my program/run", "a b"}));
}

TEST(DesktopEntryExec, BackslashTakesTheMeaningWithinQuotes) {
    EXPECT_EQ(words(R"(x "a\"b" "\`c\`" "\$d" "e\\f")"), (Words{"x", "a\"b", "`c`", "$d", "e\\f"}));
}

TEST(DesktopEntryExec, BackslashBeforeAnotherLetterStaysWithinQuotes) {
    EXPECT_EQ(words(R"(x "a\nb")"), (Words{"x", R"(a\nb)"}));
}

TEST(DesktopEntryExec, SingleQuotesAndBareBackslashesAreReadAsAShellDoes) {
    EXPECT_EQ(words(R"(sh -c 'a "b"; c' d\ e)"), (Words{"sh", "-c", R"(a "b"; c)", "d e"}));
}

TEST(DesktopEntryExec, EmptyQuotedArgumentIsOne) {
    EXPECT_EQ(words(R"(x "" y)"), (Words{"x", "", "y"}));
}

TEST(DesktopEntryExec, CodesOfFilesAndOfThePastAreDropped) {
    EXPECT_EQ(words("x %f %F %u %U %i %k %d %D %n %N %v %m y"), (Words{"x", "y"}));
}

TEST(DesktopEntryExec, CodeWithinAnArgumentLeavesTheRest) {
    EXPECT_EQ(words("x --file=%f"), (Words{"x", "--file="}));
}

TEST(DesktopEntryExec, NameIsOneArgumentWithAllItsBlanks) {
    EXPECT_EQ(words("x -caption %c"), (Words{"x", "-caption", "Disk Doctor"}));
    EXPECT_EQ(words("x --title=%c!"), (Words{"x", "--title=Disk Doctor!"}));
}

TEST(DesktopEntryExec, NameIsNotReadAsACommand) {
    EXPECT_EQ(execArguments("x %c", "\"; rm %f '"), (Words{"x", "\"; rm %f '"}));
}

TEST(DesktopEntryExec, TwoPercentSignsAreOne) {
    EXPECT_EQ(words("x 100%% %%f"), (Words{"x", "100%", "%f"}));
}

TEST(DesktopEntryExec, UnknownCodeMakesTheLineUnusable) {
    EXPECT_EQ(words("x %q"), std::nullopt);
    EXPECT_EQ(words("x 100%"), std::nullopt);
}

TEST(DesktopEntryExec, OpenQuoteMakesTheLineUnusable) {
    EXPECT_EQ(words("x \"a b"), std::nullopt);
    EXPECT_EQ(words("x 'a b"), std::nullopt);
    EXPECT_EQ(words("x \"a\\\""), std::nullopt);
    EXPECT_EQ(words("x \\"), std::nullopt);
}

TEST(DesktopEntryExec, LineWithoutAProgramIsUnusable) {
    EXPECT_EQ(words(""), std::nullopt);
    EXPECT_EQ(words("  "), std::nullopt);
    EXPECT_EQ(words("%f"), std::nullopt);
    EXPECT_EQ(words("\"\" x"), std::nullopt);
}

TEST(DesktopEntryExec, ProgramWithAnEqualSignIsUnusable) {
    EXPECT_EQ(words("A=1 x"), std::nullopt);
    EXPECT_EQ(words("env A=1 x"), (Words{"env", "A=1", "x"}));
}

}  // namespace
}  // namespace velmora
