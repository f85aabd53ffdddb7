#pragma once

#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/network/NetlinkMessages.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace velmora {

/// A kept socket to one of the kernel's netlink services. The kernel answers within the call, so that a
/// question on the main thread is a bounded read. News of groups that the socket is a member of arrive on the
/// same socket and are kept apart from answers by their sequence number 0.
class NetlinkSocket {
public:
    static constexpr int kMostReads = 1024;

    /// `protocol` such as `NETLINK_ROUTE`; a socket that could not be made answers nothing.
    explicit NetlinkSocket(int protocol);

    bool isOpen() const { return static_cast<bool>(m_descriptor); }
    /// Lets news of this group in; false if the kernel refuses.
    bool join(int group);

    enum class Answer { complete, cutShort, refused };
    using Visitor = std::function<void(const Netlink::Message&)>;
    /// Sends the request and shows each message of the answer. An answer to a dump that changed meanwhile is
    /// complete. `cutShort` stands for more than `mostReads` blocks, after which the socket is closed.
    Answer ask(std::span<std::byte> request, const Visitor& visit, int mostReads = kMostReads);
    /// The error number of the last refusal that the kernel sent, else 0.
    int lastError() const { return m_lastError; }

    /// True if news came among the answers since the last call, or so many that some were lost.
    bool takeNews();
    /// The same, looking at what has arrived until now.
    bool collectNews();

private:
    enum class Step { more, done, failed };
    Step readAnswer(std::uint32_t sequence, bool isDump, const Visitor& visit);

    FileDescriptor m_descriptor;
    std::unique_ptr<std::byte[]> m_buffer;
    std::uint32_t m_sequence = 0;
    int m_lastError = 0;
    bool m_hasNews = false;
};

}  // namespace velmora
