#include "platform/linux/processes/MadeUpProcesses.h"
#include "platform/linux/processes/ProcPidIo.h"
#include "platform/linux/processes/ProcPidStat.h"
#include "platform/linux/processes/ProcPidStatus.h"
#include "platform/linux/processes/ProcessNames.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

using namespace std::string_literals;

std::optional<std::string> commOf(const std::string& comm) {
    MadeUpProcess process;
    process.comm = comm;
    process.startTicks = 77;
    const std::string text = statTextOf(process);
    const auto stat = parseProcPidStat(text);
    if (!stat || stat->startTicks != 77) return std::nullopt;
    return std::string(stat->comm);
}

TEST(ProcPidStatTest, FieldsAreReadByTheirNumbers) {
    MadeUpProcess process;
    process.pid = 4711;
    process.comm = "firefox";
    process.parent = 12;
    process.flags = 5;
    process.childFaults = 40;
    process.userTicks = 10;
    process.systemTicks = 3;
    process.childTicks = 8;
    process.startTicks = 99;
    process.residentPages = 123;
    const std::string text = statTextOf(process);
    const ProcPidStat expected{"firefox", 12, 5, 40, 13, 8, 99, 123};
    EXPECT_EQ(parseProcPidStat(text), expected);
}

TEST(ProcPidStatTest, NamesMayHaveSpacesParenthesesNewlinesCommasAndDots) {
    for (const auto& comm :
         {"Web Content"s, "((sd-pam))"s, "a) S 1 (b"s, "two\nlines"s, "a,b.c"s, ")"s, ""s, " "s})
        EXPECT_EQ(commOf(comm), comm);
}

TEST(ProcPidStatTest, KernelThreadsAreKnownByTheirFlag) {
    EXPECT_TRUE((ProcPidStat{.comm = "", .flags = 0x208040}).isKernelThread());
    EXPECT_FALSE((ProcPidStat{.comm = "", .flags = 0x400100}).isKernelThread());
}

TEST(ProcPidStatTest, NegativeTimesOfChildrenCountAsNone) {
    const auto stat = parseProcPidStat("1 (a) S 1 1 1 0 -1 4 1 1 1 1 5 5 -3 -4 20 0 1 0 9 1 -7 1\n");
    ASSERT_TRUE(stat);
    EXPECT_EQ(stat->childTicks, 0U);
    EXPECT_EQ(stat->residentPages, 0U);
}

TEST(ProcPidStatTest, AnyOtherTextGivesNothing) {
    const std::string whole = statTextOf({});
    for (const auto& text : {""s, "1"s, ") ("s, "1 (a"s, "1 (a)"s, std::string(600, '\0'), "1 (a) S x 1 1"s,
                             whole.substr(0, 60), "1 (a) S 1 1 1 0 -1 4 1 1 1 1 99999999999999999999 5"s})
        EXPECT_FALSE(parseProcPidStat(text)) << text;
}

TEST(ProcPidStatusTest, KibibytesBecomeBytes) {
    MadeUpProcess process;
    process.comm = "firefox";
    process.user = 1000;
    process.anonymousKibibytes = 10;
    process.swapKibibytes = 3;
    ProcPidStatus status;
    ASSERT_TRUE(parseProcPidStatus(statusTextOf(process), status));
    EXPECT_EQ(status.name, "firefox");
    EXPECT_EQ(status.user, 1000U);
    EXPECT_EQ(status.anonymousBytes, 10240U);
    EXPECT_EQ(status.swappedBytes, 3072U);
}

TEST(ProcPidStatusTest, EscapesInTheNameAreUndone) {
    ProcPidStatus status;
    ASSERT_TRUE(parseProcPidStatus("Name:\ttwo\\nlines\\\\\nUid:\t1\t2\t3\t4\n", status));
    EXPECT_EQ(status.name, "two\nlines\\");
    EXPECT_EQ(status.user, 2U);
}

TEST(ProcPidStatusTest, NameMayLookLikeAnotherLine) {
    ProcPidStatus status;
    ASSERT_TRUE(parseProcPidStatus("Name:\tUid: 7\nUid:\t1\t2\t3\t4\n", status));
    EXPECT_EQ(status.name, "Uid: 7");
    EXPECT_EQ(status.user, 2U);
}

