#include "core/DiskDay.h"

#include "core/StoredCount.h"
#include "platform/Defaults.h"

#include <string_view>

namespace velmora {
namespace {

constexpr std::string_view kDayKey = "disk.today.day";
constexpr std::string_view kReadKey = "disk.today.read";
constexpr std::string_view kWriteKey = "disk.today.write";

}  // namespace

DiskDay::DiskDay(Defaults& defaults)
    : m_defaults(defaults),
      m_day(defaults.text(kDayKey).value_or("")),
      m_baseRead(storedCount(defaults, kReadKey)),
      m_baseWrite(storedCount(defaults, kWriteKey)) {}

void DiskDay::count(const std::string& day, std::uint64_t read, std::uint64_t write, DiskStats& stats) {
    if (day != m_day) {
        m_day = day;
        m_defaults.setText(kDayKey, m_day);
        rebase(read, write);
    }
    // The counters went back: the machine was started anew, and the figures count from there.
    if (read < m_baseRead || write < m_baseWrite) rebase(0, 0);
    // One base alone is a pair that was stored by half. Two zeros are a pair since boot and stay.
    if ((m_baseRead == 0) != (m_baseWrite == 0)) rebase(read, write);
    stats.readToday = read - m_baseRead;
    stats.writeToday = write - m_baseWrite;
}

void DiskDay::rebase(std::uint64_t read, std::uint64_t write) {
    m_baseRead = read;
    m_baseWrite = write;
    m_defaults.setUnsignedInteger(kReadKey, read);
    m_defaults.setUnsignedInteger(kWriteKey, write);
}

}  // namespace velmora
