#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace velmora {

/// Moves the calling thread, which must be the process's first, into a network of its own with nothing but a
/// loopback, and back at the end. Threads that are started meanwhile live in it too and must end before. The
/// network has no name and vanishes with its last user, also after a crash. Settings and interfaces made in
/// it are nobody else's, and nothing that is sent in it leaves the machine.
class NetworkNamespace {
public:
    NetworkNamespace() {
        m_network = ::open("/proc/self/ns/net", O_RDONLY | O_CLOEXEC);
        m_mounts = ::open("/proc/self/ns/mnt", O_RDONLY | O_CLOEXEC);
#ifndef __SANITIZE_THREAD__
        // A process with several threads, one of them that sanitizer's, could not go back.
        m_isOpen = ::unshare(CLONE_NEWNET | CLONE_NEWNS) == 0;
#endif
        if (!m_isOpen) return;
        // The files of interfaces show the network of who mounted them, so they are mounted anew, unseen by
        // others.
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        ::mount("sysfs", "/sys", "sysfs", 0, nullptr);
        // Without it no interface says anything by itself, so that counters stand still.
        write("/proc/sys/net/ipv6/conf/all/disable_ipv6", "1");
        write("/proc/sys/net/ipv6/conf/default/disable_ipv6", "1");
        run("ip link set lo up");
    }
    ~NetworkNamespace() {
        if (m_isOpen) {
            EXPECT_EQ(::setns(m_network, CLONE_NEWNET), 0);
            EXPECT_EQ(::setns(m_mounts, CLONE_NEWNS), 0);
        }
        ::close(m_network);
        ::close(m_mounts);
    }
    NetworkNamespace(const NetworkNamespace&) = delete;
    NetworkNamespace& operator=(const NetworkNamespace&) = delete;

    bool isOpen() const {
        return m_isOpen;
    }

    /// The output of a command; a failure of the command is one of the test.
    static std::string run(const std::string& command) {
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen((command + " 2>&1").c_str(), "r"),
                                                         [](FILE*) { return 0; });
        std::string output;
        for (int letter = std::fgetc(pipe.get()); letter != EOF; letter = std::fgetc(pipe.get()))
            output.push_back(static_cast<char>(letter));
        EXPECT_EQ(::pclose(pipe.get()), 0) << command << ": " << output;
        return output;
    }

    /// Sets a setting of this network.
    static void write(const std::string& file, const std::string& value) {
        std::ofstream(file) << value;
    }
    /// Lets everybody have ICMP sockets in this network; a new network grants them to nobody.
    static void grantEchoSockets() {
        write("/proc/sys/net/ipv4/ping_group_range", "0 2147483647");
    }

private:
    int m_network = -1;
    int m_mounts = -1;
    bool m_isOpen = false;
};

}  // namespace velmora
