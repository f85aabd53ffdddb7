#include "BareLinkStatistics.h"
#include "platform/linux/network/LinuxInterfaceAddressSource.h"
#include "platform/linux/network/LinuxInterfaceCounterSource.h"
#include "platform/linux/network/LinuxNetworkConfiguration.h"
#include "platform/null/NullNetworkSources.h"
#include "samplers/NetworkInfoSampler.h"
#include "samplers/NetworkSampler.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <string>

// The network's figures, and beside those of every tick the bare question to the kernel that they need.

namespace velmora {
namespace {

void bareStatistics(benchmark::State& state) {
    BareLinkStatistics statistics;
    for (auto _ : state) statistics.read();
}
BENCHMARK(bareStatistics)->Name("NetworkSampler/floor");

void networkSampler(benchmark::State& state) {
    const auto links = std::make_shared<LinuxLinkTable>(SystemRoot());
    LinuxInterfaceCounterSource counters(links);
    LinuxInterfaceAddressSource addresses(links);
    NetworkSampler sampler(counters, addresses);
    for (auto _ : state) benchmark::DoNotOptimize(sampler.sample(2));
}
BENCHMARK(networkSampler)->Name("NetworkSampler");

void localAddress(benchmark::State& state) {
    const auto links = std::make_shared<LinuxLinkTable>(SystemRoot());
    LinuxInterfaceCounterSource counters(links);
    LinuxInterfaceAddressSource addresses(links);
    NetworkSampler sampler(counters, addresses);
    for (auto _ : state) benchmark::DoNotOptimize(sampler.localIPAddress());
}
BENCHMARK(localAddress)->Name("NetworkSampler.localIPAddress");

/// All details of one refresh, which may take a millisecond together.
void details(benchmark::State& state) {
    const auto links = std::make_shared<LinuxLinkTable>(SystemRoot());
    NullUpstreamNameServers upstream;
    NullWifiSource wifi;
    NullProxySettingsSource proxies;
    NullLocationAuthorization location;
    LinuxInterfaceAddressSource addresses(links);
    LinuxNetworkConfiguration configuration(links, upstream);
    NetworkInfoSampler sampler(configuration, addresses, wifi, proxies, location);
    for (auto _ : state) {
        const std::optional<std::string> bsd = sampler.primaryInterface();
        benchmark::DoNotOptimize(sampler.networkName(bsd));
        benchmark::DoNotOptimize(sampler.linkSpeed(bsd));
        benchmark::DoNotOptimize(sampler.interfaceDisplayName(bsd));
        benchmark::DoNotOptimize(sampler.routerAddress());
        benchmark::DoNotOptimize(sampler.dnsAddress());
        benchmark::DoNotOptimize(sampler.macAddress(bsd));
        benchmark::DoNotOptimize(sampler.vpnActive());
    }
}
BENCHMARK(details)->Name("NetworkInfoSampler");

}  // namespace
}  // namespace velmora
