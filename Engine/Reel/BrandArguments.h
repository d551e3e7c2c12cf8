// The application whose look a reel takes on, as it is named on the command line.
#pragma once

#include "TavixCore/Theme/BrandKit.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

class Arguments;

class BrandArguments {
public:
    void declare(Arguments& arguments);

    // Nothing when no application is named. What was found where goes into `notes`. Throws `UsageError` when
    // two are named, and `Failure` for one that is not there.
    std::optional<BrandKit> read(std::vector<std::string>& notes) const;

private:
    std::optional<std::string> app_, bundle_;
};

}   // namespace tavix::engine
