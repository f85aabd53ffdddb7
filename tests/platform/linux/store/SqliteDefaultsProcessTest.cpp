// What only another process can show: a killed writer, a full disk, a file that the user may not write. Each
// case forks a child that does the deed and tells through a pipe or its exit status.

#include "platform/linux/store/SqliteDefaults.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/TemporaryFolder.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <string>
#include <vector>

namespace velmora {
namespace {

struct Store {
    explicit Store(const std::filesystem::path& file) : defaults(file, runLoop, clock, log) {}
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeSystemLog log;
    SqliteDefaults defaults;
};

std::string keyOf(int index) {
    return "key." + std::string(1, static_cast<char>('a' + index % 20));
}

/// Runs the work in a child, which gives its exit status.
pid_t inChild(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::_exit(work());
}

int statusOf(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    return status;
}

void expectSuccess(pid_t child) {
    const int status = statusOf(child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the number of the check that failed in the child";
}

class SqliteDefaultsProcessTest : public ::testing::Test {
protected:
    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "defaults.db";
};

TEST_F(SqliteDefaultsProcessTest, KilledWriterLosesNoWriteThatReturned) {
    for (int round = 0; round < 20; ++round) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = inChild([&] {
            ::close(ends[0]);
            Store store(file);
            for (int value = 0;; ++value) {
                store.defaults.setNumber(keyOf(value), value);
                if (::write(ends[1], &value, sizeof value) != sizeof value) return 1;
            }
        });
        ::close(ends[1]);
        const FileDescriptor reading(ends[0]);

        // Killed at another point of its work each time, without a pause between the last word and the
        // signal.
        int acknowledged = -1;
        for (int count = 0; count < 50 + 37 * round; ++count) {
            ASSERT_EQ(::read(reading.get(), &acknowledged, sizeof acknowledged),
                      ssize_t{sizeof acknowledged});
        }
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        statusOf(child);
        while (::read(reading.get(), &acknowledged, sizeof acknowledged) == ssize_t{sizeof acknowledged})
            continue;

        Store store(file);
        EXPECT_TRUE(store.log.lines().empty());
        for (int back = 0; back < 20; ++back) {
            const int value = acknowledged - back;
            const double stored = store.defaults.number(keyOf(value)).value_or(-1);
            // The write after the last acknowledged one may be there too: it is of the oldest of the keys.
            EXPECT_TRUE(stored == value || (back == 19 && stored == value + 20))
                << stored << " for " << value;
        }
    }
}

TEST_F(SqliteDefaultsProcessTest, TwoProcessesThatWriteAtTheSameTimeLoseNothing) {
    constexpr int kWrites = 200;
    std::vector<pid_t> children;
    for (const char* name : {"older.", "newer."}) {
        children.push_back(inChild([&] {
            Store store(file);
            for (int value = 0; value < kWrites; ++value)
                store.defaults.setNumber(name + keyOf(value), value);
            // A busy file makes a value wait; the end of the program is the last chance to store it.
            store.defaults.synchronize();
            return 0;
        }));
    }
    for (const pid_t child : children) expectSuccess(child);
    Store store(file);
    for (const char* name : {"older.", "newer."}) {
        for (int value = kWrites - 20; value < kWrites; ++value) {
            EXPECT_EQ(store.defaults.number(name + keyOf(value)), value);
        }
    }
}

TEST_F(SqliteDefaultsProcessTest, FullDiskCostsPersistenceOnlyAndIsLoggedOnce) {
    expectSuccess(inChild([&] {
        Store store(file);
        store.defaults.setText("before", "kept");
        // A limit on the size of files answers as a full disk does: a write gives an error.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{20'000, 20'000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
        const std::string large(3000, 'v');
        for (int index = 0; index < 20; ++index) store.defaults.setText(keyOf(index), large);
        for (int index = 0; index < 20; ++index) {
            if (store.defaults.text(keyOf(index)) != large) return 2;
        }
        store.runLoop.advance(60);
        if (store.log.lines().size() != 1) return 3;
        return store.defaults.text("before") == "kept" ? 0 : 4;
    }));
    Store store(file);
    EXPECT_EQ(store.defaults.text("before"), "kept");
    EXPECT_TRUE(store.log.lines().empty());
}

TEST_F(SqliteDefaultsProcessTest, DiskThatIsFullFromTheStartCostsPersistenceOnly) {
    expectSuccess(inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{0, 0};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
        Store store(file);
        store.defaults.setText("languageCode", "de");
        if (store.defaults.text("languageCode") != "de") return 2;
        return store.log.lines().size() == 1 ? 0 : 3;
    }));
}

/// Gives up the superuser's right to write everywhere.
bool becomeOrdinaryUser() {
    constexpr uid_t kNobody = 65534;
    return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

TEST_F(SqliteDefaultsProcessTest, ReadOnlyFileIsReadAndCostsPersistenceOnly) {
    { Store(file).defaults.setText("languageCode", "de"); }
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    expectSuccess(inChild([&] {
        if (!becomeOrdinaryUser()) return 1;
        Store store(file);
        if (store.defaults.text("languageCode") != "de") return 2;
        store.defaults.setText("languageCode", "fr");
        if (store.defaults.text("languageCode") != "fr") return 3;
        return store.log.lines().size() == 1 ? 0 : 4;
    }));
    EXPECT_EQ(Store(file).defaults.text("languageCode"), "de");
}

TEST_F(SqliteDefaultsProcessTest, ReadOnlyFolderIsReadAndCostsPersistenceOnly) {
    { Store(file).defaults.setText("languageCode", "de"); }
    ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    expectSuccess(inChild([&] {
        if (!becomeOrdinaryUser()) return 1;
        Store store(file);
        if (store.defaults.text("languageCode") != "de") return 2;
        store.defaults.setText("languageCode", "fr");
        if (store.defaults.text("languageCode") != "fr") return 3;
        return store.log.lines().size() == 1 ? 0 : 4;
    }));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0700), 0);
    EXPECT_EQ(Store(file).defaults.text("languageCode"), "de");
}

TEST_F(SqliteDefaultsProcessTest, DamagedFileInAReadOnlyFolderStaysWhereItIs) {
    folder.write("defaults.db", std::string(5000, 'x'));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    expectSuccess(inChild([&] {
        if (!becomeOrdinaryUser()) return 1;
        Store store(file);
        store.defaults.setText("languageCode", "fr");
        if (store.defaults.text("languageCode") != "fr") return 3;
        return store.log.lines().size() == 1 ? 0 : 4;
    }));
    ASSERT_EQ(::chmod(folder.path().c_str(), 0700), 0);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"defaults.db"});
}

}  // namespace
}  // namespace velmora
