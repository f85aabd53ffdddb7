#include "platform/linux/disk/MountFilter.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace velmora::MountFilter {
namespace {

constexpr std::string_view kRootPath = "/";

/// File systems of the kernel's and of programs that hold no files of a user's.
constexpr std::string_view kPseudoTypes[] = {"anon_inodefs",
                                             "apparmorfs",
                                             "autofs",
                                             "bdev",
                                             "binder",
                                             "binfmt_misc",
                                             "bpf",
                                             "cgroup",
                                             "cgroup2",
                                             "configfs",
                                             "cpuset",
                                             "debugfs",
                                             "devfs",
                                             "devpts",
                                             "devtmpfs",
                                             "dlmfs",
                                             "dmabuf",
                                             "drm",
                                             "efivarfs",
                                             "fuse",
                                             "fuse.archivemount",
                                             "fuse.avfsd",
                                             "fuse.dumpfs",
                                             "fuse.encfs",
                                             "fuse.gvfs-fuse-daemon",
                                             "fuse.gvfsd-fuse",
                                             "fuse.lxcfs",
                                             "fuse.portal",
                                             "fuse.rofiles-fuse",
                                             "fuse.snapfuse",
                                             "fuse.vmware-vmblock",
                                             "fuse.xwmfs",
                                             "fusectl",
                                             "hugetlbfs",
                                             "ipathfs",
                                             "mqueue",
                                             "nfsd",
                                             "none",
                                             "nsfs",
                                             "overlay",
                                             "pipefs",
                                             "proc",
                                             "pstore",
                                             "ramfs",
                                             "resctrl",
                                             "rootfs",
                                             "rpc_pipefs",
                                             "securityfs",
                                             "selinuxfs",
                                             "smackfs",
                                             "sockfs",
                                             "spufs",
                                             "sysfs",
                                             "tmpfs",
                                             "tracefs",
                                             "vboxsf"};

constexpr std::string_view kNetworkTypes[] = {
    "9p",        "afs",         "beegfs",       "ceph",           "cifs",           "davfs",
    "fuse.ceph", "fuse.davfs2", "fuse.gcsfuse", "fuse.ceph-fuse", "fuse.glusterfs", "fuse.rclone",
    "fuse.s3fs", "lustre",      "ncpfs",        "smb3",           "smbfs",          "virtiofs"};

constexpr std::string_view kSystemFolders[] = {"/boot",
                                               "/efi",
                                               "/dev",
                                               "/proc",
                                               "/sys",
                                               "/run",
                                               "/snap",
                                               "/var/snap",
                                               "/var/lib/docker",
                                               "/var/lib/containers",
                                               "/var/lib/snapd",
                                               "/var/lib/flatpak",
                                               "/var/lib/kubelet",
                                               "/var/lib/lxc",
                                               "/sysroot",
                                               "/ostree",
                                               "/usr",
                                               "/etc",
                                               "/nix/store",
                                               "/tmp"};

bool contains(std::span<const std::string_view> names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

bool isPseudoType(std::string_view type) {
    const bool isAppImage =
        type.starts_with("fuse.") && (type.ends_with(".AppImage") || type.ends_with(".appimage"));
    return isAppImage || contains(kPseudoTypes, type);
}

/// Compressed program packages and live media: full by nature, and nobody's store.
bool isImage(const MountEntry& entry) {
    constexpr std::uint32_t kLoopMajor = 7;
    if (entry.type == "squashfs" || entry.type == "erofs") return entry.isReadOnly;
    return entry.type == "iso9660" &&
           (entry.device.major == kLoopMajor || entry.source.starts_with("/dev/loop"));
}

bool isSystemFolder(std::string_view path) {
    if (isAtOrBelow(path, "/run/media")) return false;
    return std::ranges::any_of(kSystemFolders,
                               [path](std::string_view folder) { return isAtOrBelow(path, folder); });
}

bool isBrowsable(const MountEntry& entry, const MountHintTable& hints) {
    const auto hint = hints.find(entry.mountPoint);
    if (hint != hints.end() && hint->second.shows) return true;
    if (hint != hints.end() && hint->second.hides) return false;
    return !isSystemFolder(entry.mountPoint);
}

bool isListed(const MountEntry& entry, const MountHintTable& hints) {
    // A look at an automatic mount point would make the mount.
    if (entry.type == "autofs") return false;
    if (entry.mountPoint == kRootPath) return true;
    return !isPseudoType(entry.type) && !isImage(entry) && isBrowsable(entry, hints);
}

/// Mounts with the same key show the same store: folders bound elsewhere, subvolumes, datasets of a pool.
using StoreKey = std::tuple<std::string, DeviceNumber, std::string>;

StoreKey storeOf(const MountEntry& entry) {
    if (entry.type == "zfs") return {entry.type, {}, entry.source.substr(0, entry.source.find('/'))};
    return {entry.type, entry.device, ""};
}

/// What makes the better name of a store is the lesser value.
auto rankOf(const MountEntry& entry) {
    return std::tuple(entry.mountPoint != kRootPath, entry.root != kRootPath, entry.mountPoint.size());
}

/// By mount point. A later mount hides an earlier one on the same mount point.
std::unordered_map<std::string_view, const MountEntry*> topmostOf(const std::vector<MountEntry>& entries) {
    std::unordered_map<std::string_view, const MountEntry*> topmost;
    for (const MountEntry& entry : entries) topmost[entry.mountPoint] = &entry;
    return topmost;
}

}  // namespace

std::vector<MountEntry> listedMounts(const std::vector<MountEntry>& entries, const MountHintTable& hints) {
    auto topmost = topmostOf(entries);
    std::map<StoreKey, const MountEntry*> stores;
    for (const MountEntry& entry : entries) {
        if (topmost[entry.mountPoint] != &entry || !isListed(entry, hints)) continue;
        const MountEntry*& best = stores[storeOf(entry)];
        if (!best || rankOf(entry) < rankOf(*best)) best = &entry;
    }

    std::vector<const MountEntry*> chosen;
    chosen.reserve(stores.size());
    for (const auto& [key, entry] : stores) chosen.push_back(entry);
    std::ranges::sort(chosen);  // By their place in the table.
    std::vector<MountEntry> listed;
    listed.reserve(chosen.size());
    for (const MountEntry* entry : chosen) listed.push_back(*entry);
    return listed;
}

std::vector<std::string> slowMountPoints(const std::vector<MountEntry>& entries,
                                         const MountHintTable& hints) {
    std::vector<std::string> points;
    for (const auto& [point, entry] : topmostOf(entries)) {
        if (point == kRootPath) continue;
        const auto hint = hints.find(point);
        const bool needsNetwork = hint != hints.end() && hint->second.needsNetwork;
        if (needsNetwork || entry->type == "autofs" || isNetworkType(entry->type) ||
            isUserSpaceType(entry->type))
            points.emplace_back(point);
    }
    std::ranges::sort(points);
    return points;
}

bool isNetworkType(std::string_view type) {
    // All versions of one, and programs with further words behind their name.
    return type.starts_with("nfs") || type.starts_with("fuse.sshfs") || type.starts_with("fuse.curlftpfs") ||
           contains(kNetworkTypes, type);
}

bool isUserSpaceType(std::string_view type) {
    return type == "fuse" || type == "fuseblk" || type.starts_with("fuse.") || type.starts_with("fuseblk.");
}

bool isAtOrBelow(std::string_view path, std::string_view folder) {
    if (!path.starts_with(folder)) return false;
    return folder.ends_with('/') || path.size() == folder.size() || path[folder.size()] == '/';
}

}  // namespace velmora::MountFilter
