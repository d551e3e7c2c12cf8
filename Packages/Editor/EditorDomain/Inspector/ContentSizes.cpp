#include "Editor/EditorDomain/Inspector/ContentSizes.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/FieldTables.h"

namespace tavix {

namespace {

constexpr std::size_t mostKnown = 64;

}   // namespace

std::optional<CompositionContentSize::CanvasSize> ContentSizes::of(const CompositionLayer& layer,
    const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot) {
    // What stands still counts, not where or when.
    CompositionLayer shown;
    shown.content = layer.content;
    std::string look = writeJson(writeValue(typeOf<CompositionLayer>(), &shown));
    look += std::to_string(spec.output.widthPx) + "x" + std::to_string(spec.output.heightPx);
    if (assetRoot) look += assetRoot->string();
    auto found = known_.find(look);
    if (found == known_.end()) {
        if (known_.size() >= mostKnown) known_.clear();
        found = known_.emplace(std::move(look), CompositionContentSize::of(layer, spec, assetRoot)).first;
    }
    const auto& size = found->second;
    return size.width > 0 && size.height > 0 ? std::optional(size) : std::nullopt;
}

}   // namespace tavix
