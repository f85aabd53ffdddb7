#include "platform/linux/machines/CapturedMachine.h"

#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakePowerServices.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/desktop/LinuxDisplay.h"
#include "platform/linux/disk/LinuxVolumes.h"
#include "platform/linux/graphics/LinuxAcceleratorSource.h"
#include "platform/linux/machines/AnsweredAddresses.h"
#include "platform/linux/network/LinuxProxySettings.h"
#include "platform/linux/network/LinuxWifiSource.h"
#include "platform/null/NullPlatform.h"
#include "samplers/SamplerSet.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace velmora {
namespace {

using nlohmann::json;

/// What is read in the background has been read when control comes back.
class AtOnceQueue final : public WorkQueue {
public:
    void async(std::function<void()> work) override { work(); }
};

LinuxVolumes::Calls volumeCalls(const json& answers, const SystemRoot& root) {
    const auto space = [spaces = answers.value("space", json::object())](const std::string& mountPoint) {
        const auto found = spaces.find(mountPoint);
        if (found == spaces.end()) return std::optional<VolumeSpace>();
        const auto blocks = found->get<std::vector<std::uint64_t>>();
        return std::optional(volumeSpaceOfBlocks(blocks.at(0), blocks.at(1), blocks.at(2)));
    };
    const auto blockDevice = [root, numbers = answers.value("blockDevices", json::object())](
                                 const std::string& path) -> std::optional<DeviceNumber> {
        for (const auto& [node, number] : numbers.items()) {
            if (root.path(node.substr(1)) == path) return DeviceNumber::parse(number.get<std::string>());
        }
        return std::nullopt;
    };
    const auto atOnce = [](const std::function<void()>& work) {
        work();
        return true;
    };
    return {.space = space, .startThread = atOnce, .blockDevice = blockDevice};
}

std::optional<WifiInterface> wifiOf(const json& answers) {
    const auto found = answers.find("wifi");
    if (found == answers.end()) return std::nullopt;
    WifiInterface wifi;
    wifi.name = found->at("name");
    wifi.isPoweredOn = found->at("isPoweredOn");
    if (found->contains("ssid")) wifi.ssid = found->at("ssid").get<std::string>();
    if (found->contains("channel"))
        wifi.channel = WifiChannel{.band = found->at("band"), .number = found->at("channel")};
    wifi.rssi = found->value("rssi", 0);
    wifi.phyMode = found->value("phyMode", 0);
    wifi.transmitRate = found->value("transmitRate", 0.0);
    return wifi;
}

PowerDevice powerDeviceOf(const json& answer) {
    PowerDevice device;
    device.type = answer.value("type", device.type);
    device.model = answer.value("model", device.model);
    device.powerSupply = answer.value("powerSupply", false);
    device.isPresent = answer.value("isPresent", true);
    if (answer.contains("percentage")) device.percentage = answer.at("percentage").get<double>();
    device.batteryLevel = answer.value("batteryLevel", PowerDevice::kExactLevel);
    device.timeToEmpty = answer.value("timeToEmpty", std::int64_t{0});
    device.timeToFull = answer.value("timeToFull", std::int64_t{0});
    return device;
}

/// What an ordinary host answers to an echo request.
std::vector<std::uint8_t> echoReply(std::vector<std::uint8_t> request) {
    std::vector<std::uint8_t> datagram(20);
    datagram[0] = 0x45;
    request.at(0) = 0;
    datagram.insert(datagram.end(), request.begin(), request.end());
    return datagram;
}

}  // namespace

CapturedMachine::CapturedMachine(std::string name) : m_name(std::move(name)) {
    m_tree.show(m_name + "/frame-0");
    m_answers = json::parse(TemporaryFolder::contentsOf(VELMORA_FIXTURES "/" + m_name + "/answers.json"));

    auto clock = std::make_unique<FakeClock>();
    auto loop = std::make_unique<FakeRunLoop>(*clock);
    auto monotonic = std::make_unique<FakeMonotonicClock>();
    m_runLoop = loop.get();
    m_monotonic = monotonic.get();
    m_platform = nullPlatform(std::move(clock), std::move(loop));
    m_platform.monotonicClock = std::move(monotonic);
    for (auto* queue :
         {&m_platform.workQueue, &m_platform.wifiWorker, &m_platform.probeWorker, &m_platform.walkWorker})
        *queue = std::make_unique<AtOnceQueue>();
    answerServices();
    addLinuxSources(m_platform, m_tree.root());
    answerCalls();
    if (m_answers.contains("echoSeconds")) answerEchoes();
}

