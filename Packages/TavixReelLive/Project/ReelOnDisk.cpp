#include "TavixReelLive/Project/ReelOnDisk.h"

#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Paths/Merge.h"
#include "TavixCore/Support/Document.h"

#include <system_error>
#include <utility>

namespace tavix {

namespace {

// Keys that nobody knows and values that no edit touched stay as they were written.
std::string textFor(const ReelOnDisk& before, const EffectsSpec& edited) {
    if (!before.text || before.damage) return encodedJson(edited);
    const Type& type = typeOf<EffectsSpec>();
    const Json written = parseJson(*before.text);
    const Merged merged = merge(writeValue(type, &before.spec), writeValue(type, &edited), written);
    if (decodeValue<EffectsSpec>(merged.document) == edited) return textSaying(*before.text, merged.document);
    return textSaying(*before.text, writeValue(type, &edited));
}

}   // namespace

std::optional<std::string> ReelOnDisk::textIn(const std::filesystem::path& file) {
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) return std::nullopt;
    return readBytes(file, JsonLimits{}.maxBytes);
}

ReelOnDisk ReelOnDisk::of(std::string text) {
    EffectsSpec spec = decodeJson<EffectsSpec>(text);
    return {std::move(text), std::move(spec), {}};
}

std::filesystem::path ReelOnDisk::damagedName(const std::filesystem::path& file) {
    return file.string() + ".damaged";
}

ReelOnDisk ReelOnDisk::saved(
    const EffectsSpec& edited, const std::filesystem::path& file, IfChanged ifChanged) const {
    if (ifChanged == IfChanged::refuse) {
        const auto now = textIn(file);
        if (text && !now)
            throw FileChanged(
                "\"" + file.string() + "\" is not there any more; save over it to write it again.");
        if (now != text)
            throw FileChanged(
                "\"" + file.string() +
                "\" was changed by another program since it was opened; choose what to keep of its "
                "changes and of yours, or save over it.");
    }
    ReelOnDisk now = of(textFor(*this, edited));
    if (damage && text) writeBytesAtomically(*text, damagedName(file));
    writeBytesAtomically(*now.text, file);
    return now;
}

}   // namespace tavix
