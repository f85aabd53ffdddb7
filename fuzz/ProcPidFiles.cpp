#include "platform/linux/processes/ProcPidIo.h"
#include "platform/linux/processes/ProcPidStat.h"
#include "platform/linux/processes/ProcPidStatus.h"
#include "platform/linux/processes/ProcessNames.h"
#include "platform/linux/traffic/ParentMark.h"
#include "platform/linux/traffic/SocketOwners.h"
#include "platform/linux/traffic/TerminalReader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto stat = parseProcPidStat(text)) ProcessNames::shown(stat->comm);
    ProcPidStatus status;
    if (parseProcPidStatus(text, status)) ProcessNames::shown(status.name);
    parseProcPidIo(text);
    ParentMark::inEnvironment(text);
    SocketOwners::inodeOfLink(text);
    const std::string_view half = text.substr(0, size / 2);
    ProcessNames::uncut(half, text, text);
    ProcessNames::ofProgram(text);
    if (ProcessNames::shown(text).size() > 255 || unfinishedCharacterLength(text) > 3) __builtin_trap();
    return 0;
}
