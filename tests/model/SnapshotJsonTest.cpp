#include "model/SnapshotJson.h"

#include "model/StatsSnapshot.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A snapshot in which every field has a value of its own.
StatsSnapshot fullSnapshot() {
    StatsSnapshot s;
    double next = 0.125;
    const auto number = [&next] { return next += 1; };
    const auto fill = [&](auto&... series) { ((series.append(number()), series.append(number())), ...); };

    s.cpu.usage = number();
    s.cpu.user = number();
    s.cpu.system = number();
    s.cpu.perCore = {number(), number()};
    s.cpu.efficiencyCoreCount = 2;
    s.cpu.loadAvg = {number(), number(), number()};
    s.cpu.uptime = number();
    s.cpu.temperature = number();
    s.cpu.gpuUsage = number();
    fill(s.cpu.gpuHistory, s.cpu.gpuLong, s.cpu.userHistory, s.cpu.systemHistory, s.cpu.userLong,
         s.cpu.systemLong, s.cpu.loadLong, s.cpu.history);
    s.cpu.perCoreLong.append({number(), number()});
    s.cpu.perCoreLong.append({number()});
    s.cpu.taskCount = 80;
    s.cpu.threadCount = 300;

    s.memory.total = UINT64_MAX;
    s.memory.used = 2;
    s.memory.app = 3;
    s.memory.wired = 4;
    s.memory.compressed = 5;
    s.memory.cached = 6;
    s.memory.free = 7;
    s.memory.swapUsed = 8;
    s.memory.swapTotal = 9;
    s.memory.pressure = number();
    s.memory.pageInPerSec = number();
    s.memory.pageOutPerSec = number();
    fill(s.memory.history, s.memory.pressureHistory, s.memory.usedLong, s.memory.appLong);
    s.memory.topProcs = {{"one", number()}, {"two \"quoted\" ü", number()}};
    s.memory.topProcsTotal = 12;
    s.memory.topProcsSumGB = number();

    s.disk.volumes = {{.path = "/",
                       .name = "root",
                       .total = 10,
                       .free = 11,
                       .isInternal = true,
                       .isNetwork = true,
                       .isRemovable = true,
                       .bsd = "disk0s1",
                       .readPerSec = number(),
                       .writePerSec = number()},
                      {.path = "/data", .name = "data", .bsd = std::nullopt}};
    s.disk.readPerSec = number();
    s.disk.writePerSec = number();
    fill(s.disk.activityHistory, s.disk.readHistory, s.disk.writeHistory, s.disk.readLong, s.disk.writeLong);
    s.disk.iops = number();
    s.disk.readToday = 13;
    s.disk.writeToday = 14;

    s.network.downPerSec = number();
    s.network.upPerSec = number();
    s.network.totalDown = 15;
    s.network.totalUp = 16;
    s.network.localIP = "192.0.2.1";
    fill(s.network.downHistory, s.network.upHistory, s.network.downLong, s.network.upLong);
    s.network.totalToday = 17;
    s.network.peakTodayDown = number();
    s.network.pingMs = number();
    s.network.netName = "net";
    s.network.linkMbps = number();
    s.network.downToday = 18;
    s.network.upToday = 19;
    s.network.connectedSec = number();
    s.network.jitterMs = number();
    s.network.lossPct = number();
    s.network.ifaceName = "iface";
    s.network.phyMode = "phy";
    s.network.channel = "36";
    s.network.rssi = -60;
    s.network.router = "192.0.2.254";
    s.network.dns = "192.0.2.53";
    s.network.mac = "02:00:00:00:00:01";
    s.network.vpnOn = true;
    s.network.monthTotal = 20;
    s.network.activeSecToday = number();
    s.network.proxy = "proxy";
    s.network.ssid = "ssid";

    s.sensors.temperatures = {{TempCategory::cpu, number()}, {TempCategory::ssd, number()}};
    s.sensors.fans = {number(), number()};
    s.sensors.gpuUsage = number();
    fill(s.sensors.history, s.sensors.cpuLong, s.sensors.fanLong,
         s.sensors.temperatureHistories[indexOf(TempCategory::cpu)],
         s.sensors.temperatureHistories[indexOf(TempCategory::other)]);
    s.sensors.maxToday = number();
    s.sensors.fanMaxRpm = number();

    s.battery.present = true;
    s.battery.percent = 77;
    s.battery.isCharging = true;
    s.battery.isPluggedIn = true;
    s.battery.timeRemainingMinutes = 90;
    s.battery.cycleCount = 321;
    s.battery.health = number();
    s.battery.temperature = number();
    s.battery.lowPowerMode = true;
    s.battery.peripherals = {{"mouse", 50}};
    fill(s.battery.history, s.battery.percentLong, s.battery.pluggedLong, s.battery.screenOnLong);
    s.battery.pluggedHistory.append(true);
    s.battery.pluggedHistory.append(false);
    s.battery.powerWatts = number();

    s.timestamp = {1'700'000'000.25};
    s.updated = {StatsModule::memory, StatsModule::battery};
    return s;
}

std::optional<StatsSnapshot> parsed(std::string_view text) {
    std::string error;
    const auto snapshot = snapshotFromJson(text, error);
    EXPECT_EQ(snapshot.has_value(), error.empty()) << error;
    return snapshot;
}

TEST(SnapshotJsonTest, FullSnapshotComesBackEqual) {
    const StatsSnapshot snapshot = fullSnapshot();
    EXPECT_EQ(parsed(snapshotToJson(snapshot)), snapshot);
}

TEST(SnapshotJsonTest, DefaultSnapshotComesBackEqual) {
    EXPECT_EQ(parsed(snapshotToJson(StatsSnapshot{})), StatsSnapshot{});
}

TEST(SnapshotJsonTest, TextIsOneLine) {
    EXPECT_EQ(snapshotToJson(fullSnapshot()).find('\n'), std::string::npos);
}

TEST(SnapshotJsonTest, RecordsStandUnderTheirNames) {
    const auto json = nlohmann::json::parse(snapshotToJson(fullSnapshot()));
    EXPECT_EQ(json["cpu"]["loadAvg"].size(), 3U);
    EXPECT_TRUE(json["cpu"]["loadAvg"].contains("fifteen"));
    EXPECT_EQ(json["sensors"]["temperatures"][1]["category"], "ssd");
    EXPECT_EQ(json["sensors"]["temperatureHistories"]["other"].size(), 2U);
    EXPECT_EQ(json["memory"]["topProcs"][0]["name"], "one");
    EXPECT_EQ(json["memory"]["total"], UINT64_MAX);
    EXPECT_EQ(json["updated"], (nlohmann::json{"memory", "battery"}));
    EXPECT_EQ(json["timestamp"], 1'700'000'000.25);
}

TEST(SnapshotJsonTest, EveryFieldIsWritten) {
    const auto json = nlohmann::json::parse(snapshotToJson(fullSnapshot()));
    EXPECT_EQ(json.size(), 8U);
    EXPECT_EQ(json["cpu"].size(), 20U);
    EXPECT_EQ(json["memory"].size(), 19U);
    EXPECT_EQ(json["disk"].size(), 11U);
    EXPECT_EQ(json["disk"]["volumes"][0].size(), 10U);
    EXPECT_EQ(json["network"].size(), 31U);
    EXPECT_EQ(json["sensors"].size(), 9U);
    EXPECT_EQ(json["battery"].size(), 16U);
}

TEST(SnapshotJsonTest, AbsentFiguresAreLeftOut) {
    const auto json = nlohmann::json::parse(snapshotToJson(StatsSnapshot{}));
    EXPECT_FALSE(json["cpu"].contains("temperature"));
    EXPECT_FALSE(json["network"].contains("localIP"));
    EXPECT_FALSE(json["battery"].contains("cycleCount"));
    EXPECT_EQ(json["sensors"]["temperatureHistories"], nlohmann::json::object());
}

TEST(SnapshotJsonTest, DistantPastIsItsNumber) {
    const auto json = nlohmann::json::parse(snapshotToJson(StatsSnapshot{}));
    EXPECT_EQ(json["timestamp"], Date::distantPast().secondsSince1970);
}

TEST(SnapshotJsonTest, NumbersThatAreNotFiniteAreNullAndComeBackAsZeroOrAbsent) {
    StatsSnapshot snapshot;
    snapshot.cpu.usage = kNaN;
    snapshot.cpu.temperature = kInfinity;
    snapshot.cpu.perCore = {1, -kInfinity};
    snapshot.cpu.history.append(kNaN);
    const std::string text = snapshotToJson(snapshot);
    EXPECT_TRUE(nlohmann::json::parse(text)["cpu"]["usage"].is_null());
    const auto back = parsed(text);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->cpu.usage, 0);
    EXPECT_EQ(back->cpu.temperature, std::nullopt);
    EXPECT_EQ(back->cpu.perCore, (std::vector<double>{1, 0}));
    EXPECT_EQ(back->cpu.history[0], 0);
}

TEST(SnapshotJsonTest, BytesThatAreNoTextAreReplaced) {
    StatsSnapshot snapshot;
    snapshot.memory.topProcs = {{"bad\xff", 1}};
    EXPECT_EQ(parsed(snapshotToJson(snapshot))->memory.topProcs[0].name, "bad\xef\xbf\xbd");
}

TEST(SnapshotJsonTest, MissingFieldsTakeTheirDefaults) {
    StatsSnapshot expected;
    expected.cpu.usage = 0.5;
    EXPECT_EQ(parsed(R"({"cpu":{"usage":0.5}})"), expected);
    EXPECT_EQ(parsed("{}"), StatsSnapshot{});
}

TEST(SnapshotJsonTest, FieldsOfAnotherTypeTakeTheirDefaults) {
    EXPECT_EQ(
        parsed(
            R"({"cpu":{"usage":"x","perCore":5,"taskCount":1.5,"temperature":"warm","loadAvg":[1]},)"
            R"("memory":{"total":-1},"battery":{"percent":99999999999,"cycleCount":99999999999,"present":1},)"
            R"("disk":[],"timestamp":"now","updated":{}})"),
        StatsSnapshot{});
}

TEST(SnapshotJsonTest, UnknownNamesAreSkipped) {
    StatsSnapshot expected;
    expected.updated = {StatsModule::cpu};
    EXPECT_EQ(
        parsed(R"({"gpu":{},"updated":["cpu","gpu",3],"sensors":{"temperatureHistories":{"moon":[1]}}})"),
        expected);
}

TEST(SnapshotJsonTest, SeriesLongerThanTheirCapKeepTheNewestPoints) {
    std::string text = R"({"cpu":{"history":[)";
    for (int point = 0; point < 100; ++point) text += std::to_string(point) + ",";
    const auto snapshot = parsed(text + "100]}}");
    ASSERT_EQ(snapshot->cpu.history.size(), 60U);
    EXPECT_EQ(snapshot->cpu.history.front(), 41);
    EXPECT_EQ(snapshot->cpu.history.back(), 100);
}

TEST(SnapshotJsonTest, MalformedTextIsAnErrorThatSaysSo) {
    for (const char* text : {"", "{", "{\"cpu\":}", "nonsense", "{} {}", "{\"cpu\":{\"usage\":1e999}}"}) {
        std::string error;
        EXPECT_EQ(snapshotFromJson(text, error), std::nullopt) << text;
        EXPECT_TRUE(error.starts_with("The text is not JSON: ")) << error;
    }
}

TEST(SnapshotJsonTest, TextThatIsNoObjectIsAnErrorThatSaysSo) {
    std::string error;
    EXPECT_EQ(snapshotFromJson("[1]", error), std::nullopt);
    EXPECT_EQ(error, "The text is not a JSON object but of type array");
}

}  // namespace
}  // namespace velmora
