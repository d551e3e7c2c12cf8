#include "TavixCore/Project/AssetReferences.h"

#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Project/AssetPacker.h"
#include "TavixCore/Support/FieldTables.h"

#include <string>

namespace tavix {

namespace {

// Fonts are named, or are files; a name has no slash.
bool looksLikePath(const std::string& font) { return font.find('/') != std::string::npos; }

void repack(std::string& reference, Role role, AssetPacker& packer) {
    switch (role) {
    case Role::picture:
    case Role::clip:
    case Role::soundFile: reference = packer.rebased(reference); return;
    case Role::recording: reference = packer.rebasedClip(reference); return;
    case Role::sound:
        if (!named<SFXCatalog::Sound>(reference)) reference = packer.rebased(reference);
        return;
    case Role::fontFile:
        if (looksLikePath(reference)) reference = packer.rebased(reference);
        return;
    case Role::font:
        if (looksLikePath(reference) && packer.hasFile(reference)) reference = packer.rebased(reference);
        return;
    default: return;
    }
}

}   // namespace

void packReferences(CompositionSpec& spec, AssetPacker& packer) {
    walk(spec, [&](const MutablePlace& place) {
        auto* const reference = place.as<std::string>();
        if (reference && place.row) repack(*reference, place.row->role, packer);
        return Walk::into;
    });
}

}   // namespace tavix
