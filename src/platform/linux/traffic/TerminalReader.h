#pragma once

#include "base/Subscription.h"
#include "platform/RunLoop.h"
#include "platform/ToolLauncher.h"
#include "platform/linux/files/FileDescriptor.h"

#include <string>

namespace velmora {

/// The read side of a pseudo-terminal. Its handler runs on the main thread. A character of several bytes that
/// a read has cut in two is held back until the rest of it is there, as the terminal cuts where its buffer
/// ends.
class TerminalReader final : public TerminalOutput {
public:
    TerminalReader(FileDescriptor master, RunLoop& runLoop);

    void setReadabilityHandler(Handler handler) override;
    void close() override;

private:
    void read();
    void end();

    FileDescriptor m_master;
    RunLoop& m_runLoop;
    Handler m_handler;
    std::string m_pending;
    Subscription m_watch;
};

/// Bytes at the end of the text that begin a character which the text does not complete; 0 to 3.
std::size_t unfinishedCharacterLength(std::string_view text);

}  // namespace velmora
