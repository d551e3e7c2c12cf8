// The pictures of a running film, asked for on the main executor and drawn one after another on another. The
// source behind it can be changed while it runs.
#pragma once

#include "TavixLive/Stage/FrameSource.h"
#include "TavixPlatform/System/Executor.h"
#include "TavixRender/Assets/RenderLog.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace tavix {

// Used on the main executor; what waits to be drawn is let go when it is gone, and never delivered. Both
// executors outlive it.
class RenderChain {
public:
    // What the picture is of, and what it took. On the main executor, in the order of the requests.
    using Deliver = std::function<void(const StagePicture& picture, const FrameSource::Drawn& drawn)>;

    // The log is told of every frame of a source with devices in space, and of others that take 41 ms or
    // more.
    RenderChain(
        system::SerialExecutor& render, system::Executor& main, FrameSourceRef source, RenderLog scrubLog);
    ~RenderChain();
    RenderChain(const RenderChain&) = delete;
    RenderChain& operator=(const RenderChain&) = delete;

    // Of what is drawn from now on; a picture that is being drawn is still of the old one.
    void setFrameSource(FrameSourceRef source);
    enum class Detail { full, asTimeAllows };

    // Every request is answered. While scrubbing at most one drawing waits: requests that come meanwhile are
    // all answered with a picture of the newest time among them.
    // A request whose `wantedBy` has expired is neither drawn nor answered.
    // One of a row of pictures, such as a film that plays, may be rough where full ones take too long.
    void request(double atSec, Deliver deliver, std::optional<std::weak_ptr<void>> wantedBy = {},
        Detail detail = Detail::full);
    // Out of turn with nothing: drawn as it stands now, as finely as time allows, for who shows a drag.
    void requestLive(double atSec, Deliver deliver);
    // Scrubbing has rough pictures, soon.
    void setScrubQuality(bool isOn);
    // Told after each delivery.
    void setOnFrameDelivered(Deliver told) { onDelivered_ = std::move(told); }

    bool isIdle() const { return *openRequests_ == 0; }
    // Draws a frame into the memory of the source when it is not there and there is room.
    void fillStore(double atSec, std::function<void(FrameSource::Filled filled)> then);
    // Sets up a part of what is shown after that time; `then` is told whether there may be more.
    void prepare(double nearSec, std::function<void(bool hasMore)> then);
    // In turn, the source gives up what only another edit would ask for.
    void rest();
    // Which of the times are in memory.
    void findStored(std::vector<double> atSec, std::function<void(std::vector<bool>)> then);

private:
    struct Shared;
    struct Order;
    void drawOn(std::shared_ptr<Order> order);
    template <class Work, class Then> void ask(Work work, Then then);
    static void drawNow(const std::shared_ptr<Shared>& shared, Order& order);
    static void log(const Shared& shared, const Order& order, bool hasDevicesInSpace);

    system::SerialExecutor& render_;
    system::Executor& main_;
    std::shared_ptr<Shared> shared_;
    std::shared_ptr<Order> queued_;   // the one that waits while scrubbing
    std::shared_ptr<int> openRequests_ = std::make_shared<int>(0);
    Deliver onDelivered_;
};

}   // namespace tavix
