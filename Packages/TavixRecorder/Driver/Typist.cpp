#include "TavixRecorder/Driver/Typist.h"

#include "TavixCore/Values/TextWords.h"

#include <algorithm>

namespace tavix::recorder {

namespace {

// About 110 words a minute: fast enough not to bore, slow enough to follow.
constexpr double strokeSec = 0.075, unevenness = 0.4, betweenWordsSec = 0.06;

}   // namespace

std::vector<Typist::Stroke> Typist::strokes(std::string_view text, std::optional<double> durationSec) {
    std::vector<Stroke> all;
    double sumSec = 0;
    for (const std::string_view character : KineticMath::characters(text)) {
        const double pauseSec = KineticMath::isWhitespace(character) ? betweenWordsSec : 0;
        all.push_back({character, strokeSec * (1 + random_.next(-unevenness, unevenness)) + pauseSec});
        sumSec += all.back().thenSec;
    }
    if (durationSec && sumSec > 0)
        for (Stroke& stroke : all) stroke.thenSec *= std::max(*durationSec, 0.0) / sumSec;
    return all;
}

}   // namespace tavix::recorder
