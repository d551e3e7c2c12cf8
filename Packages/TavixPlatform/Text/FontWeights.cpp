#include "TavixPlatform/Text/FontCore.h"

#include <algorithm>
#include <iterator>

namespace tavix::text {
namespace {

struct Row {
    double weight, trait;
};
// Between the rows, straight lines.
constexpr Row rows[] = {{1, -1}, {100, -0.8}, {200, -0.6}, {300, -0.4}, {400, 0}, {500, 0.23}, {600, 0.3},
    {700, 0.4}, {800, 0.56}, {900, 0.62}, {1000, 1}};

double between(double value, double Row::*from, double Row::*to) {
    const Row* upper = std::find_if(std::next(std::begin(rows)), std::prev(std::end(rows)),
        [&](const Row& row) { return row.*from >= value; });
    const Row* lower = std::prev(upper);
    const double share = std::clamp((value - lower->*from) / (upper->*from - lower->*from), 0.0, 1.0);
    return lower->*to + share * (upper->*to - lower->*to);
}

}   // namespace

double traitOfWeight(double weight) { return between(weight, &Row::weight, &Row::trait); }
double weightOfTrait(double trait) { return between(trait, &Row::trait, &Row::weight); }

}   // namespace tavix::text
