#include "TavixLive/Playback/RenderChain.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace tavix {

namespace {

// A little more than a frame at 25 a second.
constexpr double toldSec = 0.041;

// Pictures that take longer, two thirds of their time, twice in a row, are drawn roughly until they take no
// time to speak of.
constexpr double hurriedSec = 0.022, leisurelySec = 0.01;

// Whether a row of pictures has to hurry.
class Pace {
public:
    bool isHurried() const { return isHurried_; }
    void note(const FrameSource::Drawn& drawn) {
        if (drawn.isStored) return;
        const double sec = drawn.buildSec + drawn.paintSec;
        slow_ = sec > hurriedSec ? slow_ + 1 : 0;
        isHurried_ = isHurried_ ? sec > leisurelySec : slow_ > 1;
    }

private:
    bool isHurried_ = false;
    int slow_ = 0;
};

long inMs(double sec) { return std::lround(sec * 1000); }

}   // namespace

// What both executors reach. The lock is held for the reading and writing of these fields alone.
struct RenderChain::Shared {
    std::mutex mutex;
    FrameSourceRef source;
    bool isScrubbing = false;
    RenderLog scrubLog;   // told on the render executor
    Pace pace;            // used there
};

// One picture to draw, for all who asked for it. It is written on the main executor until it is drawn (under
// the lock of the shared state), and read there again afterwards.
struct RenderChain::Order {
    struct Asker {
        Deliver deliver;
        std::optional<std::weak_ptr<void>> wantedBy;
        bool isWaiting() const { return !wantedBy || !wantedBy->expired(); }
    };
    bool isWanted() const { return std::ranges::any_of(askers, &Asker::isWaiting); }

    double atSec = 0;
    std::vector<Asker> askers;
    Detail detail = Detail::full;
    bool isLive = false, isTaken = false;
    FrameSource::Drawn drawn;
};

RenderChain::RenderChain(
    system::SerialExecutor& render, system::Executor& main, FrameSourceRef source, RenderLog scrubLog)
    : render_(render), main_(main), shared_(std::make_shared<Shared>()) {
    shared_->source = std::move(source);
    shared_->scrubLog = std::move(scrubLog);
}

// A source goes where it is used: what it holds takes time to let go.
RenderChain::~RenderChain() { setFrameSource(nullptr); }

void RenderChain::setFrameSource(FrameSourceRef source) {
    {
        const std::lock_guard lock(shared_->mutex);
        std::swap(shared_->source, source);
    }
    render_.post([old = std::move(source)]() mutable { old.reset(); });
}

void RenderChain::setScrubQuality(bool isOn) {
    const std::lock_guard lock(shared_->mutex);
    shared_->isScrubbing = isOn;
}

void RenderChain::request(
    double atSec, Deliver deliver, std::optional<std::weak_ptr<void>> wantedBy, Detail detail) {
    bool isScrubbing = false;
    {
        const std::lock_guard lock(shared_->mutex);
        isScrubbing = shared_->isScrubbing;
        if (isScrubbing && queued_ && !queued_->isTaken) {
            queued_->atSec = atSec;
            queued_->askers.push_back({std::move(deliver), std::move(wantedBy)});
            return;
        }
    }
    auto order = std::make_shared<Order>();
    order->atSec = atSec;
    order->askers.push_back({std::move(deliver), std::move(wantedBy)});
    order->detail = detail;
    queued_ = isScrubbing ? order : nullptr;
    drawOn(std::move(order));
}

void RenderChain::requestLive(double atSec, Deliver deliver) {
    auto order = std::make_shared<Order>();
    order->atSec = atSec;
    order->askers.push_back({std::move(deliver), {}});
    order->isLive = true;
    order->detail = Detail::asTimeAllows;
    drawOn(std::move(order));
}