TEST(ProcPidStatusTest, KernelThreadHasNoMemory) {
    ProcPidStatus status;
    status.anonymousBytes = 5;
    ASSERT_TRUE(parseProcPidStatus(statusTextOf({}), status));
    EXPECT_FALSE(status.anonymousBytes);
    EXPECT_FALSE(status.swappedBytes);
}

TEST(ProcPidStatusTest, TextWithoutNameOrUserIsRefused) {
    ProcPidStatus status;
    for (const auto& text :
         {""s, "Name:\ta\n"s, "Uid:\t1\t2\n"s, "Name:\ta\nUid:\tx\ty\n"s, std::string(500, '\0')})
        EXPECT_FALSE(parseProcPidStatus(text, status)) << text;
}

TEST(ProcPidStatusTest, NumberThatNoMemoryHasIsAbsent) {
    ProcPidStatus status;
    ASSERT_TRUE(parseProcPidStatus("Name:\ta\nUid:\t1\t2\nRssAnon:\t18446744073709551615 kB\n", status));
    EXPECT_FALSE(status.anonymousBytes);
}

TEST(ProcPidIoTest, StorageBytesAreReadAndOthersAreNot) {
    EXPECT_EQ(parseProcPidIo("rchar: 1\nread_bytes: 20\nwrite_bytes: 30\ncancelled_write_bytes: 9\n"),
              (ProcPidIo{20, 30}));
}

TEST(ProcPidIoTest, HalfATextGivesNothing) {
    for (const auto& text : {""s, "read_bytes: 1\n"s, "write_bytes: 1\n"s, "read_bytes: x\nwrite_bytes: 1\n"s,
                             std::string(64, '\0')})
        EXPECT_FALSE(parseProcPidIo(text)) << text;
}

TEST(ProcessNamesTest, CutNameIsContinuedByExecutableOrFirstArgument) {
    EXPECT_EQ(ProcessNames::uncut("gnome-terminal-", "/usr/libexec/gnome-terminal-server", ""),
              "gnome-terminal-server");
    EXPECT_EQ(ProcessNames::uncut("gnome-terminal-", "", "/x/gnome-terminal-server"),
              "gnome-terminal-server");
    EXPECT_EQ(ProcessNames::uncut("Isolated Web Co", "/usr/lib/firefox/firefox", "firefox"),
              "Isolated Web Co");
    EXPECT_EQ(ProcessNames::uncut("short", "/usr/bin/shorter", "shorter"), "short");
}

TEST(ProcessNamesTest, NameOfAProgramIsThatOfItsExecutableUnlessThatIsAnInterpreter) {
    EXPECT_EQ(ProcessNames::ofProgram("/usr/lib/firefox/firefox"), "firefox");
    for (const char* path : {"/usr/bin/python3.11", "/usr/bin/node", "/usr/lib/jvm/bin/java", "/usr/bin/perl",
                             "/bin/sh", "/usr/bin/bash", "/usr/lib/electron25/electron", ""})
        EXPECT_EQ(ProcessNames::ofProgram(path), "") << path;
    EXPECT_EQ(ProcessNames::ofProgram("/usr/bin/pythonista"), "pythonista");
    EXPECT_EQ(ProcessNames::ofProgram("/memfd:sealed-91"), "") << "started from memory: no file names it";
}

TEST(ProcessNamesTest, ShownNamesAreTextWithoutControlCharacters) {
    EXPECT_EQ(ProcessNames::shown("two\nlines\t\x7F"), "two?lines??");
    EXPECT_EQ(ProcessNames::shown("a\xFF"), "a\uFFFD");
    EXPECT_EQ(ProcessNames::shown("Gimp – größer"), "Gimp – größer");
    EXPECT_EQ(ProcessNames::shown(std::string(3, '\0')), "???");
    EXPECT_LE(ProcessNames::shown(std::string(400, '\xFF')).size(), 255U);
}

}  // namespace
}  // namespace velmora
