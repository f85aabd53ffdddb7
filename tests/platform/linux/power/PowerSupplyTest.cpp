#include "platform/linux/power/PowerSupply.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

TEST(PowerSupplyTest, LinesBecomeProperties) {
    const PowerSupply supply = parsePowerSupply(
        "DEVTYPE=power_supply\nPOWER_SUPPLY_NAME=BAT0\nPOWER_SUPPLY_TYPE=Battery\nPOWER_SUPPLY_STATUS=Not "
        "charging\n"
        "POWER_SUPPLY_PRESENT=1\nPOWER_SUPPLY_CYCLE_COUNT=7\nPOWER_SUPPLY_CURRENT_NOW=-1500000\n"
        "POWER_SUPPLY_MODEL_NAME=Model 5=6\n");
    EXPECT_EQ(supply.type, "Battery");
    EXPECT_EQ(supply.status, "Not charging");
    EXPECT_EQ(supply.present, 1);
    EXPECT_EQ(supply.cycleCount, 7);
    EXPECT_EQ(supply.currentNow, -1500000);
    EXPECT_EQ(supply.modelName, "Model 5=6");
    EXPECT_EQ(supply.capacity, std::nullopt);
}

TEST(PowerSupplyTest, EmptyTextHasNothing) {
    EXPECT_EQ(parsePowerSupply(""), PowerSupply{});
}

TEST(PowerSupplyTest, LastLineWithoutItsEndIsLeftOut) {
    EXPECT_EQ(parsePowerSupply("POWER_SUPPLY_CAPACITY=9").capacity, std::nullopt);
}

TEST(PowerSupplyTest, LinesOfAnotherFormArePassedOver) {
    EXPECT_EQ(parsePowerSupply("=\nPOWER_SUPPLY_\nPOWER_SUPPLY_=\nCAPACITY=3\nPOWER_SUPPLY_CAPACITY\n\n"),
              PowerSupply{});
}

TEST(PowerSupplyTest, ValueThatIsNoNumberIsAbsent) {
    for (const char* value :
         {"", " 5", "5 ", "5x", "0x5", "1e3", "--5", "99999999999999999999", "9999999999999999"}) {
        EXPECT_EQ(parsePowerSupply(std::string("POWER_SUPPLY_CAPACITY=") + value + "\n").capacity,
                  std::nullopt)
            << value;
    }
}

TEST(PowerSupplyTest, MalformedValueTakesAnEarlierOneAway) {
    EXPECT_EQ(parsePowerSupply("POWER_SUPPLY_CAPACITY=5\nPOWER_SUPPLY_CAPACITY=x\n").capacity, std::nullopt);
}

TEST(PowerSupplyTest, NameIsTrimmedCutAndMadeValidText) {
    EXPECT_EQ(parsePowerSupply("POWER_SUPPLY_MODEL_NAME=  M650  \n").modelName, "M650");
    EXPECT_EQ(parsePowerSupply("POWER_SUPPLY_MODEL_NAME=M\xff\n").modelName, "M\xEF\xBF\xBD");
    EXPECT_LE(parsePowerSupply("POWER_SUPPLY_MODEL_NAME=" + std::string(5000, 'M') + "\n").modelName.size(),
              128U);
}

TEST(PowerSupplyTest, NameWithControlCharactersIsNone) {
    EXPECT_EQ(parsePowerSupply(std::string("POWER_SUPPLY_MODEL_NAME=M\0x\n", 27)).modelName, "");
}

TEST(PowerSupplyTest, BatteryOfADeviceIsNotTheMachines) {
    EXPECT_TRUE((PowerSupply{.type = "Battery"}).isMachineBattery());
    EXPECT_TRUE((PowerSupply{.type = "Battery", .scope = "System"}).isMachineBattery());
    EXPECT_FALSE((PowerSupply{.type = "Battery", .scope = "Device"}).isMachineBattery());
    EXPECT_FALSE((PowerSupply{.type = "UPS"}).isMachineBattery());
}

TEST(PowerSupplyTest, EmptyBayIsNoBattery) {
    EXPECT_FALSE((PowerSupply{.type = "Battery", .present = 0}).isMachineBattery());
}

TEST(PowerSupplyTest, AdaptersOfAllKindsBringPower) {
    for (const char* type : {"Mains", "USB", "USB_C", "USB_PD", "Wireless"})
        EXPECT_TRUE((PowerSupply{.type = type}).isOutsideSupply()) << type;
    EXPECT_FALSE((PowerSupply{.type = "Battery"}).isOutsideSupply());
    EXPECT_FALSE((PowerSupply{.type = "USB", .scope = "Device"}).isOutsideSupply());
}

}  // namespace
}  // namespace velmora
