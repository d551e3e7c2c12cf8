// Renders a contact sheet of a reel: the whole film at a glance.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Sheet/SheetPlan.h"

#include <optional>
#include <string>

namespace tavix::engine {

class ReelSheetVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string recording_;
    std::optional<std::string> effects_, output_;
    std::optional<int> columns_, widthPx_;
    SheetWish wish_;
};

}   // namespace tavix::engine
