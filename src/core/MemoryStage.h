#pragma once

#include "base/Date.h"
#include "samplers/Samplers.h"

namespace velmora {

/// Makes the memory's record: figures, series, heaviest processes.
class MemoryStage {
public:
    MemoryStage(MemorySampling& memory, ProcessFootprintSampling& processes)
        : m_memory(memory), m_processes(processes) {}

    void sample(Date now, double elapsed, MemoryStats& stats);

private:
    void takeProcesses(MemoryStats& stats);

    MemorySampling& m_memory;
    ProcessFootprintSampling& m_processes;
    Date m_longSampledAt = Date::distantPast();
};

}  // namespace velmora
