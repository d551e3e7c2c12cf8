// Writes a document to start from: a small one, or a template.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <optional>
#include <string>

namespace tavix::engine {

class NewVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    void list(Terminal& terminal) const;

    std::string bundle_;
    std::optional<std::string> template_;
    std::optional<imaging::Size> size_;
    bool isList_ = false;
};

}   // namespace tavix::engine
