#pragma once

#include "base/Date.h"
#include "model/StatsSnapshot.h"

namespace velmora {

class Defaults;
class Display;

/// The battery's last 24 hours in slots of five minutes. They go on across restarts of the program; slots in
/// which it did not run, or the machine slept, are filled with gap points: charge flat, neither plugged in
/// nor the screen on.
class BatteryLongSeries {
public:
    BatteryLongSeries(Defaults& defaults, const Display& display);

    /// Extends the series by the slots that have passed, takes the record's charge for the last of them, and
    /// copies the three series into the record.
    void sample(Date now, BatteryStats& stats);

private:
    void append(double percent, double plugged, double screenOn);
    void extend(Date now, const BatteryStats& stats);
    void store() const;

    Defaults& m_defaults;
    const Display& m_display;
    History<double, 288> m_percent;
    History<double, 288> m_plugged;
    History<double, 288> m_screenOn;
    Date m_sampledAt;
};

}  // namespace velmora
