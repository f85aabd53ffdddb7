#include "platform/qt/QtRunLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QMetaObject>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace velmora {
namespace {

/// A task that may be cancelled at any time, also from inside its own run.
class CancellableTask {
public:
    explicit CancellableTask(std::function<void()> task) : m_task(std::move(task)) {}

    bool isCancelled() const { return m_isCancelled; }
    void run() {
        if (m_isCancelled) return;
        ++m_running;
        m_task();
        --m_running;
        releaseIfDone();
    }
    void cancel() {
        m_isCancelled = true;
        releaseIfDone();
    }

private:
    /// What the task holds goes as soon as nobody runs it.
    void releaseIfDone() {
        if (m_isCancelled && m_running == 0) std::exchange(m_task, nullptr);
    }

    std::function<void()> m_task;
    int m_running = 0;
    bool m_isCancelled = false;
};

int milliseconds(double seconds, int shortest) {
    const double rounded = std::round(seconds * 1000);
    if (!(rounded > shortest)) return shortest;
    return static_cast<int>(std::min<double>(rounded, std::numeric_limits<int>::max()));
}

/// Ends a timer or notifier, which may be what is calling us: it goes once control is back in the event loop.
template <typename Source>
Subscription ending(std::shared_ptr<CancellableTask> task, QPointer<Source> source, void (*stop)(Source&)) {
    return Subscription([task = std::move(task), source = std::move(source), stop] {
        task->cancel();
        if (!source) return;
        stop(*source);
        source->deleteLater();
    });
}

enum class Repetition { single, repeated };

Subscription startTimer(QObject& context, int periodMs, Repetition repetition, std::function<void()> work) {
    const auto task = std::make_shared<CancellableTask>(std::move(work));
    QPointer<QTimer> timer = new QTimer(&context);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(repetition == Repetition::single);
    timer->setInterval(periodMs);
    QObject::connect(timer.data(), &QTimer::timeout, &context, [task, timer, repetition] {
        const auto keptAlive = task;  // NOLINT(performance-unnecessary-copy-initialization): see its name.
        if (repetition == Repetition::single) timer->deleteLater();
        keptAlive->run();
    });
    if (QAbstractEventDispatcher::instance() != nullptr) {
        timer->start();
    } else {
        // Timers cannot start before the application object is there. The time until then counts.
        QElapsedTimer waiting;
        waiting.start();
        QMetaObject::invokeMethod(
            timer.data(),
            [timer, task, waiting, repetition, periodMs] {
                if (task->isCancelled()) return;
                if (repetition == Repetition::single) {
                    timer->setInterval(static_cast<int>(std::max<qint64>(periodMs - waiting.elapsed(), 0)));
                }
                timer->start();
            },
            Qt::QueuedConnection);
    }
    return ending<QTimer>(task, timer, [](QTimer& stopped) { stopped.stop(); });
}

QSocketNotifier::Type typeOf(RunLoop::Readiness readiness) {
    switch (readiness) {
        case RunLoop::Readiness::readable:
            return QSocketNotifier::Read;
        case RunLoop::Readiness::writable:
            return QSocketNotifier::Write;
        case RunLoop::Readiness::exceptional:
            return QSocketNotifier::Exception;
    }
    return QSocketNotifier::Read;
}

}  // namespace

void QtRunLoop::PostedTasks::add(std::function<void()> task) {
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool QtRunLoop::PostedTasks::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    std::function<void()> task;
    {
        const std::lock_guard lock(m_mutex);
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
    }
    task();
    return true;
}

void QtRunLoop::post(std::function<void()> task) {
    m_posted.add(std::move(task));
}

Subscription QtRunLoop::after(double seconds, std::function<void()> task) {
    return startTimer(m_context, milliseconds(seconds, 0), Repetition::single, std::move(task));
}

Subscription QtRunLoop::every(double seconds, std::function<void()> task) {
    // A period of nothing would leave the loop no time for anything else.
    constexpr int kShortestPeriodMs = 1;
    return startTimer(m_context, milliseconds(seconds, kShortestPeriodMs), Repetition::repeated,
                      std::move(task));
}

Subscription QtRunLoop::watch(int descriptor, Readiness readiness, std::function<void()> work) {
    const auto task = std::make_shared<CancellableTask>(std::move(work));
    QPointer<QSocketNotifier> notifier = new QSocketNotifier(typeOf(readiness), &m_context);
    notifier->setSocket(descriptor);
    QObject::connect(notifier.data(), &QSocketNotifier::activated, &m_context, [task] {
        const auto keptAlive = task;  // NOLINT(performance-unnecessary-copy-initialization): see its name.
        keptAlive->run();
    });
    if (QAbstractEventDispatcher::instance() != nullptr) {
        notifier->setEnabled(true);
    } else {
        // Nor can a notifier be enabled before the application object is there.
        QMetaObject::invokeMethod(
            notifier.data(), [notifier, task] { notifier->setEnabled(!task->isCancelled()); },
            Qt::QueuedConnection);
    }
    return ending<QSocketNotifier>(task, notifier,
                                   [](QSocketNotifier& stopped) { stopped.setEnabled(false); });
}

}  // namespace velmora
