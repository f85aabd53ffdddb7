#pragma once

#include "base/Subscription.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace velmora {

/// Calls its subscribers in the order in which they subscribed. A subscriber may subscribe, unsubscribe or
/// fire again from inside its call: one that left is not called any more, one that came is called from the
/// next firing on. Firing does not allocate. One thread only.
template <typename... Arguments>
class Signal {
public:
    using Handler = std::function<void(const Arguments&...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    [[nodiscard]] Subscription subscribe(Handler handler) {
        auto entry = std::make_shared<Entry>(Entry{std::move(handler), true});
        m_list->entries.push_back(entry);
        return Subscription([list = std::weak_ptr<List>(m_list), weakEntry = std::weak_ptr<Entry>(entry)] {
            const auto entryToEnd = weakEntry.lock();
            if (!entryToEnd) return;
            entryToEnd->live = false;
            if (const auto owner = list.lock(); owner && owner->firing == 0) owner->sweep();
        });
    }

    void fire(const Arguments&... arguments) {
        const std::shared_ptr<List> list = m_list;  // A handler may destroy the signal.
        ++list->firing;
        const std::size_t count = list->entries.size();
        for (std::size_t index = 0; index < count; ++index) {
            const std::shared_ptr<Entry> entry = list->entries[index];
            if (entry->live) entry->handler(arguments...);
        }
        if (--list->firing == 0) list->sweep();
    }

    std::size_t subscriberCount() const {
        return static_cast<std::size_t>(std::count_if(m_list->entries.begin(), m_list->entries.end(),
                                                      [](const auto& entry) { return entry->live; }));
    }

private:
    struct Entry {
        Handler handler;
        bool live;
    };
    struct List {
        std::vector<std::shared_ptr<Entry>> entries;
        int firing = 0;
        void sweep() {
            std::erase_if(entries, [](const std::shared_ptr<Entry>& entry) { return !entry->live; });
        }
    };

    std::shared_ptr<List> m_list = std::make_shared<List>();
};

}  // namespace velmora
