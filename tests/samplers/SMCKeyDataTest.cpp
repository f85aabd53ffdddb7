#include "samplers/SMCKeyData.h"

#include <gtest/gtest.h>

#include <cstring>

namespace velmora {
namespace {

std::uint32_t wordAt(const ControllerRecord& record, std::size_t offset) {
    std::uint32_t word = 0;
    std::memcpy(&word, &record[offset], sizeof word);
    return word;
}

TEST(SMCKeyDataTest, CodePacksTheFirstByteHighest) {
    EXPECT_EQ(fourCC("FNum"), 0x464E756DU);
}

TEST(SMCKeyDataTest, CodeTakesFourBytesOnly) {
    EXPECT_EQ(fourCC("F10Ac"), fourCC("F10A"));
}

TEST(SMCKeyDataTest, ShorterKeyPacksWhatThereIsAndAnEmptyOneIsZero) {
    EXPECT_EQ(fourCC("F0"), 0x4630U);
    EXPECT_EQ(fourCC(""), 0U);
}

TEST(SMCKeyDataTest, BytesBeyondAsciiArePackedAsTheyAre) {
    EXPECT_EQ(fourCC("\xC3\xA4"), 0xC3A4U);
}

TEST(SMCKeyDataTest, EachFieldLiesAtItsPlace) {
    SMCKeyData data;
    data.key = 0x01020304;
    data.keyInfo = {0x05060708, 0x090A0B0C, 0x0D};
    data.result = 0x0E;
    data.status = 0x0F;
    data.data8 = 0x10;
    data.data32 = 0x11121314;
    data.bytes.fill(std::byte{0x15});
    const ControllerRecord record = data.encoded();
    ASSERT_EQ(record.size(), 76U);
    EXPECT_EQ(wordAt(record, 0), 0x01020304U);
    for (std::size_t offset = 4; offset < 28; ++offset) EXPECT_EQ(record[offset], std::byte{0}) << offset;
    EXPECT_EQ(wordAt(record, 28), 0x05060708U);
    EXPECT_EQ(wordAt(record, 32), 0x090A0B0CU);
    EXPECT_EQ(record[36], std::byte{0x0D});
    EXPECT_EQ(record[37], std::byte{0x0E});
    EXPECT_EQ(record[38], std::byte{0x0F});
    EXPECT_EQ(record[39], std::byte{0x10});
    EXPECT_EQ(wordAt(record, 40), 0x11121314U);
    for (std::size_t offset = 44; offset < 76; ++offset) EXPECT_EQ(record[offset], std::byte{0x15}) << offset;
}

TEST(SMCKeyDataTest, RecordThatIsDecodedGivesTheSameAgain) {
    SMCKeyData data;
    data.key = fourCC("F0Ac");
    data.keyInfo = {4, fourCC("flt "), 0xD4};
    data.data8 = SMCKeyData::kReadKey;
    data.bytes[31] = std::byte{7};
    EXPECT_EQ(SMCKeyData::decoded(data.encoded()), data);
}

TEST(SMCKeyDataTest, QuartersGiveASpeed) {
    SMCValue value{{2, fourCC("fpe2"), 0}, {}};
    value.bytes[0] = std::byte{0x1F};
    value.bytes[1] = std::byte{0x40};
    EXPECT_EQ(value.speed(), 2000.0);
}

TEST(SMCKeyDataTest, ValueOfAnotherTypeHasNoSpeed) {
    EXPECT_EQ((SMCValue{{2, fourCC("ui16"), 0}, {}}).speed(), std::nullopt);
    EXPECT_EQ((SMCValue{{4, fourCC("flt"), 0}, {}}).speed(), std::nullopt);
}

}  // namespace
}  // namespace velmora
