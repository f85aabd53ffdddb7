#pragma once

#include "platform/linux/traffic/TrafficLedger.h"

#include <span>
#include <string>
#include <string_view>

// The lines of the traffic tool:
//
//     ,bytes_in,bytes_out,
//     firefox.4711,2000,400,

namespace velmora::TrafficBlock {

/// A name as it can stand in a line: commas are the columns' own, and become semicolons; "?" if it is empty.
std::string lineName(std::string_view shownName);

void appendHeader(std::string& text);
/// `scale` turns the bytes of the interval into those of two seconds.
void appendRow(std::string& text, std::string_view name, const ProcessTraffic& traffic, double scale);

}  // namespace velmora::TrafficBlock
