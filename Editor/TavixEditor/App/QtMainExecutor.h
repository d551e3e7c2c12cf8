// The Qt event loop as the main executor. Lives as long as the application.
#pragma once

#include "TavixPlatform/System/Executor.h"

#include <QElapsedTimer>
#include <QObject>

namespace tavix::editor {

class QtMainExecutor final : public system::SerialExecutor {
public:
    QtMainExecutor() { clock_.start(); }

    void post(system::Job job) override;
    system::Timer after(double delaySec, system::Job job) override;
    double nowSec() const override { return double(clock_.nsecsElapsed()) * 1e-9; }

private:
    QObject context_;   // jobs die with it
    QElapsedTimer clock_;
};

}   // namespace tavix::editor
