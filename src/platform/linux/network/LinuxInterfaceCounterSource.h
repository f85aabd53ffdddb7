#pragma once

#include "platform/InterfaceCounterSource.h"
#include "platform/linux/files/RecordFile.h"
#include "platform/linux/network/LinuxLinkTable.h"
#include "platform/linux/network/ProcNetDev.h"
#include "platform/linux/network/RouteMessages.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace velmora {

/// The counters of the interfaces that carry the machine's own traffic: by netlink, which costs a quarter of
/// the text, or from /proc/net/dev where netlink is refused.
class LinuxInterfaceCounterSource final : public InterfaceCounterSource {
public:
    explicit LinuxInterfaceCounterSource(std::shared_ptr<LinuxLinkTable> links);

    bool read(std::vector<InterfaceCounters>& interfaces) override;

private:
    bool readByNetlink(std::vector<InterfaceCounters>& interfaces);
    bool readFromText(std::vector<InterfaceCounters>& interfaces);

    std::shared_ptr<LinuxLinkTable> m_links;
    std::vector<std::byte> m_request;
    std::vector<RouteMessages::LinkBytes> m_bytes;  ///< Kept for its storage, as are the rows.
    RecordFile m_file;
    std::vector<ProcNetDev::Row> m_rows;
};

}  // namespace velmora
