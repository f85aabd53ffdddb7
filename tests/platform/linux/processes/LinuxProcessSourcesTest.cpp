#include "base/FormatText.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/processes/LinuxProcessCounterSource.h"
#include "platform/linux/processes/LinuxProcessFootprintSource.h"
#include "platform/linux/processes/LinuxProcessLister.h"
#include "platform/linux/processes/MadeUpProcesses.h"
#include "samplers/ProcessRecords.h"
#include "samplers/TopProcessSampler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class LinuxProcessSourcesTest : public testing::Test {
protected:
    void write(const MadeUpProcess& process) const { writeProcess(tree.root(), process); }
    SystemTree tree;
};

// The process ids in bytes.

class ProcessTableTest : public LinuxProcessSourcesTest {
protected:
    std::vector<std::int32_t> listed(std::size_t room, std::uint32_t user) const {
        ProcessTable table(tree.root());
        EXPECT_TRUE(table.walk());
        std::vector<std::int32_t> buffer(room);
        const std::int32_t bytes = table.fillInBytes(buffer, user);
        const auto ids = ProcessRecords::idsByByteCount(bytes, buffer);
        return {ids.begin(), ids.end()};
    }
    void writeFour() const {
        write({.pid = 2, .comm = "kthreadd", .flags = 0x208040, .startTicks = 1});
        write({.pid = 10, .startTicks = 500});
        write({.pid = 30, .startTicks = 300});  // The number went around: pid 10 is the newer one.
        write({.pid = 20, .startTicks = 400});
    }
};

TEST_F(ProcessTableTest, OwnProcessesComeNewestFirstAndKernelThreadsLast) {
    writeFour();
    EXPECT_THAT(listed(8192, ::geteuid()), ElementsAre(10, 20, 30, 2));
}

TEST_F(ProcessTableTest, ProcessesOfOthersComeBehindOwnOnes) {
    writeFour();
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(tree.path("proc/10/stat").c_str(), 65534, 65534), 0);
        EXPECT_THAT(listed(8192, 0), ElementsAre(20, 30, 10, 2));
    } else {
        EXPECT_THAT(listed(8192, ::geteuid() + 1), ElementsAre(10, 20, 30, 2));
    }
}

TEST_F(ProcessTableTest, AnswerIsInBytesSoThatDividingItByFourKeepsEveryProcess) {
    writeFour();
    ProcessTable table(tree.root());
    table.walk();
    std::vector<std::int32_t> buffer(8192);
    EXPECT_EQ(table.fillInBytes(buffer, 0), 16);
}

TEST_F(ProcessTableTest, LargerTableIsCutAtTheBufferAndLosesTheLastInOrder) {
    writeFour();
    EXPECT_THAT(listed(3, ::geteuid()), ElementsAre(10, 20, 30));
}

TEST_F(ProcessTableTest, EntriesThatAreNoProcessesAndBrokenOnesAreLeftOut) {
    writeFour();
    tree.write("proc/sys/x", "");
    tree.write("proc/12a/stat", "12 (a) S");
    tree.write("proc/50/stat", "50 (cut) S 1");
    tree.write("proc/51/stat", std::string(300, '\0'));
    tree.write("proc/52/comm", "no stat");
    EXPECT_THAT(listed(8192, ::geteuid()), SizeIs(4));
}

TEST_F(ProcessTableTest, MissingFolderIsAFailure) {
    ProcessTable table(SystemRoot("/nonexistent"));
    EXPECT_FALSE(table.walk());
}

// Memory.

TEST_F(LinuxProcessSourcesTest, FootprintIsOwnPagesInMemoryAndInSwap) {
    write({.pid = 7, .comm = "firefox", .anonymousKibibytes = 100, .swapKibibytes = 20});
    LinuxProcessFootprintSource source(tree.root());
    EXPECT_EQ(source.footprint(7), 120U * 1024);
    EXPECT_EQ(source.name(7), "firefox");
    EXPECT_EQ(source.footprint(8), std::nullopt);
    EXPECT_EQ(source.name(8), "");
}

TEST_F(LinuxProcessSourcesTest, KernelThreadHasNoFootprint) {
    write({.pid = 2, .comm = "kthreadd", .flags = 0x208040});
    EXPECT_EQ(LinuxProcessFootprintSource(tree.root()).footprint(2), 0U);
}

