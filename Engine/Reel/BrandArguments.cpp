#include "Engine/Reel/BrandArguments.h"

#include "Engine/Console/Arguments.h"
#include "Engine/System/Errors.h"
#include "TavixRender/Brand/AppHints.h"
#include "TavixRender/Brand/BrandExtractor.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace tavix::engine {

namespace fs = std::filesystem;

void BrandArguments::declare(Arguments& arguments) {
    arguments.text("--theme-from-app", app_, "APP",
        "Take colours and fonts from an installed application, by its name or desktop entry.");
    arguments.text(
        "--brand-bundle", bundle_, "PATH", "Take colours and fonts from an application's bundle or folder.");
}

std::optional<BrandKit> BrandArguments::read(std::vector<std::string>& notes) const {
    if (app_ && bundle_)
        throw UsageError("--theme-from-app and --brand-bundle say the same; give one of them.");
    if (!app_ && !bundle_) return std::nullopt;
    std::error_code ignored;
    fs::path bundle = bundle_.value_or(app_.value_or(""));
    if (app_ && !fs::exists(bundle, ignored)) {
        const auto entry = AppHints::installedApp(*app_);
        if (!entry)
            throw Failure("No installed application is called \"" + *app_ +
                          "\"; give the folder of its files with --brand-bundle.");
        bundle = *entry;
    }
    BrandExtractor::Report report = BrandExtractor::extract(bundle);
    std::ranges::move(report.notes, std::back_inserter(notes));
    return std::move(report.brand);
}

}   // namespace tavix::engine
