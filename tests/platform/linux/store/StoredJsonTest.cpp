#include "platform/linux/store/StoredJson.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

using nlohmann::json;

TEST(StoredJson, ValueComesBack) {
    const json value = {{"cpu", {1, 2.5, "text", true}}, {"empty", json::object()}};
    EXPECT_EQ(valueOfStoredJson(storedJson(value)), value);
}

TEST(StoredJson, WholeDoubleStaysADouble) {
    const auto value = valueOfStoredJson(storedJson(json(2.0)));
    ASSERT_TRUE(value);
    EXPECT_TRUE(value->is_number_float());
}

TEST(StoredJson, LargestUnsignedIntegerStaysWhole) {
    EXPECT_EQ(storedJson(json(18446744073709551615u)), "18446744073709551615");
    EXPECT_EQ(valueOfStoredJson("18446744073709551615")->get<std::uint64_t>(), 18446744073709551615u);
}

TEST(StoredJson, AnythingButOneValueIsAbsent) {
    for (const char* text : {"", " ", "{", "[1,", "1 2", "yes", "'a'", "{1:2}", "nul", "1e999", "\"\xFF\""}) {
        EXPECT_EQ(valueOfStoredJson(text), std::nullopt) << text;
    }
}

TEST(StoredJson, DeepNestingIsNoDanger) {
    const std::string deep(200'000, '[');
    EXPECT_EQ(valueOfStoredJson(deep), std::nullopt);
    EXPECT_TRUE(valueOfStoredJson(deep + std::string(200'000, ']')));
}

}  // namespace
}  // namespace velmora
