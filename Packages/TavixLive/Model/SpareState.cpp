#include "TavixLive/Model/SpareState.h"

#include <utility>

namespace tavix {

void SpareState::prepare(const StateRef& now) {
    if (wanted_ == now) return;
    letGo(std::exchange(ready_, {}));
    wanted_ = now;
    if (!isMaking_) make();
}

EditState SpareState::take(const StateRef& now) {
    if (ready_.of != now || !ready_.copy) return *now;
    EditState taken = std::move(*ready_.copy);
    ready_ = {};
    wanted_.reset();   // another one of it is made when it is wanted again
    return taken;
}

// One at a time; what is wanted meanwhile is made after it.
void SpareState::make() {
    isMaking_ = true;
    system::runThere(
        elsewhere_, main_,
        [now = wanted_] {
            return Made{now, std::make_shared<EditState>(*now)};
        },
        lifeline_.guard([this](system::Outcome<Made>& outcome) {
            isMaking_ = false;
            if (outcome.hasFailed()) return;   // it is copied where it is needed
            if (outcome.value().of == wanted_) {
                ready_ = std::move(outcome.value());
                return;
            }
            letGo(std::move(outcome.value()));
            if (wanted_) make();
        }));
}

void SpareState::letGo(Made made) {
    if (made.copy) elsewhere_.post([made = std::move(made)]() mutable { made = {}; });
}

}   // namespace tavix
