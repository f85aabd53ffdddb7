#include "platform/linux/power/PackageEnergy.h"

#include "platform/linux/files/SystemFile.h"

namespace velmora {

std::vector<PackageEnergy::Package> PackageEnergy::packages() const {
    constexpr std::string_view kZones = "sys/class/powercap";
    constexpr std::string_view kPackageZone = "intel-rapl:";
    std::vector<Package> packages;
    for (const std::string& zone : systemFolderEntries(m_root.path(kZones))) {
        // A zone "intel-rapl:0:1" is a part of "intel-rapl:0", and the whole platform holds its packages.
        if (!zone.starts_with(kPackageZone) || !isDigits(std::string_view(zone).substr(kPackageZone.size())))
            continue;
        const std::string folder = m_root.path(kZones) + "/" + zone;
        if (!readSystemWord(folder + "/name").value_or("").starts_with("package")) continue;
        const auto energy = readSystemNumber(folder + "/energy_uj");
        if (!energy) continue;
        packages.push_back({folder, readSystemNumber(folder + "/max_energy_range_uj").value_or(0), *energy});
    }
    return packages;
}

bool PackageEnergy::isReadable() const {
    return !packages().empty();
}

double PackageEnergy::takeNanojoules() {
    constexpr double kNanojoulesPerMicrojoule = 1000;
    if (m_isFirst) {
        m_isFirst = false;
        m_packages = packages();
        return 0;
    }
    double microjoules = 0;
    for (Package& package : m_packages) {
        const auto energy = readSystemNumber(package.folder + "/energy_uj");
        if (!energy) continue;
        if (*energy >= package.last) {
            microjoules += static_cast<double>(*energy - package.last);
        } else if (package.range >= package.last) {
            microjoules += static_cast<double>(package.range - package.last + *energy);
        }
        package.last = *energy;
    }
    return microjoules * kNanojoulesPerMicrojoule;
}

}  // namespace velmora
