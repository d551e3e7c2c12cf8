#include "TavixCore/Typography/StaggerRanks.h"

#include "TavixCore/Typography/KineticNoise.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

namespace tavix::KineticMath {
namespace {

std::vector<int> countingUp(int count) {
    std::vector<int> result(static_cast<std::size_t>(std::max(count, 0)));
    std::iota(result.begin(), result.end(), 0);
    return result;
}

// Elements by rising distance; of two at the same distance the lower index comes first.
template <class Distance> std::vector<int> byDistance(int count, Distance distance) {
    std::vector<int> result = countingUp(count);
    std::stable_sort(
        result.begin(), result.end(), [&](int left, int right) { return distance(left) < distance(right); });
    return result;
}

std::vector<int> visitingSequence(StaggerOrder order, int count, std::int64_t seed) {
    switch (order) {
    case StaggerOrder::normal: break;
    case StaggerOrder::reverse: {
        std::vector<int> result = countingUp(count);
        std::reverse(result.begin(), result.end());
        return result;
    }
    case StaggerOrder::centerOut:
        return byDistance(count, [count](int i) { return std::abs(2LL * i - (count - 1)); });
    case StaggerOrder::edgesIn:
        return byDistance(count, [count](int i) { return std::min(i, count - 1 - i); });
    case StaggerOrder::random: return permutation(count, seed);
    }
    return countingUp(count);
}

}   // namespace

std::vector<int> permutation(int count, std::int64_t seed) {
    std::vector<int> result = countingUp(count);
    std::uint64_t hash = static_cast<std::uint64_t>(seed) + splitMix64Gamma;
    for (std::size_t i = result.size(); i-- > 1;) {
        hash = splitmix64(hash);
        std::swap(result[i], result[hash % (i + 1)]);
    }
    return result;
}

std::vector<int> ranks(StaggerOrder order, int count, std::int64_t seed) {
    const std::vector<int> sequence = visitingSequence(order, count, seed);
    std::vector<int> result(sequence.size());
    for (std::size_t place = 0; place < sequence.size(); ++place)
        result[static_cast<std::size_t>(sequence[place])] = static_cast<int>(place);
    return result;
}

}   // namespace tavix::KineticMath
