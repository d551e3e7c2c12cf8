#include "TavixCore/Project/AssetReferences.h"

#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Project/AssetPacker.h"
#include "TavixCore/Support/FieldTables.h"

#include <optional>
#include <string>

namespace tavix {

namespace {

// Fonts are named, or are files; a name has no slash.
bool looksLikePath(const std::string& font) { return font.find('/') != std::string::npos; }

std::optional<AssetKind> kindOf(const std::string& reference, Role role) {
    switch (role) {
    case Role::picture: return AssetKind::picture;
    case Role::clip: return AssetKind::clip;
    case Role::recording: return AssetKind::recording;
    case Role::reelFolder: return AssetKind::reel;
    case Role::soundFile: return AssetKind::sound;
    case Role::sound:
        if (!named<SFXCatalog::Sound>(reference)) return AssetKind::sound;
        return std::nullopt;
    case Role::fontPath: return AssetKind::font;
    case Role::fontFile:
        if (looksLikePath(reference)) return AssetKind::font;
        return std::nullopt;
    case Role::font:
        if (looksLikePath(reference)) return AssetKind::wishedFont;
        return std::nullopt;
    default: return std::nullopt;
    }
}

}   // namespace

void forEachAsset(const Type& type, void* document, const AssetVisit& visit) {
    const auto look = [&](const MutablePlace& place) {
        auto* const reference = place.as<std::string>();
        const auto kind = reference && place.row ? kindOf(*reference, place.row->role) : std::nullopt;
        if (kind) visit(*kind, *reference);
        return Walk::into;
    };
    walkValue(type, document, KeyPath(), Visitor<MutablePlace>(look));
}

void forEachAsset(CompositionSpec& spec, const AssetVisit& visit) {
    forEachAsset(typeOf<CompositionSpec>(), &spec, visit);
}

void packReferences(CompositionSpec& spec, AssetPacker& packer) {
    forEachAsset(spec, [&](AssetKind kind, std::string& path) {
        if (kind == AssetKind::wishedFont && !packer.hasFile(path)) return;
        path = kind == AssetKind::recording ? packer.rebasedClip(path)
               : kind == AssetKind::reel    ? packer.rebasedFolder(path)
                                            : packer.rebased(path);
    });
}

}   // namespace tavix
