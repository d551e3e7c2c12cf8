// A picture that fills the frame: a file, or an entry of the background catalog.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace tavix {

struct BackgroundImage {
    std::optional<std::string> path;
    std::optional<std::string> bundledID;   // of the background catalog

    static BackgroundImage bundled(std::string id) { return {std::nullopt, std::move(id)}; }
    bool operator==(const BackgroundImage&) const = default;
};

const Fields<BackgroundImage>& fieldsOf(std::type_identity<BackgroundImage>);

}   // namespace tavix
