#include "Engine/SceneNames.h"

#include "Engine/Errors.h"
#include "Engine/Words.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tavix::engine {

std::size_t sceneNamed(const CompositionSpec& spec, const std::string& name) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) names.push_back(spec.scenes[i].displayName(i));
    if (const auto found = std::ranges::find(names, name); found != names.end())
        return static_cast<std::size_t>(found - names.begin());
    const std::vector<std::string_view> known(names.begin(), names.end());
    throw UsageError("There is no scene \"" + name + "\"; the document has " + listed(known) + "." +
                     suggestion(name, known));
}

}   // namespace tavix::engine
