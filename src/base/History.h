#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace velmora {

/// A capped series: `append` adds at the end and drops from the front past the cap. The elements lie in one
/// block inside the value, oldest first, so a record of histories copies without an allocation and a reader
/// sees a plain span. Elements that own storage keep it when they are overwritten.
template <typename T, std::size_t Cap>
class History {
public:
    static constexpr std::size_t capacity() { return Cap; }

    void append(const T& value) {
        if (m_size == Cap) {
            std::rotate(m_elements.begin(), m_elements.begin() + 1, m_elements.end());
            m_elements.back() = value;
        } else {
            m_elements[m_size++] = value;
        }
    }
    /// Forgets the elements; storage that they own is kept for the next ones.
    void clear() { m_size = 0; }

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    const T& operator[](std::size_t index) const { return m_elements[index]; }
    const T& front() const { return m_elements[0]; }
    const T& back() const { return m_elements[m_size - 1]; }
    const T* begin() const { return m_elements.data(); }
    const T* end() const { return m_elements.data() + m_size; }
    std::span<const T> values() const { return {m_elements.data(), m_size}; }

    friend bool operator==(const History& left, const History& right) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end());
    }

private:
    std::array<T, Cap> m_elements{};
    std::size_t m_size = 0;
};

}  // namespace velmora
