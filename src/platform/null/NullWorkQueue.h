#pragma once

#include "platform/WorkQueue.h"

namespace velmora {

/// A system without workers: what only workers could find out stays absent.
class NullWorkQueue final : public WorkQueue {
public:
    void async(std::function<void()>) override {}
};

}  // namespace velmora
