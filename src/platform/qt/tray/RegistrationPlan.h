#pragma once

#include "platform/qt/tray/HostProfile.h"

#include <string>
#include <vector>

namespace velmora {

/// The steps that bring a host's items into the wanted order. Hosts know no "move" and no "insert": where the
/// order of registration counts, those that must stand behind a new item leave and register anew.
struct RegistrationPlan {
    std::vector<std::string> leave;  ///< Registered items that must go; some of them come back below.
    std::vector<std::string> enter;  ///< Items to register, in this order.
    friend bool operator==(const RegistrationPlan&, const RegistrationPlan&) = default;

    /// `present` are the registered ids in the order of their registration, `wanted` the ids from left to
    /// right.
    static RegistrationPlan make(const HostProfile& host, const std::vector<std::string>& present,
                                 const std::vector<std::string>& wanted);
};

}  // namespace velmora
