// Judges a document in every way there is, and mends what is certain.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixCore/Judge/Muting.h"

#include <string>
#include <vector>

namespace tavix::engine {

struct Checks;

class CheckVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    struct Mended;
    Checks checks() const;
    CompositionLint::Told judged(Terminal& terminal) const;
    Mended mend(CompositionLint::Told& told, Terminal& terminal) const;

    std::string document_;
    std::vector<std::string> muted_;
    bool isQuick_ = false, mends_ = false;
};

}   // namespace tavix::engine
