#include "FiguresOptions.h"
#include "FiguresText.h"
#include "LineOutput.h"

#include "base/Published.h"
#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "model/SnapshotJson.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/linux/loop/HeadlessRunLoop.h"
#include "platform/linux/loop/SystemClock.h"
#include "platform/null/NullPlatform.h"
#include "samplers/SamplerSet.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

// Prints what the program knows about the system, for people who script or look for an error: the engine and
// the sources of figures of the program itself, without settings, windows and network.

namespace velmora {
namespace {

enum ExitStatus { kDone = 0, kOutputFailed = 1, kWrongUse = 2 };

void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t length = ::write(descriptor, text.data(), text.size());
        if (length <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(length));
    }
}

/// One line, whatever bytes an option or a path has.
int complain(std::string what, ExitStatus status) {
    std::ranges::replace_if(
        what, [](char letter) { return letter >= 0 && letter < ' '; }, '?');
    writeAll(STDERR_FILENO, "velmora-figures: " + what + "\n");
    return status;
}

/// The signals that end the program, as a descriptor. Blocked before any thread is made, so for all of them.
FileDescriptor endSignals() {
    ::signal(SIGPIPE, SIG_IGN);
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGTERM);
    ::sigaddset(&signals, SIGINT);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    return FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

int printFigures(const FiguresOptions& options) {
    // Without it the first descriptor that is opened would take its place.
    if (::fcntl(STDOUT_FILENO, F_GETFD) < 0) return complain("standard output is closed", kOutputFailed);
    const SystemRoot root(options.root);
    if (::access(root.path("proc").c_str(), R_OK | X_OK) != 0)
        return complain("cannot read " + root.path("proc"), kWrongUse);

    const FileDescriptor signals = endSignals();
    auto ownedLoop = std::make_unique<HeadlessRunLoop>();
    HeadlessRunLoop& loop = *ownedLoop;
    Platform platform = nullPlatform(std::make_unique<SystemClock>(), std::move(ownedLoop));
    platform.monotonicClock = std::make_unique<BootTimeClock>();
    addLinuxWorkers(platform);
    addLinuxSources(platform, root);

    AppSettings settings(*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog);
    settings.setSampleInterval(options.intervalSeconds);
    settings.setEnabledModules(options.modules);
    SamplerSet samplers(platform);
    const Published<ModuleSet> placedModules;
    StatsEngine engine(*platform.clock, loop, *platform.defaults, settings, *platform.display,
                       *platform.improveEvents, placedModules, samplers.view());

    int status = kDone;
    std::uint64_t lines = 0;
    LineOutput output(STDOUT_FILENO, signals.get());
    const Subscription onSignal =
        loop.watch(signals.get(), RunLoop::Readiness::readable, [&loop] { loop.quit(); });
    // A pipe without a reader is an exception of its writing end.
    const Subscription onReaderGone =
        loop.watch(STDOUT_FILENO, RunLoop::Readiness::exceptional, [&loop] { loop.quit(); });

    Subscription onSnapshot;
    const auto printLines = [&] {
        onSnapshot = engine.snapshot().subscribe([&](const StatsSnapshot& snapshot) {
            const std::string line =
                options.form == FiguresOptions::Form::text ? figuresText(snapshot) : snapshotToJson(snapshot);
            const auto outcome = output.write(line + "\n");
            if (outcome == LineOutput::Outcome::failed)
                status = complain("cannot write the output", kOutputFailed);
            if (outcome != LineOutput::Outcome::written || ++lines == options.count) loop.quit();
        });
    };
    engine.start();
    // Starting samples several times in a row and posts a last one; the first line is what that gave.
    loop.post(printLines);
    loop.run();
    return status;
}

}  // namespace
}  // namespace velmora

int main(int argumentCount, char** arguments) {
    const std::vector<std::string_view> words(arguments + 1, arguments + argumentCount);
    std::string error;
    const auto options = velmora::parseFiguresOptions(words, error);
    if (!options) return velmora::complain(error, velmora::kWrongUse);
    if (options->action == velmora::FiguresOptions::Action::showHelp) {
        velmora::writeAll(STDOUT_FILENO, velmora::kFiguresHelp);
        return velmora::kDone;
    }
    return velmora::printFigures(*options);
}