void RenderChain::drawOn(std::shared_ptr<Order> order) {
    ++*openRequests_;
    const auto open = std::weak_ptr<int>(openRequests_);   // as long as this lives
    render_.post(
        [this, open, shared = std::weak_ptr<Shared>(shared_), &main = main_, order = std::move(order)] {
            const auto alive = shared.lock();
            if (!alive) return;
            drawNow(alive, *order);
            main.post([this, open, order] {
                if (const auto count = open.lock()) --*count;
                if (open.expired() || !order->drawn.pixels) return;
                const StagePicture picture{order->drawn.pixels, order->atSec};
                // Any of them may end this.
                for (const Order::Asker& asker : order->askers)
                    if (!open.expired() && asker.deliver && asker.isWaiting())
                        asker.deliver(picture, order->drawn);
                if (!open.expired() && onDelivered_) onDelivered_(picture, order->drawn);
            });
        });
}

void RenderChain::drawNow(const std::shared_ptr<Shared>& shared, Order& order) {
    FrameSourceRef source;
    auto quality = FrameQuality::full;
    {
        const std::lock_guard lock(shared->mutex);
        order.isTaken = true;
        if (!order.isWanted()) return;
        source = shared->source;
        if (shared->isScrubbing && !order.isLive) quality = FrameQuality::scrub;
    }
    if (!source) return;
    const bool isInARow = order.detail == Detail::asTimeAllows && quality == FrameQuality::full;
    if (isInARow && shared->pace.isHurried()) quality = FrameQuality::rough;
    order.drawn = source->draw(order.atSec, quality);
    if (isInARow) shared->pace.note(order.drawn);
    if (shared->scrubLog) log(*shared, order, source->hasDevicesInSpace());
}

void RenderChain::log(const Shared& shared, const Order& order, bool hasDevicesInSpace) {
    char line[128];
    const auto tell = [&](auto... numbers) {
        std::snprintf(line, sizeof line, numbers...);
        shared.scrubLog(Finding::progress(RenderCode::scrub, line));
    };
    const FrameSource::Drawn& drawn = order.drawn;
    if (hasDevicesInSpace)
        tell("frame3D t=%.2f build=%ldms coalesced=%ld", order.atSec, inMs(drawn.buildSec),
            long(order.askers.size()));
    else if (drawn.buildSec >= toldSec)
        tell("frame2D t=%.2f build=%ldms", order.atSec, inMs(drawn.buildSec));
    if (!hasDevicesInSpace && drawn.paintSec >= toldSec)
        tell("paint2D t=%.2f paint=%ldms", order.atSec, inMs(drawn.paintSec));
}

// The source, in turn with the pictures; it may be null.
template <class Work, class Then> void RenderChain::ask(Work work, Then then) {
    render_.post([shared = std::weak_ptr<Shared>(shared_), &main = main_, work = std::move(work),
                     then = std::move(then)] {
        const auto alive = shared.lock();
        if (!alive) return;
        FrameSourceRef source;
        {
            const std::lock_guard lock(alive->mutex);
            source = alive->source;
        }
        main.post([then, answer = work(source)] { then(answer); });
    });
}

void RenderChain::fillStore(double atSec, std::function<void(FrameSource::Filled)> then) {
    using enum FrameSource::Filled;
    ask(
        [atSec](const FrameSourceRef& source) {
            if (!source) return refused;
            if (source->isStored(atSec)) return wasThere;
            if (!source->hasRoom()) return hasNoRoom;
            return source->draw(atSec, FrameQuality::full).isKept ? drawn : refused;
        },
        std::move(then));
}

void RenderChain::prepare(double nearSec, std::function<void(bool)> then) {
    ask([nearSec](const FrameSourceRef& source) { return source && source->prepare(nearSec); },
        std::move(then));
}

void RenderChain::rest() {
    ask(
        [](const FrameSourceRef& source) {
            if (source) source->rest();
            return true;
        },
        [](bool) {});
}

void RenderChain::findStored(std::vector<double> atSec, std::function<void(std::vector<bool>)> then) {
    ask(
        [atSec = std::move(atSec)](const FrameSourceRef& source) {
            std::vector<bool> found;
            for (const double sec : atSec) found.push_back(source && source->isStored(sec));
            return found;
        },
        std::move(then));
}

}   // namespace tavix
