#pragma once

#include "platform/ToolLauncher.h"

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// Launches nothing, and lets a test write what the tool would. Output may be written from any thread.
class FakeToolLauncher final : public ToolLauncher {
public:
    struct State {
        std::mutex mutex;
        TerminalOutput::Handler handler;
        bool isRunning = true;
        int terminateCount = 0;
        bool isClosed = false;
        bool wasClosedWithHandler = false;
    };

    bool fileExists(const std::string& path) const override {
        lastLookedFor = path;
        return exists;
    }
    std::optional<LaunchedTool> launchOnTerminal(const std::string& path,
                                                 const std::vector<std::string>& arguments) override {
        if (fails) return std::nullopt;
        paths.push_back(path);
        lastArguments = arguments;
        tools.push_back(std::make_shared<State>());
        return LaunchedTool{std::make_shared<Task>(tools.back()), std::make_unique<Output>(tools.back())};
    }

    /// What the tool that was launched last writes. False if nobody reads.
    bool write(std::string_view bytes) { return write(*tools.back(), bytes); }
    static bool write(State& tool, std::string_view bytes) {
        const std::lock_guard lock(tool.mutex);
        if (!tool.handler) return false;
        tool.handler(bytes);
        return true;
    }

    bool exists = true;
    bool fails = false;
    mutable std::string lastLookedFor;
    std::vector<std::string> paths;  ///< Of every launch.
    std::vector<std::string> lastArguments;
    std::vector<std::shared_ptr<State>> tools;

private:
    class Task final : public ToolTask {
    public:
        explicit Task(std::shared_ptr<State> state) : m_state(std::move(state)) {}
        bool isRunning() override { return m_state->isRunning; }
        void terminate() override {
            ++m_state->terminateCount;
            m_state->isRunning = false;
        }

    private:
        std::shared_ptr<State> m_state;
    };
    class Output final : public TerminalOutput {
    public:
        explicit Output(std::shared_ptr<State> state) : m_state(std::move(state)) {}
        void setReadabilityHandler(Handler handler) override {
            const std::lock_guard lock(m_state->mutex);
            m_state->handler = std::move(handler);
        }
        void close() override {
            const std::lock_guard lock(m_state->mutex);
            m_state->wasClosedWithHandler = static_cast<bool>(m_state->handler);
            m_state->isClosed = true;
        }

    private:
        std::shared_ptr<State> m_state;
    };
};

}  // namespace velmora
