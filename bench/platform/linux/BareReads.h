#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {

/// What the kernel alone takes for files that are read again and again: each is opened once, and read at its
/// start into a buffer that is reused. The floor under everything that lives on these files.
class BareReads {
public:
    explicit BareReads(std::initializer_list<const char*> paths) : m_buffer(65536) {
        for (const char* path : paths) add(path);
    }
    BareReads(const BareReads&) = delete;
    BareReads& operator=(const BareReads&) = delete;
    ~BareReads() {
        for (const int descriptor : m_descriptors) ::close(descriptor);
    }

    /// The sizes of compressed swap: one small file per device.
    void addZramDevices() {
        for (int number = 0; add(("/sys/block/zram" + std::to_string(number) + "/mm_stat").c_str());
             ++number) {
        }
    }

    void read() {
        for (const int descriptor : m_descriptors) {
            const ssize_t length = ::pread(descriptor, m_buffer.data(), m_buffer.size(), 0);
            benchmark::DoNotOptimize(length);
        }
        benchmark::ClobberMemory();
    }

private:
    bool add(const char* path) {
        const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
        if (descriptor >= 0) m_descriptors.push_back(descriptor);
        return descriptor >= 0;
    }

    std::vector<char> m_buffer;
    std::vector<int> m_descriptors;
};

}  // namespace velmora
