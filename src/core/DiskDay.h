#pragma once

#include "model/StatsSnapshot.h"

#include <cstdint>
#include <string>

namespace velmora {

class Defaults;

/// The day's disk traffic out of counters that only know "since boot": the difference from a stored base.
class DiskDay {
public:
    explicit DiskDay(Defaults& defaults);

    /// Takes the cumulative counters of a sample and writes `readToday` and `writeToday`.
    void count(const std::string& day, std::uint64_t read, std::uint64_t write, DiskStats& stats);

private:
    void rebase(std::uint64_t read, std::uint64_t write);

    Defaults& m_defaults;
    std::string m_day;
    std::uint64_t m_baseRead = 0;
    std::uint64_t m_baseWrite = 0;
};

}  // namespace velmora
