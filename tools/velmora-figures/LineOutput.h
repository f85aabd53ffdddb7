#pragma once

#include <string_view>

namespace velmora {

/// Writes whole lines to a descriptor without a buffer of its own. A reader that reads slowly holds the
/// writer up, but not the signals that end it.
class LineOutput {
public:
    enum class Outcome {
        written,
        closed,       ///< Nobody reads any more.
        interrupted,  ///< A signal came while the reader kept the writer waiting.
        failed,
    };

    /// `signals` becomes readable when a signal has come.
    LineOutput(int descriptor, int signals) : m_descriptor(descriptor), m_signals(signals) {}

    /// `line` has its newline.
    Outcome write(std::string_view line);

private:
    int m_descriptor;
    int m_signals;
};

}  // namespace velmora
