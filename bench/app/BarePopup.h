#pragma once

namespace velmora {

/// Makes a process of the benchmarks' executable the bare program below.
inline constexpr auto kBarePopupArgument = "--bare-popup";

/// The least that the toolkit can do at a click: a window at the top of the screen whose press opens a popup
/// of a panel's size in one colour, and closes it again.
int runBarePopup(int argumentCount, char** arguments);

}  // namespace velmora
