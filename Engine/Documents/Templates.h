// The starting points that `new` offers.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::engine {

struct Template {
    std::string_view name, about;
    imaging::Size size;   // of its frame, where none is asked for
};

std::span<const Template> templates();
// Throws `UsageError` for an unknown name.
const Template& templateNamed(const std::string& name);

struct TemplateDocument {
    std::string json;
    std::vector<std::filesystem::path> assets;   // the files that it names, to be laid into its `assets`
};

// Composed for the shape of that frame, and scaled to its size. Throws `Failure` when the program was
// installed without its templates.
TemplateDocument documentOf(const Template& chosen, imaging::Size size);

}   // namespace tavix::engine
