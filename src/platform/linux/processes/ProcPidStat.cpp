#include "platform/linux/processes/ProcPidStat.h"

#include "base/ParseNumber.h"

namespace velmora {
namespace {

/// Walks over the numbered fields behind the name; the first is number 3.
class NumberedFields {
public:
    explicit NumberedFields(std::string_view text) : m_rest(text) {}

    template <typename Number>
    Number number(int field) {
        std::string_view word;
        for (; m_next <= field; ++m_next) word = nextField(m_rest);
        const auto value = parseNumber<Number>(word);
        if (!value) m_isGood = false;
        return value.value_or(0);
    }
    /// Times of children are signed in the kernel's text.
    std::uint64_t positive(int field) {
        const auto value = number<std::int64_t>(field);
        return value > 0 ? static_cast<std::uint64_t>(value) : 0;
    }
    bool isGood() const { return m_isGood; }

private:
    std::string_view m_rest;
    int m_next = 3;
    bool m_isGood = true;
};

}  // namespace

std::optional<ProcPidStat> parseProcPidStat(std::string_view text) {
    const auto open = text.find('(');
    const auto close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
        return std::nullopt;
    ProcPidStat stat;
    stat.comm = text.substr(open + 1, close - open - 1);
    // The newline at the end is no part of the last field.
    std::string_view rest = text.substr(close + 1);
    NumberedFields fields(nextLine(rest));
    stat.parent = fields.number<std::int32_t>(4);
    stat.flags = fields.number<std::uint32_t>(9);
    stat.childFaults = fields.number<std::uint64_t>(11);
    stat.childFaults += fields.number<std::uint64_t>(13);
    stat.cpuTicks = fields.number<std::uint64_t>(14);
    stat.cpuTicks += fields.number<std::uint64_t>(15);
    stat.childTicks = fields.positive(16);
    stat.childTicks += fields.positive(17);
    stat.startTicks = fields.number<std::uint64_t>(22);
    stat.residentPages = fields.positive(24);
    if (!fields.isGood()) return std::nullopt;
    return stat;
}

}  // namespace velmora