void CapturedMachine::answerServices() {
    auto names = std::make_unique<FakeUpstreamNameServers>();
    names->servers = m_answers.value("upstreamNameServers", std::vector<std::string>());
    m_platform.upstreamNameServers = std::move(names);

    auto devices = std::make_unique<FakePowerDeviceService>();
    if (const auto service = m_answers.find("powerService"); service != m_answers.end()) {
        devices->current = PowerDeviceService::State::known;
        devices->told.display = powerDeviceOf(service->at("display"));
        for (const json& device : service->at("devices"))
            devices->told.devices.push_back(powerDeviceOf(device));
    }
    m_platform.powerDevices = std::move(devices);

    auto profiles = std::make_unique<FakePowerProfileService>();
    if (m_answers.contains("powerProfile"))
        profiles->profile = m_answers.at("powerProfile").get<std::string>();
    m_platform.powerProfiles = std::move(profiles);
}

void CapturedMachine::answerCalls() {
    const SystemRoot root = m_tree.root();
    m_platform.display = std::make_unique<LinuxDisplay>(root);
    m_platform.volumes = std::make_unique<LinuxVolumes>(root, volumeCalls(m_answers, root));
    m_platform.accelerators = std::make_unique<LinuxAcceleratorSource>(
        root, *m_platform.workQueue, *m_platform.runLoop, [] { return nullptr; },
        [clock = m_monotonic] { return clock->seconds(); });
    m_platform.interfaceAddresses =
        std::make_unique<AnsweredAddresses>(root, m_answers.value("addresses", json::array()));
    m_platform.wifi = std::make_unique<LinuxWifiSource>(
        std::make_shared<LinuxLinkTable>(root), *m_platform.wifiWorker, *m_platform.monotonicClock,
        [wifi = wifiOf(m_answers)](const std::optional<std::string>&) { return wifi; });
    m_platform.proxySettings =
        std::make_unique<LinuxProxySettings>(m_tree.path("home/.config"),
                                             [variables = m_answers.value("environment", json::object())](
                                                 const std::string& variable) -> std::optional<std::string> {
                                                 const auto found = variables.find(variable);
                                                 if (found == variables.end()) return std::nullopt;
                                                 return found->get<std::string>();
                                             });
}

void CapturedMachine::answerEchoes() {
    auto bundle = std::make_unique<FakeBundle>();
    bundle->values["VMLatencyProbeAddress"] = "192.0.2.9";
    m_platform.bundle = std::move(bundle);
    auto sockets = std::make_unique<FakeEchoSocketFactory>(*m_monotonic);
    sockets->replyAfter = m_answers.at("echoSeconds");
    sockets->reply = echoReply;
    m_platform.echoSockets = std::move(sockets);
}

StatsSnapshot CapturedMachine::snapshotAfterBothFrames() {
    // As if the program had run before, so that the day's slots of the battery are not filled up to now.
    constexpr double kSlotSeconds = 300;
    m_platform.defaults->setNumber("bat.long.at", FakeClock::kStart.secondsSince1970 - kSlotSeconds);
    AppSettings settings(*m_platform.defaults, *m_platform.bundle, *m_platform.loginItem,
                         *m_platform.systemLog);
    settings.setEnabledModules(std::vector(kAllModules.begin(), kAllModules.end()));
    SamplerSet samplers(m_platform);
    const Published<ModuleSet> placedModules;
    StatsEngine engine(*m_platform.clock, *m_runLoop, *m_platform.defaults, settings, *m_platform.display,
                       *m_platform.improveEvents, placedModules, samplers.view());
    engine.tick();
    m_runLoop->runPosted();

    m_tree.show(m_name + "/frame-1");
    m_runLoop->advance(kSecondsBetween);
    m_monotonic->now += kSecondsBetween;
    readInBackground();
    engine.tick();
    return engine.snapshot().get();
}

void CapturedMachine::readInBackground() {
    // A question is answered with the last reading and starts the next one.
    std::vector<int> percents;
    m_platform.accelerators->utilizations(percents);
    m_platform.thermalSensors->sensors(ThermalSensorSource::Scope::all);
    std::vector<std::optional<double>> speeds;
    m_platform.fans->read(speeds);
    std::vector<PowerSource> sources;
    m_platform.battery->powerSources(sources);
    std::vector<PeripheralService> services;
    m_platform.battery->peripherals(services);
    m_runLoop->runPosted();
}

}  // namespace velmora
