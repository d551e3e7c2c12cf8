// Free faces that stand in for well-known ones which a machine may lack.
#pragma once

#include <span>
#include <string_view>

namespace tavix::text {

// A name that begins like that (lower case, without blanks and hyphens, as "helveticaneue") is set in the
// family, with the weight that the rest of the name tells. The longest beginning wins.
struct FontStandIn {
    std::string_view nameBegin, family;
};
std::span<const FontStandIn> fontStandIns();

// The family for a name, or nothing.
const FontStandIn* standInFor(std::string_view name);
// The weight that a name tells, as CSS counts, as in "AvenirNext-DemiBold"; 400 when it tells none.
double weightToldBy(std::string_view name);

}   // namespace tavix::text
