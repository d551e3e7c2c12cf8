// How the driver of a recording and the recorded app talk: by small files in one shared folder.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <string_view>
#include <type_traits>

namespace tavix {

namespace HandshakeFile {

inline constexpr std::string_view spec = "spec.json";     // the driver's `FlowSpec`
inline constexpr std::string_view ready = "ready.json";   // the app has read the flow; its presence counts
inline constexpr std::string_view go = "go.json";         // a `GoSignal`: start
inline constexpr std::string_view done = "done.json";     // the app's `DoneReport`

}   // namespace HandshakeFile

// Environment of the recorded app's process.
inline constexpr std::string_view tavixDrivenEnvKey = "TAVIX_DRIVEN";      // set: the run is driven
inline constexpr std::string_view tavixSnapshotEnvKey = "TAVIX_SNAP_TO";   // where a run's snapshot goes

struct GoSignal {
    double issuedAt = 0;   // seconds of the issuer's clock
    bool operator==(const GoSignal&) const = default;
};

const Fields<GoSignal>& fieldsOf(std::type_identity<GoSignal>);

}   // namespace tavix
