#include "platform/qt/tray/RegistrationPlan.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

bool contains(const std::vector<std::string>& ids, const std::string& id) {
    return std::ranges::find(ids, id) != ids.end();
}

bool registrationDecides(const HostProfile& host) {
    switch (host.order) {
        case HostProfile::Order::registration:
        case HostProfile::Order::front:
            return !host.remembersPlaces;
        case HostProfile::Order::title:
        case HostProfile::Order::id:
            return false;
    }
    return false;
}

}  // namespace

RegistrationPlan RegistrationPlan::make(const HostProfile& host, const std::vector<std::string>& present,
                                        const std::vector<std::string>& wanted) {
    std::vector<std::string> sequence = wanted;
    if (host.order == HostProfile::Order::front) std::ranges::reverse(sequence);

    RegistrationPlan plan;
    std::vector<std::string> staying;
    for (const std::string& id : present) (contains(wanted, id) ? staying : plan.leave).push_back(id);

    std::size_t kept = 0;
    if (registrationDecides(host)) {
        while (kept < staying.size() && staying[kept] == sequence[kept]) ++kept;
        plan.leave.insert(plan.leave.end(), staying.begin() + static_cast<std::ptrdiff_t>(kept),
                          staying.end());
        staying.resize(kept);
    }
    for (const std::string& id : sequence) {
        if (!contains(staying, id)) plan.enter.push_back(id);
    }
    return plan;
}

}  // namespace velmora
