#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace velmora {

/// Where two snapshots in JSON differ, a line for each figure: "cpu.perCore[3]: expected 0.5, found 0.25".
/// Whole numbers must be the same; others may differ in their tenth digit, since a sum can be taken in
/// another order. Empty if nothing differs.
std::string figureDifferences(const nlohmann::json& expected, const nlohmann::json& found);

}  // namespace velmora
