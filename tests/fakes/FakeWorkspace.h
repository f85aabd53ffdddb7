#pragma once

#include "platform/Workspace.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace velmora {

/// A session of invented programs. A polite request ends a program only if a test says so.
class FakeWorkspace final : public Workspace {
public:
    std::int64_t ownProcess() const override { return own; }
    std::vector<RunningApplication> runningApplications() const override {
        ++listCount;
        return running;
    }

    std::unique_ptr<Application> hold(const RunningApplication& application) const override {
        if (std::ranges::find(running, application) == running.end()) return nullptr;
        return std::make_unique<Held>(*this, application.pid);
    }

    void open(const std::string& url) override { opened.push_back(url); }

    std::int64_t own = 100;
    std::vector<RunningApplication> running;
    std::set<std::int64_t> terminated;  ///< Process ids that answer `isTerminated`.
    std::vector<std::string> opened;
    mutable int listCount = 0;
    mutable std::vector<std::int64_t> terminateRequests;
    mutable std::vector<std::int64_t> forceRequests;

private:
    class Held final : public Application {
    public:
        Held(const FakeWorkspace& workspace, std::int64_t pid) : m_workspace(workspace), m_pid(pid) {}
        bool isTerminated() const override { return m_workspace.terminated.contains(m_pid); }
        void terminate() override { m_workspace.terminateRequests.push_back(m_pid); }
        void forceTerminate() override { m_workspace.forceRequests.push_back(m_pid); }

    private:
        const FakeWorkspace& m_workspace;
        std::int64_t m_pid;
    };
};

}  // namespace velmora
