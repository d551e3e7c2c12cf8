// Renders one moment of a document to a picture.
#pragma once

#include "Engine/DocumentFile.h"
#include "Engine/Verbs/Verb.h"

#include <optional>
#include <string>

namespace tavix::engine {

class StillVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    double globalSec(const CompositionSpec& spec) const;

    std::string document_;
    std::optional<std::string> output_, scene_;
    std::optional<double> atSec_, localSec_;
};

}   // namespace tavix::engine
