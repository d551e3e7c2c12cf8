#include "TavixPlatform/System/ManualTime.h"

#include <algorithm>

namespace tavix::system {

namespace {

constexpr double sameMomentSec = 1e-9;   // sums of delays are not exact

}   // namespace

ManualTime::Entries::iterator ManualTime::next() {
    const auto start = [](const Entry& entry) { return std::max(entry.atSec, entry.on->busyUntilSec_); };
    auto earliest = entries_.begin();
    for (auto entry = entries_.begin(); entry != entries_.end(); ++entry)
        if (start(entry->second) < start(earliest->second) - sameMomentSec) earliest = entry;
    return earliest;
}

void ManualTime::run(Entries::iterator entry) {
    const Entry job = std::move(entry->second);
    entries_.erase(entry);
    if (job.isTimer && job.alive.expired()) return;
    nowSec_ = std::max({nowSec_, job.atSec, job.on->busyUntilSec_});
    spentSec_ = 0;
    job.run();
    job.on->busyUntilSec_ = nowSec();
    spentSec_ = 0;
}

void ManualTime::advance(double sec) {
    const double untilSec = nowSec_ + sec;
    for (auto entry = next(); entry != entries_.end(); entry = next()) {
        if (std::max(entry->second.atSec, entry->second.on->busyUntilSec_) > untilSec + sameMomentSec) break;
        run(entry);
    }
    nowSec_ = std::max(nowSec_, untilSec);
}

ManualExecutor::~ManualExecutor() {
    std::erase_if(time_.entries_, [&](const auto& entry) { return entry.second.on == this; });
}

void ManualExecutor::post(Job job) {
    time_.entries_.emplace(
        time_.sequence_++, ManualTime::Entry{time_.nowSec(), this, {}, false, std::move(job)});
}

Timer ManualExecutor::after(double delaySec, Job job) {
    auto handle = std::make_shared<int>();
    time_.entries_.emplace(time_.sequence_++,
        ManualTime::Entry{time_.nowSec() + std::max(delaySec, 0.0), this, handle, true, std::move(job)});
    return Timer(std::move(handle));
}

}   // namespace tavix::system
