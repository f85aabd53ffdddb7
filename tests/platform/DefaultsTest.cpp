#include "platform/Defaults.h"

#include "fakes/FakeDefaults.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace velmora {
namespace {

using nlohmann::json;

class DefaultsTest : public ::testing::Test {
protected:
    FakeDefaults defaults;
};

TEST_F(DefaultsTest, MissingKeyIsAbsentForEveryType) {
    EXPECT_EQ(defaults.text("k"), std::nullopt);
    EXPECT_EQ(defaults.boolean("k"), std::nullopt);
    EXPECT_EQ(defaults.number("k"), std::nullopt);
    EXPECT_EQ(defaults.unsignedInteger("k"), std::nullopt);
    EXPECT_EQ(defaults.textArray("k"), std::nullopt);
    EXPECT_EQ(defaults.numberArray("k"), std::nullopt);
    EXPECT_EQ(defaults.textMap("k"), std::nullopt);
    EXPECT_EQ(defaults.numberMap("k"), std::nullopt);
    EXPECT_EQ(defaults.textArrayMap("k"), std::nullopt);
}

TEST_F(DefaultsTest, ValueOfAnotherTypeIsAbsent) {
    defaults.stored["k"] = "true";
    EXPECT_EQ(defaults.boolean("k"), std::nullopt);
    EXPECT_EQ(defaults.number("k"), std::nullopt);
    EXPECT_EQ(defaults.textArray("k"), std::nullopt);
    EXPECT_EQ(defaults.textMap("k"), std::nullopt);
    defaults.stored["k"] = true;
    EXPECT_EQ(defaults.text("k"), std::nullopt);
    EXPECT_EQ(defaults.number("k"), std::nullopt);
    defaults.stored["k"] = nullptr;
    EXPECT_EQ(defaults.text("k"), std::nullopt);
    EXPECT_EQ(defaults.boolean("k"), std::nullopt);
}

TEST_F(DefaultsTest, WholeNumberIsANumberToo) {
    defaults.stored["k"] = 5;
    EXPECT_EQ(defaults.number("k"), 5.0);
}

TEST_F(DefaultsTest, UnsignedIntegerTakesNoNegativeAndNoFraction) {
    defaults.stored["k"] = -1;
    EXPECT_EQ(defaults.unsignedInteger("k"), std::nullopt);
    defaults.stored["k"] = 1.5;
    EXPECT_EQ(defaults.unsignedInteger("k"), std::nullopt);
    defaults.setUnsignedInteger("k", std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(defaults.unsignedInteger("k"), std::numeric_limits<std::uint64_t>::max());
}

TEST_F(DefaultsTest, ForeignEntriesOfACollectionAreLeftOutOneByOne) {
    defaults.stored["texts"] = json::array({"cpu", 1, nullptr, "disk"});
    defaults.stored["numbers"] = json::array({1, "two", 3.5});
    defaults.stored["textMap"] = {{"cpu", "pie"}, {"disk", 4}};
    defaults.stored["numberMap"] = {{"cpu", 2}, {"disk", "4"}};
    defaults.stored["textArrayMap"] = {{"cpu", {"top", 1}}, {"disk", "top"}};
    EXPECT_EQ(defaults.textArray("texts"), (std::vector<std::string>{"cpu", "disk"}));
    EXPECT_EQ(defaults.numberArray("numbers"), (std::vector<double>{1, 3.5}));
    EXPECT_EQ(defaults.textMap("textMap"), (std::map<std::string, std::string>{{"cpu", "pie"}}));
    EXPECT_EQ(defaults.numberMap("numberMap"), (std::map<std::string, double>{{"cpu", 2}}));
    EXPECT_EQ(defaults.textArrayMap("textArrayMap"),
              (std::map<std::string, std::vector<std::string>>{{"cpu", {"top"}}}));
}

TEST_F(DefaultsTest, EmptyCollectionsArePresent) {
    defaults.setTextArray("texts", {});
    defaults.setTextMap("map", {});
    defaults.setTextArrayMap("arrays", {{"cpu", {}}});
    EXPECT_EQ(defaults.textArray("texts"), std::vector<std::string>());
    EXPECT_EQ(defaults.textMap("map"), (std::map<std::string, std::string>()));
    EXPECT_EQ(defaults.textArrayMap("arrays"),
              (std::map<std::string, std::vector<std::string>>{{"cpu", {}}}));
}

TEST_F(DefaultsTest, NumberThatIsNotFiniteRemovesTheKey) {
    for (const double value : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        defaults.setNumber("k", 1);
        defaults.setNumber("k", value);
        EXPECT_FALSE(defaults.contains("k"));
    }
}

TEST_F(DefaultsTest, UrgencyIsHandedOn) {
    defaults.setNumber("k", 1);
    EXPECT_EQ(defaults.lastWrite("k")->urgency, Defaults::Urgency::now);
    defaults.setNumber("k", 2, Defaults::Urgency::relaxed);
    EXPECT_EQ(defaults.lastWrite("k")->urgency, Defaults::Urgency::relaxed);
}

}  // namespace
}  // namespace velmora