TEST_F(LinuxProcessSourcesTest, CountFormGivesCountsAscending) {
    for (const std::int32_t pid : {30, 4, 100}) write({.pid = pid});
    LinuxProcessFootprintSource source(tree.root());
    EXPECT_EQ(source.listAll({}), 3);
    std::vector<std::int32_t> buffer(19);
    EXPECT_EQ(source.listAll(buffer), 3);
    EXPECT_THAT(std::vector(buffer.begin(), buffer.begin() + 3), ElementsAre(4, 30, 100));
    EXPECT_EQ(LinuxProcessFootprintSource(SystemRoot("/nonexistent")).listAll({}), -1);
}

TEST_F(LinuxProcessSourcesTest, ChildrenThatRenameThemselvesAddUpUnderTheProgramForTheOwnUserAlone) {
    constexpr std::uint64_t kHalfGigabyte = 500'000'000 / 1024 + 1;
    write({.pid = 7, .comm = "firefox", .anonymousKibibytes = kHalfGigabyte, .user = ::geteuid()});
    write({.pid = 8, .comm = "Isolated Web Co", .anonymousKibibytes = kHalfGigabyte, .user = ::geteuid()});
    write({.pid = 9, .comm = "script.py", .anonymousKibibytes = kHalfGigabyte, .user = ::geteuid()});
    write({.pid = 10, .comm = "theirs", .anonymousKibibytes = kHalfGigabyte, .user = ::geteuid() + 1});
    tree.link("proc/7/exe", "/usr/lib/firefox/firefox");
    tree.link("proc/8/exe", "/usr/lib/firefox/firefox (deleted)");
    tree.link("proc/9/exe", "/usr/bin/python3.11");
    tree.link("proc/10/exe", "/usr/lib/firefox/firefox");
    LinuxProcessFootprintSource source(tree.root());
    std::vector<std::string> names;
    for (const auto& process : TopProcessSampler::memoryFootprintTop(source, 8).top)
        names.push_back(process.name);
    EXPECT_THAT(names, ElementsAre("firefox", "script.py", "theirs"));
}

class ManyProcessesTest : public testing::TestWithParam<int> {
protected:
    TemporaryFolder folder{folderForManyFiles()};
    SystemRoot root{folder.path().native()};
};

TEST_P(ManyProcessesTest, EveryProcessIsCounted) {
    const std::int32_t count = GetParam();
    writeManyProcesses(root, count);
    // 1 + 2 + … + count without every tenth number.
    const auto tenths = static_cast<std::uint64_t>(count / 10);
    const auto whole = static_cast<std::uint64_t>(count);
    const std::uint64_t kibibytes = whole * (whole + 1) / 2 - 10 * (tenths * (tenths + 1) / 2);

    LinuxProcessFootprintSource source(root);
    std::vector<std::int32_t> buffer(static_cast<std::size_t>(source.listAll({})) + 16);
    const auto ids = ProcessRecords::idsByCount(source.listAll(buffer), buffer);
    ASSERT_EQ(ids.size(), whole);
    std::uint64_t bytes = 0;
    for (const std::int32_t pid : ids) bytes += source.footprint(pid).value_or(0);
    EXPECT_EQ(bytes, kibibytes * 1024);

    LinuxProcessCounterSource counters(root);
    std::vector<std::int32_t> fixed(ProcessRecords::kFixedBufferEntries);
    const auto listed = ProcessRecords::idsByByteCount(counters.listAll(fixed), fixed);
    EXPECT_EQ(listed.size(), std::min<std::size_t>(whole, 8192));
    // The newest is there however large the table is.
    EXPECT_EQ(listed.front(), count % 10 == 0 ? count - 1 : count);
}

INSTANTIATE_TEST_SUITE_P(Counts, ManyProcessesTest, testing::Values(100, 1000, 10000));

// Counters.

class LinuxProcessCounterSourceTest : public LinuxProcessSourcesTest {
protected:
    std::optional<ProcessCounters> counters(LinuxProcessCounterSource& source, std::int32_t pid) {
        source.listAll(buffer);
        return source.counters(pid);
    }
    std::vector<std::int32_t> buffer = std::vector<std::int32_t>(8192);
};

TEST_F(LinuxProcessCounterSourceTest, CountersAreThoseOfStorage) {
    write({.pid = 7, .comm = "dd", .readBytes = 100, .writeBytes = 200});
    LinuxProcessCounterSource source(tree.root());
    EXPECT_EQ(counters(source, 7), (ProcessCounters{100, 200, 0}));
    EXPECT_EQ(source.name(7), "dd");
}

