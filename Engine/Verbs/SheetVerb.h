// Renders a contact sheet: a whole film at a glance.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/Sheet/SheetLayout.h"
#include "Engine/Sheet/SheetPlan.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

class SheetVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::vector<SheetMoment> moments(const CompositionSpec& spec) const;

    std::string document_;
    std::optional<std::string> output_;
    std::optional<int> columns_, widthPx_;
    SheetWish wish_;
    bool isAnnotated_ = false;
};

}   // namespace tavix::engine
