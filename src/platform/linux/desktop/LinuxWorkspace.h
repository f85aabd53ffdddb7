#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <map>
#include <string>

namespace velmora {

/// The user's running programs, from /proc, and signals to them by process descriptors, which a later process
/// of the same id cannot be confused with.
class LinuxWorkspace final : public Workspace {
public:
    /// Bundle identifiers by process id, as far as programs say who they are; asked once per listing.
    using BundleIdentifiers = std::function<std::map<std::int64_t, std::string>()>;
    using Opener = std::function<void(const std::string& url)>;

    /// Either may be null: then no program has an identifier, or nothing is opened.
    LinuxWorkspace(BundleIdentifiers identifiers, Opener opener);

    std::int64_t ownProcess() const override;
    /// Programs of this user in this PID namespace: a container's processes are not the user's to end.
    std::vector<RunningApplication> runningApplications() const override;
    std::unique_ptr<Application> hold(const RunningApplication& application) const override;
    void open(const std::string& url) override;

private:
    BundleIdentifiers m_identifiers;
    Opener m_opener;
};

}  // namespace velmora
