#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <linux/if.h>
#include <linux/if_tun.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace velmora {

/// A far host at the other end of a tunnel that ends in this process: 198.51.100.2 answers echo requests and
/// connection attempts after a delay, any other address stays silent. The near end is 198.51.100.1 on the
/// interface "probe0", which must be brought up by the test. Runs on a thread of its own.
class TunHost {
public:
    static constexpr const char* kName = "probe0";
    static constexpr const char* kNear = "198.51.100.1";
    static constexpr const char* kAnswering = "198.51.100.2";
    static constexpr const char* kSilent = "198.51.100.3";

    explicit TunHost(std::chrono::milliseconds delay) : m_delay(delay) {
        m_tunnel = ::open("/dev/net/tun", O_RDWR | O_CLOEXEC);
        ifreq request{};
        std::strncpy(request.ifr_name, kName, IFNAMSIZ - 1);
        request.ifr_flags = IFF_TUN | IFF_NO_PI;
        m_isOpen = m_tunnel >= 0 && ::ioctl(m_tunnel, TUNSETIFF, &request) == 0;
        m_ending = ::eventfd(0, EFD_CLOEXEC);
        if (m_isOpen) m_thread = std::thread([this] { serve(); });
    }
    ~TunHost() {
        (void)::eventfd_write(m_ending, 1);
        if (m_thread.joinable()) m_thread.join();
        ::close(m_tunnel);
        ::close(m_ending);
    }
    TunHost(const TunHost&) = delete;
    TunHost& operator=(const TunHost&) = delete;

    bool isOpen() const { return m_isOpen; }

    /// The kernel counts a packet when it is taken out at this end. False if they don't come in ten seconds.
    bool waitForPackets(int count) const {
        std::unique_lock lock(m_mutex);
        return m_came.wait_for(lock, std::chrono::seconds(10), [&] { return m_packets >= count; });
    }

private:
    using Clock = std::chrono::steady_clock;
    using Packet = std::vector<std::uint8_t>;

    static constexpr std::size_t kHeader = 20;

    void serve() {
        std::vector<std::pair<Clock::time_point, Packet>> due;
        while (true) {
            int wait = -1;
            if (!due.empty()) {
                const auto left =
                    std::chrono::ceil<std::chrono::milliseconds>(due.front().first - Clock::now());
                wait = static_cast<int>(std::max<std::int64_t>(left.count(), 0));
            }
            std::array<pollfd, 2> waited{{{m_tunnel, POLLIN, 0}, {m_ending, POLLIN, 0}}};
            ::poll(waited.data(), waited.size(), wait);
            if (waited[1].revents != 0) return;
            if (waited[0].revents != 0) {
                Packet packet(2048);
                const ssize_t length = ::read(m_tunnel, packet.data(), packet.size());
                if (length > 0) {
                    packet.resize(static_cast<std::size_t>(length));
                    count();
                    if (answer(packet)) due.emplace_back(Clock::now() + m_delay, packet);
                }
            }
            while (!due.empty() && due.front().first <= Clock::now()) {
                (void)!::write(m_tunnel, due.front().second.data(), due.front().second.size());
                due.erase(due.begin());
            }
        }
    }

    void count() {
        const std::lock_guard lock(m_mutex);
        ++m_packets;
        m_came.notify_all();
    }

    /// Turns the packet into the answer to it; false if there is none.
    static bool answer(Packet& packet) {
        if (packet.size() < kHeader + 8 || packet[0] != 0x45) return false;
        std::array<std::uint8_t, 4> answering{};
        ::inet_pton(AF_INET, kAnswering, answering.data());
        if (std::memcmp(packet.data() + 16, answering.data(), 4) != 0) return false;
        std::swap_ranges(packet.begin() + 12, packet.begin() + 16, packet.begin() + 16);
        if (packet[9] == IPPROTO_ICMP) return answerEcho(packet);
        if (packet[9] == IPPROTO_TCP) return answerConnection(packet);
        return false;
    }

    static bool answerEcho(Packet& packet) {
        if (packet[kHeader] != 8) return false;
        packet[kHeader] = 0;
        store(packet, kHeader + 2, 0);
        store(packet, kHeader + 2, checksum(std::span(packet).subspan(kHeader)));
        return true;
    }

    /// A SYN is answered with SYN and ACK.
    static bool answerConnection(Packet& packet) {
        constexpr std::uint8_t kSyn = 2;
        constexpr std::uint8_t kSynAndAck = 0x12;
        if (packet.size() < kHeader + 20 || packet[kHeader + 13] != kSyn) return false;
        packet.resize(kHeader + 20);
        store(packet, 2, static_cast<std::uint16_t>(packet.size()));
        store(packet, 10, 0);
        store(packet, 10, checksum(std::span(packet).first(kHeader)));
        std::swap_ranges(packet.begin() + kHeader, packet.begin() + kHeader + 2,
                         packet.begin() + kHeader + 2);
        std::uint32_t sequence = 0;
        std::memcpy(&sequence, packet.data() + kHeader + 4, 4);
        const std::uint32_t acknowledged = htonl(ntohl(sequence) + 1);
        std::memcpy(packet.data() + kHeader + 8, &acknowledged, 4);
        packet[kHeader + 12] = 0x50;
        packet[kHeader + 13] = kSynAndAck;
        store(packet, kHeader + 16, 0);
        // The checksum covers the addresses, the protocol and the length too.
        Packet covered(packet.begin() + 12, packet.begin() + 20);
        covered.insert(covered.end(), {0, IPPROTO_TCP, 0, 20});
        covered.insert(covered.end(), packet.begin() + kHeader, packet.end());
        store(packet, kHeader + 16, checksum(covered));
        return true;
    }

    static void store(Packet& packet, std::size_t offset, std::uint16_t value) {
        packet[offset] = static_cast<std::uint8_t>(value >> 8U);
        packet[offset + 1] = static_cast<std::uint8_t>(value & 0xFFU);
    }

    static std::uint16_t checksum(std::span<const std::uint8_t> bytes) {
        std::uint32_t sum = 0;
        for (std::size_t offset = 0; offset < bytes.size(); offset += 2) {
            sum += static_cast<std::uint32_t>(bytes[offset]) << 8U;
            if (offset + 1 < bytes.size()) sum += bytes[offset + 1];
        }
        while ((sum >> 16U) != 0) sum = (sum & 0xFFFFU) + (sum >> 16U);
        return static_cast<std::uint16_t>(~sum & 0xFFFFU);
    }

    std::chrono::milliseconds m_delay;
    int m_tunnel = -1;
    int m_ending = -1;
    bool m_isOpen = false;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_came;
    int m_packets = 0;
    std::thread m_thread;
};

}  // namespace velmora
