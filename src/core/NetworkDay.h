#pragma once

#include "model/StatsSnapshot.h"

#include <cstdint>
#include <string>

namespace velmora {

class Defaults;

/// The day's and the month's network traffic out of counters that only know "since boot": differences from
/// stored bases.
class NetworkDay {
public:
    explicit NetworkDay(Defaults& defaults);

    /// Takes rates and totals from the record, `elapsed` seconds after the sample before, and writes its
    /// figures of the day and the month.
    void count(const std::string& day, double elapsed, NetworkStats& stats);

private:
    void countDay(const std::string& day, NetworkStats& stats);
    void countMonth(const std::string& day, NetworkStats& stats);
    void countActivity(double elapsed, NetworkStats& stats);
    void countPeak(NetworkStats& stats);
    void rebase(std::uint64_t sum, std::uint64_t down, std::uint64_t up);

    Defaults& m_defaults;
    std::string m_day;
    std::uint64_t m_base = 0;
    std::uint64_t m_baseDown = 0;
    std::uint64_t m_baseUp = 0;
    double m_peak = 0;
    double m_activeSeconds = 0;
    std::string m_month;
    std::uint64_t m_monthBase = 0;
};

}  // namespace velmora
