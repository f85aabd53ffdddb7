#include "samplers/NetTopSampler.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "base/Utf8Text.h"
#include "samplers/ProcessRecords.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kHeader = ",bytes_in";
/// The bytes of an interval as bytes per second. Tied to the "2" of the arguments.
constexpr double kPerSecond = 0.5;
/// The first block is absolute, and the second only becomes whole at the third header.
constexpr int kWarmUpHeaders = 2;
/// No line comes near this. A stream without line ends must not fill the memory.
constexpr std::size_t kLongestLine = 65536;
/// Nor has any machine as many processes with sockets.
constexpr std::size_t kLongestBlock = 65536;

/// Per process, raw numbers, deltas, log form without an end, every two seconds, two columns.
const std::vector<std::string>& toolArguments() {
    static const std::vector<std::string> arguments = {
        "-P", "-x", "-d", "-L", "0", "-s", "2", "-J", "bytes_in,bytes_out"};
    return arguments;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n\v\f";
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// Takes the text up to the next comma off the front; nothing if there is no field left.
std::optional<std::string_view> nextCommaField(std::optional<std::string_view>& rest) {
    if (!rest) return std::nullopt;
    const auto comma = rest->find(',');
    const std::string_view field = rest->substr(0, comma);
    if (comma == std::string_view::npos) {
        rest.reset();
    } else {
        rest->remove_prefix(comma + 1);
    }
    return field;
}

/// Nothing for a malformed row and for a process without traffic.
std::optional<TopIOProcess> parseRow(std::string_view line) {
    std::optional<std::string_view> rest = line;
    const auto process = nextCommaField(rest);
    const auto received = nextCommaField(rest);
    const auto sent = nextCommaField(rest);
    if (!process || !received || !sent) return std::nullopt;

    const auto dot = process->rfind('.');
    if (dot == std::string_view::npos) return std::nullopt;
    const auto pid = parseNumber<std::int32_t>(process->substr(dot + 1));
    const auto bytesIn = parseNumber<double>(*received);
    const auto bytesOut = parseNumber<double>(*sent);
    if (!pid || !bytesIn || !bytesOut) return std::nullopt;
    const double sum = *bytesIn + *bytesOut;
    if (!(sum > 0) || !std::isfinite(sum)) return std::nullopt;
    return TopIOProcess{*pid, std::string(process->substr(0, dot)), *bytesIn * kPerSecond,
                        *bytesOut * kPerSecond};
}

}  // namespace

NetTopSampler::NetTopSampler(ToolLauncher& launcher, LiveTools& liveTools, RunLoop& runLoop, std::string tool)
    : m_launcher(launcher), m_liveTools(liveTools), m_runLoop(runLoop), m_tool(std::move(tool)) {
    m_run.emplace();
}

NetTopSampler::~NetTopSampler() {
    endTool();
}

void NetTopSampler::start(int limit) {
    if (m_process) return;
    if (!m_launcher.fileExists(m_tool)) return;
    m_liveTools.dropEnded();
    auto launched = m_launcher.launchOnTerminal(m_tool, toolArguments());
    if (!launched) return;
    m_process = std::move(launched->task);
    m_masterHandle = std::move(launched->output);
    m_liveTools.add(m_process);
    m_masterHandle->setReadabilityHandler([this, limit](std::string_view bytes) {
        if (bytes.empty() || validUtf8(bytes) != bytes) return;
        consume(bytes, limit);
    });
}

void NetTopSampler::endTool() {
    if (m_masterHandle) m_masterHandle->setReadabilityHandler(nullptr);
    if (m_process) m_process->terminate();
    if (m_masterHandle) m_masterHandle->close();
}

void NetTopSampler::stop() {
    endTool();
    if (m_process) m_liveTools.remove(*m_process);
    m_process.reset();
    m_masterHandle.reset();
    {
        const std::lock_guard lock(m_lock);
        m_buffer.clear();
        m_blockCount = 0;
        m_currentBlock.clear();
        m_run.emplace();
    }
    m_processes.set({});
}

void NetTopSampler::consume(std::string_view chunk, int limit) {
    const std::lock_guard lock(m_lock);
    m_buffer.append(chunk);
    // "\r\n" ends a line too: what stands before the newline is trimmed.
    std::string_view rest = m_buffer;
    for (auto end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        parse(trimmed(rest.substr(0, end)), limit);
        rest.remove_prefix(end + 1);
    }
    m_buffer.erase(0, m_buffer.size() - rest.size());
    if (m_buffer.size() > kLongestLine) m_buffer.clear();
}

void NetTopSampler::parse(std::string_view line, int limit) {
    if (line.starts_with(kHeader)) {
        parseHeader(limit);
    } else if (m_currentBlock.size() < kLongestBlock) {
        if (auto row = parseRow(line)) m_currentBlock.push_back(std::move(*row));
    }
}

void NetTopSampler::parseHeader(int limit) {
    if (m_blockCount >= kWarmUpHeaders) {
        std::vector<TopIOProcess> top = std::move(m_currentBlock);
        const auto sum = [](const TopIOProcess& process) { return process.incoming + process.outgoing; };
        std::ranges::stable_sort(top, std::ranges::greater(), sum);
        top.resize(std::min(top.size(), static_cast<std::size_t>(std::max(limit, 0))));
        m_runLoop.post(
            m_run->wrap([this, top = std::move(top)]() mutable { m_processes.set(std::move(top)); }));
    }
    // Beyond the warm-up the number means nothing, and it must not run over in years.
    m_blockCount = std::min(m_blockCount + 1, kWarmUpHeaders + 1);
    m_currentBlock.clear();
}

void NetTopSampler::reapOrphans(OrphanSource& source, SystemLog& log) {
    std::vector<std::int32_t> buffer(ProcessRecords::kFixedBufferEntries);
    const std::int32_t result = source.listAll(buffer);
    const std::uint32_t user = source.userId();
    constexpr std::int32_t kFirstProcess = 1;
    for (const std::int32_t pid : ProcessRecords::idsByByteCount(result, buffer)) {
        if (pid <= 0 || source.name(pid) != "nettop") continue;
        const auto parentage = source.parentage(pid);
        if (!parentage || parentage->parent != kFirstProcess || parentage->user != user) continue;
        source.terminate(pid);
        log.write(formatText("Velmora: reaped orphaned nettop pid=%d", {pid}));
    }
}

}  // namespace velmora
