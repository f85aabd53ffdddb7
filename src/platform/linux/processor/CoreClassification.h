#pragma once

#include <cstdint>
#include <vector>

namespace velmora {

class SystemRoot;

/// Which logical cores are the slow ones of a machine with several kinds. Only what the kernel says of the
/// kind of a core counts: highest frequencies differ between equal cores too.
struct CoreClassification {
    std::int32_t levelCount = 1;      ///< Kinds of cores.
    std::vector<int> efficiencyCpus;  ///< CPU numbers of the slowest kind, ascending; empty with one kind.
    friend bool operator==(const CoreClassification&, const CoreClassification&) = default;
};

/// Reads how the machine's online cores are classified: by the hybrid processor's two counting units if it
/// has them, else, where that tells kinds apart, by capacity.
CoreClassification classifyCores(const SystemRoot& root);

}  // namespace velmora
