#pragma once

#include "platform/linux/desktop/DesktopEntry.h"
#include "platform/linux/desktop/DesktopSurroundings.h"
#include "platform/linux/desktop/FileStamp.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class RunLoop;
class WorkQueue;

/// An entry in one of the applications folders.
struct InstalledEntry {
    std::string id;    ///< Its path below the folder, with "-" for "/" and without ".desktop".
    std::string path;  ///< Of its file.
    DesktopEntry entry;
};

/// The applications that the desktop knows: the entries in the folders `applications` of the user's and the
/// system's data. The first folder that has an id wins; a hidden entry there deletes it, a malformed one
/// does not count. A file is read when it is first asked for, and again when it has changed; folders are
/// listed anew when they have changed.
class DesktopEntries {
public:
    DesktopEntries(const DesktopSurroundings& surroundings, DesktopEntryLocales locales);

    using Found = std::shared_ptr<const InstalledEntry>;

    /// Null where there is no such application.
    Found find(std::string_view id);
    /// The entry in the file of this path, unless another hides it; null if there is none.
    Found at(std::string_view path);
    /// Every application that counts, sorted by id. Reads all files at the first call.
    const std::vector<Found>& all();

    /// Looks whether a folder has changed. The number grows with each change of what `all` gives.
    std::uint64_t revision();

    /// Reads all files on the work queue and hands them over on the run loop's thread, so that the first
    /// question need not wait for a disk. Questions before that are answered all the same. Both must outlive
    /// what was begun.
    static void readAhead(const std::shared_ptr<DesktopEntries>& entries, WorkQueue& workQueue,
                          RunLoop& runLoop);

private:
    struct Folder {
        std::string path;
        FileStamp stamp;
    };
    struct File {
        std::string id;
        std::size_t rank = 0;  ///< Of its applications folder; 0 is the best.
        std::string path;
        FileStamp stamp = {};
        bool isRead = false;
        Found entry = {};  ///< Null for a file that is no entry.
    };

    void listIfChanged();
    void list();
    void listFolder(const std::string& path, const std::string& idPrefix, std::size_t rank);
    void keepWhatWasRead(std::vector<File>& earlier);
    bool wasListed(const FileStamp& folder) const;
    void read(File& file);
    Found firstThatCounts(std::size_t begin, std::size_t end);

    std::vector<std::string> m_roots;
    DesktopEntryLocales m_locales;
    std::vector<Folder> m_folders;
    std::vector<File> m_files;  ///< By id, then by rank.
    std::vector<Found> m_all;
    bool m_isListed = false;
    bool m_hasAll = false;
    std::uint64_t m_revision = 0;
};

}  // namespace velmora
