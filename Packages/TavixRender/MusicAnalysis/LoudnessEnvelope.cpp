#include "TavixRender/MusicAnalysis/LoudnessEnvelope.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tavix {

namespace {

constexpr std::size_t compared = 20;     // hops on either side of a jump: two seconds
constexpr std::size_t clusterGap = 11;   // hops between two jumps that count as two
constexpr double quietestDb = -80, dropDb = 6, boundaryDb = 3;

// The middle of a window: hops of 0.1 s, windows of 0.5 s.
double secAt(std::size_t hop) { return static_cast<double>(hop) * 0.1 + 0.25; }

std::vector<double> windowsDb(std::span<const float> samples, double sampleRateHz) {
    const auto window = static_cast<std::size_t>(sampleRateHz * 0.5);
    const auto hop = static_cast<std::size_t>(sampleRateHz * 0.1);
    std::vector<double> result;
    for (std::size_t at = 0; at + window <= samples.size(); at += hop) {
        double squares = 0;
        for (const float sample : samples.subspan(at, window))
            squares += static_cast<double>(sample) * sample;
        const double rms = std::sqrt(squares / static_cast<double>(window));
        result.push_back(rms > 0 ? std::max(20 * std::log10(rms), quietestDb) : quietestDb);
    }
    return result;
}

class Jumps {
public:
    explicit Jumps(const std::vector<double>& levelsDb)
        : sums_(levelsDb.size() + 1, 0), stepsDb_(levelsDb.size(), 0) {
        std::partial_sum(levelsDb.begin(), levelsDb.end(), sums_.begin() + 1);
        for (std::size_t i = compared; i + compared <= levelsDb.size(); ++i)
            stepsDb_[i] = meanDb(i, i + compared) - meanDb(i - compared, i);
    }

    double meanDb(std::size_t from, std::size_t to) const {
        return (sums_[to] - sums_[from]) / static_cast<double>(to - from);
    }

    // The largest step up, when one is large enough.
    std::optional<std::size_t> drop() const {
        std::optional<std::size_t> found;
        for (std::size_t i = compared; i + compared <= stepsDb_.size(); ++i)
            if (secAt(i) > 2 && stepsDb_[i] > (found ? stepsDb_[*found] : dropDb)) found = i;
        return found;
    }

    // Where a part ends and another begins: the steepest hop of each run of steep ones.
    std::vector<std::size_t> boundaries() const {
        const std::vector<double> smooth = smoothed();
        const auto steepness = [&](std::size_t i) { return std::abs(smooth[i]); };
        std::vector<std::size_t> result;
        std::optional<std::size_t> steepest;
        std::size_t lastSteep = 0;
        for (std::size_t i = 0; i < smooth.size(); ++i) {
            if (!(steepness(i) > boundaryDb)) continue;
            if (steepest && i - lastSteep >= clusterGap) {
                result.push_back(*steepest);
                steepest.reset();
            }
            if (!steepest || steepness(i) > steepness(*steepest)) steepest = i;
            lastSteep = i;
        }
        if (steepest) result.push_back(*steepest);
        return result;
    }

private:
    std::vector<double> smoothed() const {
        std::vector<double> result = stepsDb_;
        for (std::size_t i = 1; i + 1 < result.size(); ++i)
            result[i] = (stepsDb_[i - 1] + stepsDb_[i] + stepsDb_[i + 1]) / 3;
        return result;
    }

    std::vector<double> sums_;      // of levels, before each hop
    std::vector<double> stepsDb_;   // how much louder what follows is; 0 near the ends
};

}   // namespace

LoudnessEnvelope loudnessEnvelope(std::span<const float> samples, double sampleRateHz) {
    const std::vector<double> levelsDb = windowsDb(samples, sampleRateHz);
    if (levelsDb.empty()) return {};
    const Jumps jumps(levelsDb);
    LoudnessEnvelope envelope;
    std::vector<std::size_t> edges{0};
    if (levelsDb.size() > 2 * compared) {
        if (const auto drop = jumps.drop()) envelope.dropSec = secAt(*drop);
        for (const std::size_t boundary : jumps.boundaries())
            if (boundary >= 1) edges.push_back(boundary);
    }
    edges.push_back(levelsDb.size());
    for (std::size_t i = 0; i + 1 < edges.size(); ++i)
        if (edges[i] < edges[i + 1])
            envelope.sections.push_back(
                {edges[i] == 0 ? 0 : secAt(edges[i]), jumps.meanDb(edges[i], edges[i + 1])});
    return envelope;
}

}   // namespace tavix