TEST_F(LinuxProcessCounterSourceTest, ProcessWithoutReadableCountersIsAbsent) {
    write({.pid = 7});
    LinuxProcessCounterSource source(tree.root());
    tree.remove("proc/7/io");
    EXPECT_EQ(counters(source, 7), std::nullopt);
    tree.write("proc/7/io", "read_bytes: 1\n");
    EXPECT_EQ(counters(source, 7), std::nullopt);
    EXPECT_EQ(counters(source, 8), std::nullopt);
    EXPECT_EQ(LinuxProcessCounterSource(SystemRoot("/nonexistent")).listAll(buffer), -1);
}

TEST_F(LinuxProcessCounterSourceTest, BytesOfAChildThatWasWaitedForAreNotShownAgain) {
    MadeUpProcess shell{.pid = 7, .comm = "make", .readBytes = 10, .writeBytes = 100};
    write(shell);
    LinuxProcessCounterSource source(tree.root());
    EXPECT_EQ(counters(source, 7), (ProcessCounters{10, 100, 0}));
    shell.childTicks = 5;
    shell.writeBytes = 30'000'100;
    write(shell);
    EXPECT_EQ(counters(source, 7), (ProcessCounters{10, 100, 0}));
    // What it writes itself from then on counts.
    shell.writeBytes += 50;
    write(shell);
    EXPECT_EQ(counters(source, 7), (ProcessCounters{10, 150, 0}));
}

TEST_F(LinuxProcessCounterSourceTest, ChildTooShortForTheClockShowsByItsPageFaults) {
    MadeUpProcess shell{.pid = 7, .writeBytes = 100};
    write(shell);
    LinuxProcessCounterSource source(tree.root());
    counters(source, 7);
    shell.childFaults = 120;
    shell.writeBytes = 4196;
    write(shell);
    EXPECT_EQ(counters(source, 7), (ProcessCounters{0, 100, 0}));
}

TEST_F(LinuxProcessCounterSourceTest, NumberThatPassedToANewProcessBeginsAnew) {
    write({.pid = 7, .childTicks = 9, .startTicks = 100, .writeBytes = 5000});
    LinuxProcessCounterSource source(tree.root());
    counters(source, 7);
    write({.pid = 7, .startTicks = 900, .writeBytes = 70});
    EXPECT_EQ(counters(source, 7), (ProcessCounters{0, 70, 0}));
}

TEST_F(LinuxProcessCounterSourceTest, WithoutReadablePackagesNoEnergyIsKnown) {
    write({.pid = 7});
    LinuxProcessCounterSource source(tree.root());
    EXPECT_EQ(source.ownEnergy(), 0U);
    EXPECT_EQ(counters(source, 7)->billedEnergy, 0U);
}

