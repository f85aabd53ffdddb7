#include "settings/pages/ProductAddress.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ProductAddressTest, OnlyAWebAddressWithAHostIsValid) {
    EXPECT_TRUE(ProductAddress::isValid("https://velmora.example/"));
    EXPECT_TRUE(ProductAddress::isValid("http://127.0.0.1:8910/velmora"));
    for (const char* const address :
         {"", "velmora.example", "https://", "https:///path", "file:///etc/passwd", "https://[",
          "mailto:a@b.example", "https://a b.example/"}) {
        EXPECT_FALSE(ProductAddress::isValid(address)) << address;
    }
}

TEST(ProductAddressTest, ShownTextLacksTheSchemeAndTheSlashOfABareHost) {
    EXPECT_EQ(ProductAddress::shownText("https://velmora.example"), "velmora.example");
    EXPECT_EQ(ProductAddress::shownText("https://velmora.example/"), "velmora.example");
    EXPECT_EQ(ProductAddress::shownText("https://velmora.example/app/"), "velmora.example/app/");
    EXPECT_EQ(ProductAddress::shownText("no address"), "no address");
    EXPECT_EQ(ProductAddress::shownText(""), "");
    EXPECT_EQ(ProductAddress::shownText("https://"), "");
}

}  // namespace
}  // namespace velmora
