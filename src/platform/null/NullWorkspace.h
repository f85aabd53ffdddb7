#pragma once

#include "platform/Workspace.h"

namespace velmora {

/// A session in which this program is alone and nothing opens an address.
class NullWorkspace final : public Workspace {
public:
    std::int64_t ownProcess() const override { return 0; }
    std::vector<RunningApplication> runningApplications() const override { return {}; }
    std::unique_ptr<Application> hold(const RunningApplication&) const override { return nullptr; }
    void open(const std::string&) override {}
};

}  // namespace velmora
