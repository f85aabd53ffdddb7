#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

namespace velmora {

/// The folders in which a user's bytes lie, by kind. A folder need not exist.
struct DiskPlaces {
    std::vector<std::string> documents;  ///< The documents, desktop and downloads folders.
    std::vector<std::string> applications;
    std::vector<std::string> cloud;    ///< What is kept in step with a server.
    std::vector<std::string> library;  ///< What programs keep for the user, the cloud folders included.
    std::vector<std::string> trash;
    friend bool operator==(const DiskPlaces&, const DiskPlaces&) = default;
};

/// Looks through folders, which takes as long as it takes: workers only.
class DiskPlaceSource {
public:
    virtual ~DiskPlaceSource() = default;
    virtual DiskPlaces places() = 0;
    /// Bytes allocated to the files below one of the places that were last given (stands for
    /// `FileManager.enumerator` and `NSURLTotalFileAllocatedSizeKey`). Application packages are not descended
    /// into, and what cannot be read counts 0. Ends early, with any value, once a stop is requested.
    virtual std::int64_t dirSize(const std::string& folder, const std::stop_token& stop) = 0;
};

}  // namespace velmora
