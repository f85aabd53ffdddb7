#pragma once

#include "base/LifeGuard.h"
#include "base/Subscription.h"
#include "platform/RunLoop.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace velmora {

/// How many processes a panel lists.
inline constexpr int kListedProcesses = 5;

/// A list that is asked for at once and every two seconds from then on, one question at a time: a tick that
/// comes while an answer is awaited asks nothing. An answer that comes after this object is gone does
/// nothing.
template <typename Row>
class RefreshedList {
public:
    using Answer = std::function<void(std::vector<Row> rows)>;
    /// Asks, and answers later; or drops the answer, and is called again at the next tick.
    using Question = std::function<void(Answer answer)>;

    static constexpr double kPeriod = 2;

    /// `arrived` is called after each answer.
    RefreshedList(RunLoop& runLoop, Question question, std::function<void()> arrived)
        : m_question(std::move(question)),
          m_arrived(std::move(arrived)),
          m_refresh(runLoop.every(kPeriod, [this] { ask(); })) {
        ask();
    }
    RefreshedList(const RefreshedList&) = delete;
    RefreshedList& operator=(const RefreshedList&) = delete;

    /// Empty until the first answer.
    const std::vector<Row>& rows() const { return m_rows; }

private:
    void ask() {
        if (!m_awaited.expired()) return;
        auto awaited = std::make_shared<const bool>(true);
        m_awaited = awaited;
        m_question(m_life.wrap([this, awaited = std::move(awaited)](std::vector<Row> rows) {
            m_awaited.reset();
            m_rows = std::move(rows);
            m_arrived();
        }));
    }

    Question m_question;
    std::function<void()> m_arrived;
    std::vector<Row> m_rows;
    std::weak_ptr<const bool> m_awaited;  ///< Lives as long as somebody may still answer.
    LifeGuard m_life;
    Subscription m_refresh;
};

}  // namespace velmora