TEST_F(LinuxProcessCounterSourceTest, PackageEnergyIsSharedByProcessorTime) {
    const auto writePackages = [this](const std::string& first, const std::string& second) {
        tree.write("sys/class/powercap/intel-rapl:0/name", "package-0\n");
        tree.write("sys/class/powercap/intel-rapl:0/energy_uj", first);
        tree.write("sys/class/powercap/intel-rapl:0/max_energy_range_uj", "1000000\n");
        tree.write("sys/class/powercap/intel-rapl:1/name", "package-1\n");
        tree.write("sys/class/powercap/intel-rapl:1/energy_uj", second);
        tree.write("sys/class/powercap/intel-rapl:1/max_energy_range_uj", "1000000\n");
        // Counted in the package, or counting it.
        tree.write("sys/class/powercap/intel-rapl:0:0/name", "core\n");
        tree.write("sys/class/powercap/intel-rapl:0:0/energy_uj", first);
        tree.write("sys/class/powercap/intel-rapl:2/name", "psys\n");
        tree.write("sys/class/powercap/intel-rapl:2/energy_uj", first);
    };
    writePackages("100\n", "999000\n");
    write({.pid = 7, .userTicks = 1000});
    write({.pid = 8, .userTicks = 1000});
    LinuxProcessCounterSource source(tree.root());
    EXPECT_NE(source.ownEnergy(), 0U);
    const std::uint64_t first = counters(source, 7)->billedEnergy;
    EXPECT_NE(first, 0U);
    // 300 µJ, and 1000 + 100 µJ over the end of the counter; three quarters of the time are process 7's.
    writePackages("400\n", "100\n");
    write({.pid = 7, .userTicks = 1030});
    write({.pid = 8, .userTicks = 1000, .systemTicks = 10});
    EXPECT_EQ(counters(source, 7)->billedEnergy - first, 1'050'000U);
    EXPECT_EQ(source.counters(8)->billedEnergy - first, 350'000U);
}

// Lines.

class LinuxProcessListerTest : public LinuxProcessSourcesTest {
protected:
    void run(const std::vector<std::string>& arguments, int lines = 8) {
        output.reset();
        wasCalled = false;
        lister.run(arguments, lines, [this](std::optional<std::string> text) {
            wasCalled = true;
            output = std::move(text);
        });
        runWork();
    }
    void runWork() {
        do {
            loop.runPosted();
        } while (queue.runAll() > 0 || loop.postedCount() > 0);
    }
    void pass(double seconds) {
        time.now += seconds;
        loop.advance(seconds);
        runWork();
    }

    const std::vector<std::string> cpu = {"-Aceo", "pcpu=,pid=,comm=", "-r"};
    const std::vector<std::string> memory = {"-Aceo", "rss=,pid=,comm=", "-m"};
    FakeMonotonicClock time;
    FakeClock clock;
    FakeRunLoop loop{clock};
    FakeWorkQueue queue;
    LinuxProcessLister lister{tree.root(), time, queue, loop};
    std::optional<std::string> output;
    bool wasCalled = false;
};

TEST_F(LinuxProcessListerTest, FirstShareIsOverAPauseOfSevenTenths) {
    write({.pid = 7, .comm = "busy", .userTicks = 100'000});
    write({.pid = 8, .comm = "calm", .userTicks = 900'000});
    run(cpu);
    EXPECT_FALSE(wasCalled);
    write({.pid = 7, .comm = "busy", .userTicks = 100'035, .systemTicks = 35});
    write({.pid = 8, .comm = "calm", .userTicks = 900'007});
    pass(0.7);
    EXPECT_EQ(output, "100.0 7 busy\n 10.0 8 calm\n");
}

TEST_F(LinuxProcessListerTest, LaterShareIsOverTheTimeSinceTheLastCallAndNotOverALife) {
    write({.pid = 7, .comm = "busy", .userTicks = 100'000});
    run(cpu);
    pass(0.7);
    write({.pid = 7, .comm = "busy", .userTicks = 100'150});
    pass(2);
    run(cpu);
    EXPECT_EQ(output, " 75.0 7 busy\n");
}

TEST_F(LinuxProcessListerTest, BaseOlderThanTenSecondsIsTakenAnew) {
    write({.pid = 7, .comm = "busy"});
    run(cpu);
    pass(0.7);
    write({.pid = 7, .comm = "busy", .userTicks = 5000});
    pass(10.1);
    run(cpu);
    EXPECT_FALSE(wasCalled);
    pass(0.7);
    EXPECT_EQ(output, "  0.0 7 busy\n");
}

TEST_F(LinuxProcessListerTest, SecondCallAtOnceWaitsUntilTheShareMeansSomething) {
    write({.pid = 7, .comm = "busy"});
    run(cpu);
    pass(0.7);
    pass(0.2);
    run(cpu);
    EXPECT_FALSE(wasCalled);
    write({.pid = 7, .comm = "busy", .userTicks = 7});
    pass(0.5);
    EXPECT_EQ(output, " 10.0 7 busy\n");
}

// A panel that was closed and opened again within the pause left its first call under way. When that one had
// taken the base anew, the second call shared a hundredth of a second out over the milliseconds since.
TEST_F(LinuxProcessListerTest, CallDuringThePauseOfAnotherIsAnsweredWithIt) {
    write({.pid = 7, .comm = "busy"});
    std::vector<std::optional<std::string>> first;
    lister.run(cpu, 8, [&](std::optional<std::string> text) { first.push_back(std::move(text)); });
    runWork();
    pass(0.3);
    run(cpu);
    EXPECT_FALSE(wasCalled);
    write({.pid = 7, .comm = "busy", .userTicks = 70});
    pass(0.4);
    EXPECT_THAT(first, ElementsAre("100.0 7 busy\n"));
    EXPECT_EQ(output, "100.0 7 busy\n");
}

// Each call had waited for a time of its own: after ten quick openings of a panel its list came seven seconds
// later.
TEST_F(LinuxProcessListerTest, ManyCallsTogetherTakeNoLongerThanOne) {
    write({.pid = 7, .comm = "busy"});
    write({.pid = 8, .comm = "calm"});
    std::vector<std::size_t> lengths;
    for (int call = 0; call < 10; ++call) {
        lister.run(cpu, call % 2 == 0 ? 1 : 2, [&](const std::optional<std::string>& text) {
            lengths.push_back(text ? text->size() : 0);
        });
    }
    runWork();
    EXPECT_THAT(lengths, IsEmpty());
    pass(0.7);
    EXPECT_THAT(lengths, SizeIs(10));
    EXPECT_THAT(lengths, testing::Each(testing::Ge(std::string("  0.0 7 busy\n").size())));
}

TEST_F(LinuxProcessListerTest, AnswerMayAskAgain) {
    write({.pid = 7, .comm = "busy"});
    int answers = 0;
    lister.run(cpu, 8, [&](const auto&) {
        ++answers;
        lister.run(cpu, 8, [&](const auto&) { ++answers; });
    });
    runWork();
    pass(0.7);
    EXPECT_EQ(answers, 1);
    pass(0.7);
    EXPECT_EQ(answers, 2);
}

TEST_F(LinuxProcessListerTest, ProcessThatIsNewCountsWithAllItsTimeAndOneThatTookANumberToo) {
    write({.pid = 7, .comm = "old", .userTicks = 50, .startTicks = 1});
    run(cpu);
    write({.pid = 7, .comm = "took", .userTicks = 70, .startTicks = 900});
    write({.pid = 9, .comm = "new", .userTicks = 35, .startTicks = 901});
    pass(0.7);
    EXPECT_EQ(output, "100.0 7 took\n 50.0 9 new\n");
}

TEST_F(LinuxProcessListerTest, ResidentMemoryIsInKibibytesHeaviestFirst) {
    const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) / 1024;
    write({.pid = 7, .comm = "small", .residentPages = 2});
    write({.pid = 8, .comm = "large", .residentPages = 1000});
    write({.pid = 2, .comm = "kthreadd", .flags = 0x208040});
    run(memory);
    EXPECT_EQ(output, formatText("%5u 8 large\n%5u 7 small\n    0 2 kthreadd\n", {1000 * page, 2 * page}));
}

TEST_F(LinuxProcessListerTest, NamesOfAnyKindStayOneLineOfText) {
    write({.pid = 5, .comm = "two\nlines", .residentPages = 5});
    write({.pid = 4, .comm = "((a) b)", .residentPages = 4});
    write({.pid = 3, .comm = "a,b.c", .residentPages = 3});
    write({.pid = 2, .comm = "\xFF\x01", .residentPages = 2});
    write({.pid = 1, .comm = "", .residentPages = 1});
    run(memory);
    ASSERT_TRUE(output);
    std::vector<std::string> names;
    for (const auto& process : TopProcessSampler::parseOutput(*output, 8, TopProcessSampler::parseMemoryLine))
        names.push_back(process.name);
    EXPECT_THAT(names, ElementsAre("two?lines", "((a) b)", "a,b.c", "\uFFFD?", "?"));
}

TEST_F(LinuxProcessListerTest, CutNameIsCompletedFromTheCommandLine) {
    write({.pid = 7, .comm = "gnome-terminal-", .residentPages = 5});
    tree.write("proc/7/cmdline", std::string("/usr/libexec/gnome-terminal-server\0--x\0", 39));
    run(memory, 1);
    EXPECT_TRUE(output && output->ends_with(" 7 gnome-terminal-server\n")) << output.value_or("none");
}

TEST_F(LinuxProcessListerTest, NoMoreLinesAreMadeThanAreRead) {
    writeManyProcesses(tree.root(), 100);
    run(memory, 3);
    ASSERT_TRUE(output);
    EXPECT_EQ(std::ranges::count(*output, '\n'), 3);
}

TEST_F(LinuxProcessListerTest, OtherArgumentsAndAMissingFolderCannotBeLaunched) {
    run({"-ef"});
    EXPECT_TRUE(wasCalled);
    EXPECT_FALSE(output);
    LinuxProcessLister nowhere(SystemRoot("/nonexistent"), time, queue, loop);
    int failures = 0;
    for (const auto& arguments : {cpu, memory}) {
        nowhere.run(arguments, 8, [&](const std::optional<std::string>& text) { failures += text ? 0 : 1; });
    }
    runWork();
    EXPECT_EQ(failures, 2);
}

TEST_F(LinuxProcessListerTest, CallUnderWayAtTheEndOfTheListerIsDropped) {
    write({.pid = 7});
    bool called = false;
    auto brief = std::make_unique<LinuxProcessLister>(tree.root(), time, queue, loop);
    brief->run(cpu, 8, [&](const auto&) { called = true; });
    queue.runAll();
    brief.reset();
    pass(1);
    EXPECT_FALSE(called);
}

}  // namespace
}  // namespace velmora
