// Writes the texts of a film as captions, or takes captions into it.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixAgent/Exchange/Subtitles.h"

#include <optional>
#include <string>

namespace tavix::engine {

class CaptionsVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    void write(Terminal& terminal) const;
    void take(Terminal& terminal) const;

    std::string document_;
    std::optional<std::string> output_, import_, ifRevision_;
    std::optional<SubtitleForm> form_;
};

}   // namespace tavix::engine
