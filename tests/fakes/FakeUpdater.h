#pragma once

#include "platform/Updater.h"

namespace velmora {

class FakeUpdater final : public Updater {
public:
    void checkForUpdates() override { ++checkCount; }
    bool automaticallyChecksForUpdates() const override { return checksAutomatically; }
    void setAutomaticallyChecksForUpdates(bool checks) override { checksAutomatically = checks; }

    int checkCount = 0;
    bool checksAutomatically = false;
};

}  // namespace velmora
