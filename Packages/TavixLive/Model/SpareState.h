// A copy of the document that waits to be edited. It is made on another executor, so that an edit of a long
// document costs the main one no copy.
#pragma once

#include "TavixLive/Operations/EditState.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixPlatform/System/Executor.h"

#include <memory>

namespace tavix {

// Used on the main executor; both executors outlive it.
class SpareState {
public:
    using StateRef = std::shared_ptr<const EditState>;

    SpareState(system::SerialExecutor& main, system::Executor& elsewhere)
        : main_(main), elsewhere_(elsewhere) {}

    // Has a copy made of what the document is now.
    void prepare(const StateRef& now);
    // One of `now` for its caller alone: the spare where it is ready, otherwise copied here.
    EditState take(const StateRef& now);

private:
    struct Made {
        StateRef of;
        std::shared_ptr<EditState> copy;
    };
    void make();
    void letGo(Made made);   // which takes as long as copying

    system::SerialExecutor& main_;
    system::Executor& elsewhere_;
    StateRef wanted_;
    Made ready_;
    bool isMaking_ = false;
    system::Lifeline lifeline_;
};

}   // namespace tavix
