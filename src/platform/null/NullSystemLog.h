#pragma once

#include "platform/SystemLog.h"

namespace velmora {

/// Nobody reads the lines.
class NullSystemLog final : public SystemLog {
public:
    void write(std::string_view) override {}
};

}  // namespace velmora
