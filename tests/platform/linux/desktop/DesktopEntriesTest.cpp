#include "platform/linux/desktop/DesktopEntries.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/desktop/DesktopTree.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

namespace velmora {
namespace {

class DesktopEntriesTest : public ::testing::Test {
protected:
    DesktopEntries entries() const {
        return DesktopEntries(tree.surroundings(), DesktopEntryLocales({"de-DE"}));
    }
    /// The name of what is found; "" for nothing.
    static std::string nameIn(DesktopEntries& entries, std::string_view id) {
        const auto found = entries.find(id);
        return found ? found->entry.name : "";
    }
    std::string name(std::string_view id) const {
        DesktopEntries now = entries();
        return nameIn(now, id);
    }
    static std::vector<std::string> ids(DesktopEntries& entries) {
        std::vector<std::string> found;
        for (const auto& entry : entries.all()) found.push_back(entry->id);
        return found;
    }

    DesktopTree tree;
};

TEST_F(DesktopEntriesTest, EntryIsFoundByItsId) {
    tree.addEntry("org.example.Disks", "Name=Disks\nName[de]=Laufwerke\nExec=x\n");
    auto all = entries();
    const auto found = all.find("org.example.Disks");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->id, "org.example.Disks");
    EXPECT_EQ(found->path, tree.entryPath("org.example.Disks"));
    EXPECT_EQ(found->entry.name, "Laufwerke");
    EXPECT_EQ(all.find("org.example.Disk"), nullptr);
    EXPECT_EQ(all.find(""), nullptr);
}

TEST_F(DesktopEntriesTest, WithoutFoldersThereIsNothing) {
    auto none = entries();
    EXPECT_EQ(none.find("a"), nullptr);
    EXPECT_TRUE(none.all().empty());
    DesktopEntries nowhere(DesktopSurroundings{}, {});
    EXPECT_TRUE(nowhere.all().empty());
}

TEST_F(DesktopEntriesTest, UsersEntryHidesTheSystems) {
    tree.addEntry("a", "Name=System's\nExec=x\n");
    tree.addUsersEntry("a", "Name=User's\nExec=x\n");
    EXPECT_EQ(name("a"), "User's");
}

TEST_F(DesktopEntriesTest, HiddenEntryDeletesTheOneBehindIt) {
    tree.addEntry("a", "Name=System's\nExec=x\n");
    tree.addUsersEntry("a", "Hidden=true\n");
    auto all = entries();
    EXPECT_EQ(all.find("a"), nullptr);
    EXPECT_TRUE(all.all().empty());
}

TEST_F(DesktopEntriesTest, MalformedEntryDoesNotHideTheOneBehindIt) {
    tree.addEntry("a", "Name=System's\nExec=x\n");
    tree.addUsersEntry("a", "No name\n");
    EXPECT_EQ(name("a"), "System's");
}

TEST_F(DesktopEntriesTest, EntryThatIsNotInMenusIsFound) {
    tree.addEntry("gnome-power-panel", "Name=Power\nExec=x\nNoDisplay=true\n");
    EXPECT_EQ(name("gnome-power-panel"), "Power");
}

TEST_F(DesktopEntriesTest, FolderIsPartOfTheId) {
    tree.addEntry("kde4/tools/kinfo", "Name=Info\nExec=x\n");
    EXPECT_EQ(name("kde4-tools-kinfo"), "Info");
    EXPECT_EQ(name("kinfo"), "");
}

TEST_F(DesktopEntriesTest, FileWithTheDashInItsNameWinsOverTheFolder) {
    tree.addEntry("kde4-kinfo", "Name=File\nExec=x\n");
    tree.addEntry("kde4/kinfo", "Name=Folder\nExec=x\n");
    EXPECT_EQ(name("kde4-kinfo"), "File");
}

TEST_F(DesktopEntriesTest, OnlyFilesOfTheEndingCount) {
    tree.files().write("usr/share/applications/mimeinfo.cache", "[MIME Cache]\n");
    tree.files().write("usr/share/applications/a.desktop.bak", "[Desktop Entry]\n");
    auto all = entries();
    EXPECT_TRUE(all.all().empty());
}

TEST_F(DesktopEntriesTest, WhatIsNoReadableFileIsSkipped) {
    tree.addEntry("good", "Name=Good\nExec=x\n");
    tree.files().link("usr/share/applications/broken.desktop", "nowhere");
    tree.files().link("usr/share/applications/circle.desktop", "circle.desktop");
    tree.files().write("usr/share/applications/folder.desktop/inner.desktop",
                       "[Desktop Entry]\nType=Application\nName=Inner\nExec=x\n");
    tree.files().write("usr/share/applications/empty.desktop", "");
    tree.files().write("usr/share/applications/bytes.desktop", std::string_view("\0\xFF[\0=\n", 6));
    ASSERT_EQ(::mkfifo(tree.entryPath("pipe").c_str(), 0600), 0);
    auto all = entries();
    EXPECT_EQ(ids(all), std::vector<std::string>{"good"});
    for (const char* id : {"broken", "circle", "folder", "empty", "bytes", "pipe"})
        EXPECT_EQ(all.find(id), nullptr) << id;
}

TEST_F(DesktopEntriesTest, HugeFileIsSkipped) {
    tree.addEntry("huge", "Name=Huge\nExec=x\n#" + std::string(2 * 1024 * 1024, '.'));
    EXPECT_EQ(name("huge"), "");
}

TEST_F(DesktopEntriesTest, LinkToAnEntryIsOne) {
    tree.addEntry("../exported/a", "Name=Exported\nExec=x\n");
    tree.files().link("usr/share/applications/b.desktop", "../exported/a.desktop");
    EXPECT_EQ(name("b"), "Exported");
}

TEST_F(DesktopEntriesTest, LinkThatLeadsBackUpEnds) {
    tree.addEntry("a", "Name=A\nExec=x\n");
    tree.files().link("usr/share/applications/self", ".");
    tree.files().link("usr/share/applications/up", "..");
    auto all = entries();
    EXPECT_EQ(ids(all), std::vector<std::string>{"a"});
}

TEST_F(DesktopEntriesTest, AllAreSortedAndEachIsThereOnce) {
    tree.addEntry("b", "Name=B\nExec=x\n");
    tree.addEntry("a", "Name=A\nExec=x\n");
    tree.addUsersEntry("b", "Name=User's\nExec=x\n");
    auto all = entries();
    EXPECT_EQ(ids(all), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(all.all()[1]->entry.name, "User's");
}

TEST_F(DesktopEntriesTest, NewEntryIsSeen) {
    auto all = entries();
    EXPECT_EQ(nameIn(all, "a"), "");
    const auto before = all.revision();
    tree.addEntry("a", "Name=A\nExec=x\n");
    EXPECT_EQ(nameIn(all, "a"), "A");
    EXPECT_GT(all.revision(), before);
    tree.addEntry("folder/b", "Name=B\nExec=x\n");
    EXPECT_EQ(nameIn(all, "folder-b"), "B");
    EXPECT_EQ(ids(all), (std::vector<std::string>{"a", "folder-b"}));
}

TEST_F(DesktopEntriesTest, RemovedEntryIsGone) {
    tree.addEntry("a", "Name=A\nExec=x\n");
    auto all = entries();
    EXPECT_EQ(nameIn(all, "a"), "A");
    tree.removeEntry("a");
    EXPECT_EQ(nameIn(all, "a"), "");
    EXPECT_TRUE(all.all().empty());
}

TEST_F(DesktopEntriesTest, EntryThatIsWrittenOverIsReadAgain) {
    tree.addEntry("a", "Name=A\nExec=x\n");
    auto all = entries();
    EXPECT_EQ(nameIn(all, "a"), "A");
    tree.addEntry("a", "Name=B\nExec=x\n");
    EXPECT_EQ(nameIn(all, "a"), "B");
    EXPECT_EQ(all.all()[0]->entry.name, "B");
}

TEST_F(DesktopEntriesTest, EntryIsFoundByItsPathUnlessAnotherHidesIt) {
    tree.addEntry("a", "Name=A\nExec=x\n");
    auto all = entries();
    ASSERT_TRUE(all.at(tree.entryPath("a")));
    EXPECT_EQ(all.at(tree.entryPath("a"))->entry.name, "A");
    EXPECT_EQ(all.at(tree.entryPath("b")), nullptr);
    EXPECT_EQ(all.at(""), nullptr);
    tree.addUsersEntry("a", "Hidden=true\n");
    EXPECT_EQ(all.at(tree.entryPath("a")), nullptr);
}

TEST_F(DesktopEntriesTest, WhatHasNotChangedIsNotReadAgain) {
    // The repository's files are older than a moment.
    const DesktopSurroundings machine{.root = SystemRoot(VELMORA_FIXTURES "/three-desktops"),
                                      .dataFolders = {"/usr/share"}};
    DesktopEntries all(machine, DesktopEntryLocales({"de-DE"}));
    const auto found = all.find("org.gnome.DiskUtility");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->entry.name, "Laufwerke");
    const auto revision = all.revision();
    EXPECT_EQ(all.find("org.gnome.DiskUtility"), found);
    EXPECT_EQ(all.all().size(), 22u);
    EXPECT_EQ(all.find("org.gnome.DiskUtility"), found);
    EXPECT_EQ(all.revision(), revision);
}

class DesktopEntriesReadAhead : public DesktopEntriesTest {
protected:
    std::shared_ptr<DesktopEntries> shared = std::make_shared<DesktopEntries>(entries());
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue workQueue;
};

TEST_F(DesktopEntriesReadAhead, WhatWasReadOffTheMainThreadIsHandedOver) {
    tree.addEntry("a", "Name=A\nExec=x\n");
    DesktopEntries::readAhead(shared, workQueue, runLoop);
    EXPECT_EQ(workQueue.runAll(), 1u);
    runLoop.runPosted();
    EXPECT_EQ(ids(*shared), std::vector<std::string>{"a"});
}

TEST_F(DesktopEntriesReadAhead, QuestionsBeforeThatAreAnswered) {
    tree.addEntry("a", "Name=A\nExec=x\n");
    DesktopEntries::readAhead(shared, workQueue, runLoop);
    EXPECT_EQ(nameIn(*shared, "a"), "A");
    const auto before = shared->revision();
    workQueue.runAll();
    runLoop.runPosted();
    EXPECT_EQ(nameIn(*shared, "a"), "A");
    EXPECT_GT(shared->revision(), before);
}

TEST_F(DesktopEntriesReadAhead, WhatIsNewerThanWhatWasReadAheadStays) {
    tree.addEntry("a", "Name=Old\nExec=x\n");
    DesktopEntries::readAhead(shared, workQueue, runLoop);
    workQueue.runAll();
    tree.addEntry("a", "Name=New\nExec=x\n");
    EXPECT_EQ(shared->all()[0]->entry.name, "New");
    runLoop.runPosted();
    EXPECT_EQ(shared->all()[0]->entry.name, "New");
}

TEST_F(DesktopEntriesReadAhead, NobodyNeedsToWaitForIt) {
    DesktopEntries::readAhead(shared, workQueue, runLoop);
    shared.reset();
    workQueue.runAll();
    EXPECT_EQ(runLoop.runPosted(), 1u);
}

}  // namespace
}  // namespace velmora
