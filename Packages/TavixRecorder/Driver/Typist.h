// Types like somebody who knows what to write: quick within words, slower between them.
#pragma once

#include "TavixCore/Values/SeededRandom.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::recorder {

class Typist {
public:
    struct Stroke {
        std::string_view character;
        double thenSec = 0;   // until the next one
    };

    explicit Typist(std::string_view seed) : random_(seed) {}

    // Each character as a reader sees it, which live as long as the text. With a duration all of them take
    // that long.
    std::vector<Stroke> strokes(std::string_view text, std::optional<double> durationSec);

private:
    SeededRandom random_;
};

}   // namespace tavix::recorder
