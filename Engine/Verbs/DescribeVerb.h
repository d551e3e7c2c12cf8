// Tells a moment or a stretch of a film without drawing it.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixAgent/Document/SceneNames.h"

#include <optional>
#include <string>

namespace tavix::engine {

class DescribeVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    MomentWish wish_;
    std::optional<double> fromSec_, toSec_;
    bool printsSchema_ = false;
};

}   // namespace tavix::engine
