// Values that tell who watches them when they really change: the whole link between the editor's models and
// any view. No Qt, no macros, no code generator. Everything here belongs to the main thread.
//
//     Observable<double> playheadSec{0};
//     Connection c = watch([&] { moveTheLine(playheadSec()); }, playheadSec);   // ends with `c`
//     Batch together;                       // until the end of the scope nobody is told,
//     playheadSec = 3; isPlaying = true;    // then each watcher once, however many of its values changed
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tavix {

namespace observing {

struct Watcher {
    std::function<void()> tell;
    bool isEnded = false, isWaiting = false;
};

// Watchers that wait for the end of the outermost batch. One list: models and views share the main thread.
struct Pending {
    int depth = 0;
    std::vector<std::shared_ptr<Watcher>> watchers;
    static Pending& ofMainThread() {
        static Pending pending;
        return pending;
    }
};

}   // namespace observing

// Keeps a watcher alive. Leaving its scope ends the watching, also from inside a notification.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    explicit Connection(std::shared_ptr<observing::Watcher> watcher) : watcher_(std::move(watcher)) {}
    Connection(Connection&&) noexcept = default;
    Connection& operator=(Connection&& other) noexcept {
        end();
        watcher_ = std::move(other.watcher_);
        return *this;
    }
    ~Connection() { end(); }
    void end() {
        if (watcher_) watcher_->isEnded = true;
        watcher_.reset();
    }

private:
    std::shared_ptr<observing::Watcher> watcher_;
};

// What a view holds: it ends together with the view, before the view's base class goes.
using Connections = std::vector<Connection>;

class Batch {
public:
    Batch() { ++observing::Pending::ofMainThread().depth; }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    ~Batch() {
        auto& pending = observing::Pending::ofMainThread();
        if (pending.depth > 1) {
            --pending.depth;
            return;
        }
        // What watchers change in turn waits for the next round, so nobody sees half of a change.
        while (!pending.watchers.empty()) {
            const auto round = std::exchange(pending.watchers, {});
            for (const auto& watcher : round) watcher->isWaiting = false;
            for (const auto& watcher : round)
                if (!watcher->isEnded) watcher->tell();
        }
        --pending.depth;
    }
};

class Source {
public:
    Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    void attach(std::weak_ptr<observing::Watcher> watcher) const { watchers_.push_back(std::move(watcher)); }

protected:
    void changed() const {
        const Batch batch;
        auto& pending = observing::Pending::ofMainThread();
        std::erase_if(watchers_, [](const auto& watcher) { return watcher.expired(); });
        for (const auto& weak : watchers_)
            if (const auto watcher = weak.lock(); watcher && !watcher->isWaiting) {
                watcher->isWaiting = true;
                pending.watchers.push_back(watcher);
            }
    }

private:
    mutable std::vector<std::weak_ptr<observing::Watcher>> watchers_;
};

template <class T> class Observable : public Source {
public:
    Observable() = default;
    explicit Observable(T value) : value_(std::move(value)) {}
    const T& operator()() const { return value_; }
    Observable& operator=(T value) {
        if (value == value_) return *this;   // equal: nobody is told
        value_ = std::move(value);
        changed();
        return *this;
    }

private:
    T value_{};
};

// The same of a value that is dear to copy: whoever keeps it, or takes it to another thread, shares it.
template <class T> class SharedObservable : public Source {
public:
    const T& operator()() const { return *value_; }
    const std::shared_ptr<const T>& shared() const { return value_; }
    SharedObservable& operator=(T value) {
        if (!(value == *value_)) become(std::make_shared<const T>(std::move(value)));
        return *this;
    }
    SharedObservable& operator=(std::shared_ptr<const T> value) {
        if (value != value_ && !(*value == *value_)) become(std::move(value));
        return *this;
    }

    // One that is known to be another, which need not be compared.
    void become(std::shared_ptr<const T> value) {
        value_ = std::move(value);
        changed();
    }

private:
    std::shared_ptr<const T> value_ = std::make_shared<const T>();
};

// Calls `tell` after any of the sources changed.
template <class... Sources> Connection watch(std::function<void()> tell, const Sources&... sources) {
    auto watcher = std::make_shared<observing::Watcher>(observing::Watcher{std::move(tell)});
    (sources.attach(watcher), ...);
    return Connection(std::move(watcher));
}

// The same, and once at the start: for a view that shows a value.
template <class... Sources> Connection show(std::function<void()> tell, const Sources&... sources) {
    tell();
    return watch(std::move(tell), sources...);
}

}   // namespace tavix
