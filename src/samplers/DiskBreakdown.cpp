#include "samplers/DiskBreakdown.h"

#include "platform/Clock.h"
#include "platform/Defaults.h"
#include "platform/DiskPlaceSource.h"
#include "platform/RunLoop.h"
#include "platform/WorkQueue.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {
namespace {

constexpr std::string_view kPartsKey = "disk.parts";
constexpr std::string_view kTimeKey = "disk.parts.at";
constexpr double kFreshSeconds = 1800;

/// A whole number, and none that would turn negative.
bool isSize(const nlohmann::json& value) {
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (value.is_number_unsigned()) return value.get<std::uint64_t>() <= kLargest;
    return value.is_number_integer();
}

/// Sums up folders. A folder that belongs to two places is looked through once.
class Measurement {
public:
    Measurement(DiskPlaceSource& source, std::stop_token stop) : m_source(source), m_stop(std::move(stop)) {}

    std::int64_t sum(const std::vector<std::string>& folders) {
        std::int64_t bytes = 0;
        for (const std::string& folder : folders) {
            const auto known = m_sizes.find(folder);
            if (known != m_sizes.end()) {
                bytes += known->second;
            } else if (!m_stop.stop_requested()) {
                bytes += m_sizes[folder] = m_source.dirSize(folder, m_stop);
            }
        }
        return bytes;
    }

private:
    DiskPlaceSource& m_source;
    std::stop_token m_stop;
    std::map<std::string, std::int64_t> m_sizes;
};

DiskBreakdown::Parts measure(DiskPlaceSource& source, const std::stop_token& stop) {
    const DiskPlaces places = source.places();
    Measurement measurement(source, stop);
    DiskBreakdown::Parts parts;
    parts["docs"] = measurement.sum(places.documents);
    parts["apps"] = measurement.sum(places.applications);
    parts["icloud"] = measurement.sum(places.cloud);
    // Files may come and go between the two measurements.
    parts["system"] = std::max<std::int64_t>(measurement.sum(places.library) - parts["icloud"], 0);
    parts["trash"] = measurement.sum(places.trash);
    return parts;
}

}  // namespace

DiskBreakdown::DiskBreakdown(DiskPlaceSource& places, Defaults& defaults, const Clock& clock,
                             WorkQueue& queue, RunLoop& loop)
    : m_places(places), m_defaults(defaults), m_clock(clock), m_queue(queue), m_loop(loop) {}

DiskBreakdown::~DiskBreakdown() {
    m_stop.request_stop();
}

std::optional<DiskBreakdown::Parts> DiskBreakdown::parts() {
    if (!m_cache) m_cache = storedResult();
    if (!m_cache || m_clock.now() - m_cache->at >= kFreshSeconds) scan();
    if (!m_cache) return std::nullopt;
    return m_cache->parts;
}

void DiskBreakdown::scan() {
    if (m_scanning) return;
    m_scanning = true;
    m_queue.async([&source = m_places, &loop = m_loop, stop = m_stop.get_token(),
                   done = m_life.wrap([this](Parts parts) { store(std::move(parts)); })] {
        Parts parts = measure(source, stop);
        if (stop.stop_requested()) return;
        loop.post([done, parts = std::move(parts)]() mutable { done(std::move(parts)); });
    });
}

std::optional<DiskBreakdown::Result> DiskBreakdown::storedResult() const {
    const auto stored = m_defaults.read(kPartsKey);
    if (!stored || !stored->is_object()) return std::nullopt;
    Result result;
    for (const auto& [place, bytes] : stored->items()) {
        if (!isSize(bytes)) return std::nullopt;
        result.parts[place] = bytes.get<std::int64_t>();
    }
    result.at = Date{m_defaults.number(kTimeKey).value_or(0)};
    return result;
}

void DiskBreakdown::store(Parts parts) {
    m_scanning = false;
    m_cache = Result{m_clock.now(), std::move(parts)};
    m_defaults.write(kPartsKey, nlohmann::json(m_cache->parts), Defaults::Urgency::now);
    m_defaults.setNumber(kTimeKey, m_cache->at.secondsSince1970);
}

}  // namespace velmora
