#include "nettop/ParentWatch.h"

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace velmora {
namespace {

std::optional<ParentMark> markOfEnvironment() {
    const char* const text = std::getenv(std::string(ParentMark::kVariable).c_str());
    return text != nullptr ? ParentMark::parse(text) : std::nullopt;
}

}  // namespace

ParentWatch::ParentWatch() : m_mark(markOfEnvironment()), m_parent(::getppid()) {
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}

bool ParentWatch::isAlive() const {
    const pid_t parent = ::getppid();
    return parent == m_parent && (!m_mark || m_mark->pid == parent);
}

}  // namespace velmora
