#include "samplers/TopProcessSampler.h"

#include "base/ParseNumber.h"
#include "base/Utf8Text.h"
#include "samplers/ProcessRecords.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

namespace velmora::TopProcessSampler {
namespace {

/// Room for a few lines that cannot be parsed.
constexpr int kSpareLines = 3;
constexpr double kBytesPerKibibyte = 1024;
constexpr double kBytesPerGigabyte = 1e9;
constexpr std::uint64_t kSmallestGroup = 100'000'000;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\v\f";
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// Takes the next piece between spaces off the front; empty at the end.
std::string_view nextPiece(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const std::string_view piece = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(piece.size() + 1, line.size()));
    return piece;
}

std::optional<Pieces> piecesOf(std::string_view line) {
    const std::string_view first = trimmed(nextPiece(line));
    const std::string_view second = trimmed(nextPiece(line));
    const std::string_view third = trimmed(line);
    if (first.empty() || second.empty() || third.empty()) return std::nullopt;
    return Pieces{first, second, third};
}

std::optional<TopProcess> processOf(const Pieces& pieces, double factor) {
    const auto value = parseNumber<double>(pieces[0]);
    const auto pid = parseNumber<std::int32_t>(pieces[1]);
    if (!value || !std::isfinite(*value) || !pid) return std::nullopt;
    return TopProcess{*pid, std::string(pieces[2]), *value * factor};
}

std::string groupName(std::string name) {
    constexpr std::string_view kHelperMark = " Helper";
    if (const auto mark = name.find(kHelperMark); mark != std::string::npos) name.resize(mark);
    return name;
}

}  // namespace

void run(ProcessLister& lister, const std::vector<std::string>& arguments, int limit, Parse parse,
         Completion completion) {
    lister.run(arguments, std::max(limit, 0) + kSpareLines,
               [limit, parse = std::move(parse),
                completion = std::move(completion)](const std::optional<std::string>& output) {
                   completion(output ? parseOutput(*output, limit, parse) : std::vector<TopProcess>());
               });
}

std::vector<TopProcess> parseOutput(std::string_view output, int limit, const Parse& parse) {
    std::vector<TopProcess> processes;
    if (limit < 1 || validUtf8(output) != output) return processes;
    const auto wanted = static_cast<std::size_t>(limit);
    int linesLeft = limit + kSpareLines;
    while (!output.empty() && linesLeft > 0 && processes.size() < wanted) {
        const std::string_view line = nextLine(output);
        if (line.empty()) continue;
        --linesLeft;
        const auto pieces = piecesOf(line);
        if (!pieces) continue;
        if (auto process = parse(*pieces)) processes.push_back(std::move(*process));
    }
    return processes;
}

void byCPU(ProcessLister& lister, int limit, Completion completion) {
    run(lister, {"-Aceo", "pcpu=,pid=,comm=", "-r"}, limit, parseCPULine, std::move(completion));
}

std::optional<TopProcess> parseCPULine(const Pieces& pieces) {
    return processOf(pieces, 1);
}

void byMemory(ProcessLister& lister, int limit, Completion completion) {
    run(lister, {"-Aceo", "rss=,pid=,comm=", "-m"}, limit, parseMemoryLine, std::move(completion));
}

std::optional<TopProcess> parseMemoryLine(const Pieces& pieces) {
    return processOf(pieces, kBytesPerKibibyte);
}

MemoryTop memoryFootprintTop(ProcessFootprintSource& source, int limit) {
    const std::int32_t count = source.listAll({});
    if (count < 1) return {};
    std::vector<std::int32_t> buffer(static_cast<std::size_t>(count) + ProcessRecords::kSpareEntries);
    const std::int32_t written = source.listAll(buffer);

    // Whole bytes add up exactly, so a group at the threshold is on its right side.
    std::map<std::string, std::uint64_t> groups;
    for (const std::int32_t pid : ProcessRecords::idsByCount(written, buffer)) {
        if (pid <= 0) continue;
        const auto footprint = source.footprint(pid);
        if (footprint.value_or(0) == 0) continue;
        groups[groupName(processName(source.name(pid)))] += *footprint;
    }
    MemoryTop result;
    for (const auto& [name, bytes] : groups) {
        if (bytes < kSmallestGroup) continue;
        result.top.push_back({name, static_cast<double>(bytes) / kBytesPerGigabyte});
        result.sumGB += result.top.back().gb;
    }
    result.total = static_cast<int>(result.top.size());
    std::ranges::stable_sort(result.top, std::ranges::greater(), &MemoryProcess::gb);
    result.top.resize(std::min(result.top.size(), static_cast<std::size_t>(std::max(limit, 0))));
    return result;
}

std::string processName(std::string name) {
    return name.empty() ? "?" : std::move(name);
}

}  // namespace velmora::TopProcessSampler
