#include "TavixEditor/App/QtMainExecutor.h"

#include <QMetaObject>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace tavix::editor {

void QtMainExecutor::post(system::Job job) {
    QMetaObject::invokeMethod(&context_, std::move(job), Qt::QueuedConnection);
}

system::Timer QtMainExecutor::after(double delaySec, system::Job job) {
    // A job may cancel its own timer, so the timer goes only after the event.
    const std::shared_ptr<QTimer> timer(new QTimer, [](QTimer* done) {
        done->stop();
        done->deleteLater();
    });
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);   // a coarse one may be 5 % late
    QObject::connect(timer.get(), &QTimer::timeout, &context_, std::move(job));
    timer->start(int(std::ceil(std::max(delaySec, 0.0) * 1000)));
    return system::Timer(timer);
}

}   // namespace tavix::editor
