#include "platform/linux/desktop/DesktopEntries.h"

#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"
#include "platform/linux/desktop/RegularFile.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/loop/IdlePriority.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kEnding = ".desktop";
/// An entry with a hundred translations has 100 KiB.
constexpr std::size_t kLargestFile = std::size_t{1024} * 1024;
constexpr std::size_t kMostFiles = 20000;
constexpr std::size_t kMostFolders = 1000;

}  // namespace

DesktopEntries::DesktopEntries(const DesktopSurroundings& surroundings, DesktopEntryLocales locales)
    : m_locales(std::move(locales)) {
    for (const std::string& folder : surroundings.dataFolders) {
        m_roots.push_back(surroundings.located(folder) + "/applications");
    }
}

DesktopEntries::Found DesktopEntries::find(std::string_view id) {
    listIfChanged();
    const auto first = std::ranges::lower_bound(m_files, id, {}, &File::id);
    const auto last = std::ranges::upper_bound(m_files, id, {}, &File::id);
    return firstThatCounts(static_cast<std::size_t>(first - m_files.begin()),
                           static_cast<std::size_t>(last - m_files.begin()));
}

DesktopEntries::Found DesktopEntries::at(std::string_view path) {
    listIfChanged();
    const auto file = std::ranges::find(m_files, path, &File::path);
    if (file == m_files.end()) return nullptr;
    Found found = find(std::string(file->id));
    return found && found->path == path ? found : nullptr;
}

const std::vector<DesktopEntries::Found>& DesktopEntries::all() {
    listIfChanged();
    if (m_hasAll) return m_all;
    m_all.clear();
    for (std::size_t begin = 0, end = 0; begin < m_files.size(); begin = end) {
        while (end < m_files.size() && m_files[end].id == m_files[begin].id) ++end;
        if (Found found = firstThatCounts(begin, end)) m_all.push_back(std::move(found));
    }
    m_hasAll = true;
    return m_all;
}

std::uint64_t DesktopEntries::revision() {
    listIfChanged();
    return m_revision;
}

void DesktopEntries::readAhead(const std::shared_ptr<DesktopEntries>& entries, WorkQueue& workQueue,
                               RunLoop& runLoop) {
    // The worker reads into a copy of its own.
    const auto ahead = std::make_shared<DesktopEntries>(*entries);
    workQueue.async([weakEntries = std::weak_ptr(entries), ahead, &runLoop] {
        {
            const IdlePriority idle;
            ahead->all();
        }
        runLoop.post([weakEntries, ahead] {
            const auto current = weakEntries.lock();
            if (!current || current->m_hasAll) return;
            ahead->m_revision = current->m_revision + 1;
            *current = std::move(*ahead);
        });
    });
}

void DesktopEntries::listIfChanged() {
    const bool isStill = std::ranges::all_of(
        m_folders, [](const Folder& folder) { return folder.stamp.isStill(FileStamp::of(folder.path)); });
    if (!m_isListed || !isStill) list();
}

void DesktopEntries::list() {
    std::vector<File> earlier = std::exchange(m_files, {});
    m_folders.clear();
    for (std::size_t rank = 0; rank < m_roots.size(); ++rank) listFolder(m_roots[rank], "", rank);
    // Of two files that give one id in one folder, the one that lies further up was met first.
    std::ranges::stable_sort(m_files, {}, [](const File& file) { return std::tie(file.id, file.rank); });
    keepWhatWasRead(earlier);
    m_isListed = true;
    m_hasAll = false;
    ++m_revision;
}

void DesktopEntries::listFolder(const std::string& path, const std::string& idPrefix, std::size_t rank) {
    // A link may lead back up. One folder is also not listed for two data folders that are the same.
    const FileStamp stamp = FileStamp::of(path);
    if (m_folders.size() >= kMostFolders || wasListed(stamp)) return;
    m_folders.push_back({path, stamp});
    if (stamp.kind != FileStamp::Kind::folder) return;
    std::vector<std::string> others;
    for (std::string& name : systemFolderEntries(path)) {
        if (!name.ends_with(kEnding)) {
            others.push_back(std::move(name));
        } else if (m_files.size() < kMostFiles) {
            std::string file = path;
            file += '/';
            file += name;
            name.resize(name.size() - kEnding.size());
            m_files.push_back({.id = idPrefix + name, .rank = rank, .path = std::move(file)});
        }
    }
    for (const std::string& name : others) {
        const std::string inner = std::string(path).append("/").append(name);
        if (FileStamp::of(inner).kind == FileStamp::Kind::folder)
            listFolder(inner, idPrefix + name + "-", rank);
    }
}

void DesktopEntries::keepWhatWasRead(std::vector<File>& earlier) {
    std::ranges::sort(earlier, {}, &File::path);
    for (File& file : m_files) {
        const auto same = std::ranges::lower_bound(earlier, file.path, {}, &File::path);
        if (same == earlier.end() || same->path != file.path || same->id != file.id) continue;
        file.stamp = same->stamp;
        file.isRead = same->isRead;
        file.entry = std::move(same->entry);
    }
}

bool DesktopEntries::wasListed(const FileStamp& folder) const {
    return folder.kind == FileStamp::Kind::folder &&
           std::ranges::any_of(m_folders, [&](const Folder& listed) {
               return listed.stamp.device == folder.device && listed.stamp.inode == folder.inode;
           });
}

void DesktopEntries::read(File& file) {
    const FileStamp stamp = FileStamp::of(file.path);
    if (file.isRead && file.stamp.isStill(stamp)) return;
    if (file.isRead) {
        m_hasAll = false;
        ++m_revision;
    }
    file.stamp = stamp;
    file.isRead = true;
    file.entry = nullptr;
    const auto text = readRegularFile(file.path, kLargestFile);
    if (!text) return;
    if (auto entry = parseDesktopEntry(*text, m_locales)) {
        file.entry =
            std::make_shared<const InstalledEntry>(InstalledEntry{file.id, file.path, std::move(*entry)});
    }
}

DesktopEntries::Found DesktopEntries::firstThatCounts(std::size_t begin, std::size_t end) {
    for (std::size_t index = begin; index < end; ++index) {
        File& file = m_files[index];
        read(file);
        if (file.entry) return file.entry->entry.isHidden ? nullptr : file.entry;
    }
    return nullptr;
}

}  // namespace velmora
