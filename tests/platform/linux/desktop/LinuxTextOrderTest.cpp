#include "platform/linux/desktop/LinuxTextOrder.h"

#include <gtest/gtest.h>

#include <locale.h>

namespace velmora {
namespace {

TEST(LinuxTextOrder, CaseDoesNotCount) {
    const LinuxTextOrder order("C.UTF-8");
    EXPECT_TRUE(order.compareIgnoringCase("alpha", "ALPHA") == 0);
    EXPECT_TRUE(order.compareIgnoringCase("alpha", "Beta") < 0);
    EXPECT_TRUE(order.compareIgnoringCase("zeta", "Alpha") > 0);
}

TEST(LinuxTextOrder, CaseOfLettersOutsideAsciiDoesNotCountEither) {
    const LinuxTextOrder order("C.UTF-8");
    EXPECT_TRUE(order.compareIgnoringCase("\u00e4\u0436", "\u00c4\u0416") == 0);
}

TEST(LinuxTextOrder, UnknownLocaleAndOneOfAnotherCharacterSetStillOrder) {
    for (const char* name : {"no_SUCH.UTF-8", "C", "POSIX"}) {
        const LinuxTextOrder order(name);
        EXPECT_TRUE(order.compareIgnoringCase("Alpha", "beta") < 0) << name;
        EXPECT_TRUE(order.compareIgnoringCase("\u00e4", "\u00c4") == 0) << name;
    }
}

TEST(LinuxTextOrder, ShorterTextAndEmptyTextComeFirst) {
    const LinuxTextOrder order("C.UTF-8");
    EXPECT_TRUE(order.compareIgnoringCase("", "a") < 0);
    EXPECT_TRUE(order.compareIgnoringCase("a", "ab") < 0);
    EXPECT_TRUE(order.compareIgnoringCase("", "") == 0);
}

TEST(LinuxTextOrder, TextThatIsNoUtf8IsOrdered) {
    const LinuxTextOrder order;
    EXPECT_TRUE(order.compareIgnoringCase("M\xFCller", "M\xFCller") == 0);
    EXPECT_TRUE(order.compareIgnoringCase("a\xFF", "b") < 0);
}

TEST(LinuxTextOrder, ProcessKeepsItsOwnLanguage) {
    const std::string before = ::setlocale(LC_ALL, nullptr);
    const LinuxTextOrder order("C.UTF-8");
    order.compareIgnoringCase("a", "b");
    EXPECT_EQ(before, ::setlocale(LC_ALL, nullptr));
}

}  // namespace
}  // namespace velmora
