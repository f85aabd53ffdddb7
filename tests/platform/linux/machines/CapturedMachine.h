#pragma once

#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeRunLoop.h"
#include "model/StatsSnapshot.h"
#include "platform/Platform.h"
#include "platform/linux/files/SystemTree.h"

#include <nlohmann/json.hpp>

#include <string>

namespace velmora {

/// The whole program but its windows, over a captured machine: the engine, the samplers and the Linux sources
/// in virtual time.
///
/// A machine is a folder with the files of two moments, a minute apart, and with `answers.json` for what no
/// file tells. What `answers.json` may hold, all of it optional:
///   space                 what statvfs says: mount point -> blocks, available blocks, block size
///   blockDevices          numbers of the nodes below /dev
///   addresses             IPv4 addresses: interface, address
///   wifi                  the default wireless interface; without a channel it is not connected
///   environment           variables
///   upstreamNameServers   whom a name server on this machine asks
///   powerService, powerProfile   the desktop's services
///   echoSeconds           the round trip of an echo request; without it none is sent
class CapturedMachine {
public:
    explicit CapturedMachine(std::string name);

    /// The snapshot at the second moment. What is read in the background has just been read then. Once.
    StatsSnapshot snapshotAfterBothFrames();

    static constexpr double kSecondsBetween = 60;

private:
    void answerServices();
    void answerCalls();
    void answerEchoes();
    void readInBackground();

    std::string m_name;
    SystemTree m_tree;
    nlohmann::json m_answers;
    Platform m_platform;
    FakeRunLoop* m_runLoop = nullptr;  ///< The platform's, as is the next.
    FakeMonotonicClock* m_monotonic = nullptr;
};

}  // namespace velmora
