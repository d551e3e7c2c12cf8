// Renders one moment of a document to a picture.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Documents/DocumentFile.h"
#include "TavixAgent/Document/SceneNames.h"

#include <optional>
#include <string>

namespace tavix::engine {

class StillVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    std::string document_;
    std::optional<std::string> output_;
    MomentWish wish_;
    std::optional<int> thumbnailPx_;
};

}   // namespace tavix::engine
