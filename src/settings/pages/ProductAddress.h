#pragma once

#include <string>

/// The product's web address as the deployment gives it.
namespace velmora::ProductAddress {

/// Whether a browser can open it: a web address with a host.
bool isValid(const std::string& address);
/// The address without its scheme, and without the slash of a bare host.
std::string shownText(const std::string& address);

}  // namespace velmora::ProductAddress
