#pragma once

#include "platform/linux/files/SystemRoot.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// The energy counters of the processor packages (RAPL, /sys/class/powercap/intel-rapl:N). Since Linux 5.10
/// they are for root alone; where they cannot be read there is no source of energy by process.
class PackageEnergy {
public:
    explicit PackageEnergy(const SystemRoot& root) : m_root(root) {}

    /// Whether at least one package can be read. Keeps nothing, so any thread may ask.
    bool isReadable() const;
    /// Nanojoules of all packages together since the last call; 0 on the first.
    double takeNanojoules();

private:
    struct Package {
        std::string folder;
        std::uint64_t range = 0;  ///< Where the counter begins anew, microjoules.
        std::uint64_t last = 0;
    };
    std::vector<Package> packages() const;

    SystemRoot m_root;
    bool m_isFirst = true;
    std::vector<Package> m_packages;
};

}  // namespace velmora
