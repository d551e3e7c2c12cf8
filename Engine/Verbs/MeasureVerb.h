// Rehearses a document on this machine: what a live preview of it costs.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <optional>
#include <string>

namespace tavix::engine {

class MeasureVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    std::optional<imaging::Size> stage_;
    std::optional<double> playSec_;
};

}   // namespace tavix::engine
