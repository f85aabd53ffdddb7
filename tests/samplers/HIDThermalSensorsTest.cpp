#include "samplers/HIDThermalSensors.h"

#include "samplers/TemperatureSampler.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

/// An event system with settable services, which counts what it is asked.
class HIDThermalSensorsTest : public testing::Test {
protected:
    struct Service {
        std::optional<std::string> product;
        std::optional<double> celsius;
    };

    HIDEventFunctions functions() {
        HIDEventFunctions functions;
        functions.clientCreate = [this] {
            ++clients;
            return clientFails ? HIDHandle() : std::make_shared<int>(1);
        };
        functions.clientSetMatching = [this](const HIDHandle&, const HIDMatching& matching) {
            matchings.push_back(matching);
        };
        functions.clientCopyServices = [this](const HIDHandle&) -> std::optional<std::vector<HIDHandle>> {
            if (listFails) return std::nullopt;
            std::vector<HIDHandle> handles;
            for (const Service& service : services) handles.push_back(std::make_shared<Service>(service));
            return handles;
        };
        functions.serviceCopyProperty = [](const HIDHandle& service, std::string_view name) {
            EXPECT_EQ(name, "Product");
            return std::static_pointer_cast<Service>(service)->product;
        };
        functions.serviceCopyEvent = [](const HIDHandle& service, std::int64_t type, std::int32_t options,
                                        std::int64_t timestamp) -> HIDHandle {
            EXPECT_EQ(type, 15);
            EXPECT_EQ(options, 0);
            EXPECT_EQ(timestamp, 0);
            const auto celsius = std::static_pointer_cast<Service>(service)->celsius;
            return celsius ? std::make_shared<double>(*celsius) : HIDHandle();
        };
        functions.eventGetFloat = [](const HIDHandle& event, std::int32_t field) {
            EXPECT_EQ(field, 0xF0000);
            return *std::static_pointer_cast<double>(event);
        };
        return functions;
    }

    static constexpr auto kAll = ThermalSensorSource::Scope::all;
    bool clientFails = false;
    bool listFails = false;
    int clients = 0;
    std::vector<HIDMatching> matchings;
    std::vector<Service> services = {{"PMU tdie1", 50}};
};

TEST_F(HIDThermalSensorsTest, ServicesWithNameAndEventAreHandedOut) {
    services = {{"PMU tdie1", 50}, {std::nullopt, 40}, {"NAND CH0 temp", std::nullopt}, {"ambient", 20}};
    HIDThermalSensors sensors(functions());
    ASSERT_NE(sensors.sensors(kAll), nullptr);
    EXPECT_EQ(*sensors.sensors(kAll), (std::vector<ThermalSensor>{{"PMU tdie1", 50}, {"ambient", 20}}));
}

TEST_F(HIDThermalSensorsTest, MatchingIsSetOnceToTheMakersTemperatureSensors) {
    HIDThermalSensors sensors(functions());
    sensors.sensors(kAll);
    sensors.sensors(kAll);
    EXPECT_EQ(matchings, (std::vector<HIDMatching>{{65280, 5}}));
    EXPECT_EQ(clients, 1);
}

TEST_F(HIDThermalSensorsTest, ServicesAreAskedForAgainAtEachReading) {
    HIDThermalSensors sensors(functions());
    sensors.sensors(kAll);
    services = {{"PMU tdie1", 60}, {"PMU tdie2", 61}};
    EXPECT_EQ(sensors.sensors(kAll)->size(), 2U);
}

TEST_F(HIDThermalSensorsTest, WithoutTheCreatingFunctionNothingIsSetUp) {
    HIDEventFunctions some = functions();
    some.clientCreate = nullptr;
    HIDThermalSensors sensors(some);
    EXPECT_EQ(sensors.sensors(kAll), nullptr);
    EXPECT_TRUE(matchings.empty());
}

TEST_F(HIDThermalSensorsTest, WithoutTheMatchingFunctionNoClientIsMade) {
    HIDEventFunctions some = functions();
    some.clientSetMatching = nullptr;
    HIDThermalSensors sensors(some);
    EXPECT_EQ(sensors.sensors(kAll), nullptr);
    EXPECT_EQ(clients, 0);
}

TEST_F(HIDThermalSensorsTest, ClientThatCannotBeMadeGivesNothingForEver) {
    clientFails = true;
    HIDThermalSensors sensors(functions());
    clientFails = false;
    EXPECT_EQ(sensors.sensors(kAll), nullptr);
    EXPECT_EQ(clients, 1);
    EXPECT_TRUE(matchings.empty());
}

TEST_F(HIDThermalSensorsTest, EachMissingReadingFunctionGivesNothing) {
    HIDEventFunctions some = functions();
    some.clientCopyServices = nullptr;
    EXPECT_EQ(HIDThermalSensors(some).sensors(kAll), nullptr);
    some = functions();
    some.serviceCopyProperty = nullptr;
    EXPECT_EQ(HIDThermalSensors(some).sensors(kAll), nullptr);
    some = functions();
    some.serviceCopyEvent = nullptr;
    EXPECT_EQ(HIDThermalSensors(some).sensors(kAll), nullptr);
    some = functions();
    some.eventGetFloat = nullptr;
    EXPECT_EQ(HIDThermalSensors(some).sensors(kAll), nullptr);
}

TEST_F(HIDThermalSensorsTest, ListThatCannotBeCopiedGivesNothing) {
    listFails = true;
    HIDThermalSensors sensors(functions());
    EXPECT_EQ(sensors.sensors(kAll), nullptr);
    TemperatureSampler sampler(sensors);
    EXPECT_EQ(sampler.cpuTemperature(), std::nullopt);
}

TEST_F(HIDThermalSensorsTest, SamplerReadsThroughThem) {
    services = {{"PMU tdie1", 50}, {"SOC MTR Temp Sensor0", 40}};
    HIDThermalSensors sensors(functions());
    TemperatureSampler sampler(sensors);
    EXPECT_EQ(sampler.cpuTemperature(), 50.0);
}

}  // namespace
}  // namespace velmora
