#include "TavixPlatform/Imaging/StopScope.h"

#include <utility>

namespace tavix::imaging {

namespace {

thread_local const std::stop_token* watched = nullptr;   // of the innermost scope of this thread

}   // namespace

StopScope::StopScope(std::stop_token token) : token_(std::move(token)), before_(watched) {
    if (token_.stop_possible()) watched = &token_;
}

StopScope::~StopScope() { watched = before_; }

std::stop_token StopScope::current() noexcept { return watched ? *watched : std::stop_token(); }

void checkStop() {
    if (watched && watched->stop_requested()) throw WorkStopped();
}

}   // namespace tavix::imaging
