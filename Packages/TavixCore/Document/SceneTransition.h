// The transition that leads out of a scene into the next one. The scenes overlap while it runs.
#pragma once

#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Document/TransitionParams.h"
#include "TavixCore/Document/TransitionStyle.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <type_traits>

namespace tavix {

struct SceneTransition {
    TransitionStyle style = TransitionStyle::fade;
    double durationSec = 0;
    std::optional<double> durationBeats;   // symbolic: resolved into `durationSec`, then cleared
    TimingCurve curve = LinearCurve{};
    std::optional<TransitionParams> params;
    bool operator==(const SceneTransition&) const = default;
};

const Fields<SceneTransition>& fieldsOf(std::type_identity<SceneTransition>);

}   // namespace tavix
