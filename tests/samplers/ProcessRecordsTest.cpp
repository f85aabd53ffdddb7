#include "samplers/ProcessRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <vector>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::array<std::int32_t, 8> kIds = {11, 12, 13, 14, 15, 16, 17, 18};

template <typename Number>
void put(std::vector<std::byte>& record, std::size_t offset, Number number) {
    std::memcpy(record.data() + offset, &number, sizeof number);
}

TEST(ProcessRecordsTest, CountFormTakesAsManyEntries) {
    EXPECT_THAT(ProcessRecords::idsByCount(3, kIds), ElementsAre(11, 12, 13));
}

TEST(ProcessRecordsTest, ByteFormDividesByFourAndRoundsDown) {
    EXPECT_THAT(ProcessRecords::idsByByteCount(15, kIds), ElementsAre(11, 12, 13));
    EXPECT_THAT(ProcessRecords::idsByByteCount(3, kIds), IsEmpty());
}

TEST(ProcessRecordsTest, FailureGivesNoIdsInEitherForm) {
    for (const std::int32_t result : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_THAT(ProcessRecords::idsByCount(result, kIds), IsEmpty());
        EXPECT_THAT(ProcessRecords::idsByByteCount(result, kIds), IsEmpty());
    }
}

TEST(ProcessRecordsTest, ResultBeyondTheBufferStaysInIt) {
    constexpr auto kLargest = std::numeric_limits<std::int32_t>::max();
    EXPECT_THAT(ProcessRecords::idsByCount(kLargest, kIds), SizeIs(8));
    EXPECT_THAT(ProcessRecords::idsByByteCount(kLargest, kIds), SizeIs(8));
    EXPECT_THAT(ProcessRecords::idsByCount(kLargest, {}), IsEmpty());
}

TEST(ProcessRecordsTest, NameEndsAtTheFirstZeroByte) {
    std::array<char, 256> buffer{};
    std::memcpy(buffer.data(), "Mail\0junk", 9);
    EXPECT_EQ(ProcessRecords::name(std::as_bytes(std::span(buffer))), "Mail");
}

TEST(ProcessRecordsTest, EmptyNameIsAQuestionMark) {
    const std::array<char, 256> buffer{};
    EXPECT_EQ(ProcessRecords::name(std::as_bytes(std::span(buffer))), "?");
    EXPECT_EQ(ProcessRecords::name({}), "?");
}

TEST(ProcessRecordsTest, NameWithoutAZeroByteIsTheWholeBuffer) {
    std::array<char, 256> buffer{};
    buffer.fill('x');
    EXPECT_THAT(ProcessRecords::name(std::as_bytes(std::span(buffer))), SizeIs(256));
}

TEST(ProcessRecordsTest, RusageFieldsAreReadAtTheirPlaces) {
    std::vector<std::byte> record(464);
    put<std::uint64_t>(record, 72, 1);
    put<std::uint64_t>(record, 144, 2);
    put<std::uint64_t>(record, 152, 3);
    put<std::uint64_t>(record, 264, 4);
    EXPECT_EQ(ProcessRecords::rusage(record), (ProcessRecords::Rusage{1, {2, 3, 4}}));
    record.pop_back();
    EXPECT_FALSE(ProcessRecords::rusage(record));
}

TEST(ProcessRecordsTest, ParentageNeedsTheWholeRecord) {
    std::vector<std::byte> record(136);
    put<std::uint32_t>(record, 16, 1);
    put<std::uint32_t>(record, 20, 501);
    EXPECT_EQ(ProcessRecords::parentage(136, record), (ProcessParentage{1, 501}));
    EXPECT_FALSE(ProcessRecords::parentage(135, record));
    EXPECT_FALSE(ProcessRecords::parentage(0, record));
    record.pop_back();
    EXPECT_FALSE(ProcessRecords::parentage(136, record));
}

}  // namespace
}  // namespace velmora
