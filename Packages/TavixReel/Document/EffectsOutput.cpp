#include "TavixReel/Document/EffectsOutput.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/ReadingErrors.h"

#include <algorithm>

namespace tavix {
namespace {

using Aspect = OutputConfig::Aspect;

// The last of the two sides to be read tells how the frame lies, unless the document goes on to say it.
void readHeight(const Json& json, void* record, const KeyPath& at) {
    auto& into = *static_cast<EffectsOutput*>(record);
    into.heightPx = integerAt(json, at);
    into.aspect = into.heightPx >= into.widthPx ? Aspect::vertical : Aspect::landscape;
}

}   // namespace

EffectsOutput outputOf(
    ReelFormat format, std::int64_t sourceWidthPx, std::int64_t sourceHeightPx, std::int64_t fps) {
    switch (format) {
    case ReelFormat::deviceNative: return {sourceWidthPx, sourceHeightPx, fps, Aspect::vertical};
    case ReelFormat::vertical: return {1080, 1920, fps, Aspect::vertical};
    case ReelFormat::horizontal: return {1920, 1080, fps, Aspect::landscape};
    }
    return {};
}

std::optional<ReelFormat> parseReelFormat(std::string_view text) {
    std::string word = lowered(text);
    std::erase(word, '-');
    for (const ReelFormat format : allCases<ReelFormat>())
        if (word == lowered(nameOf(format))) return format;
    return std::nullopt;
}

const Names<ReelFormat>& namesOf(std::type_identity<ReelFormat>) {
    using enum ReelFormat;
    static const Names<ReelFormat> table{
        "reel format", {{deviceNative, "deviceNative"}, {vertical, "vertical"}, {horizontal, "horizontal"}}};
    return table;
}

const Fields<EffectsOutput>& fieldsOf(std::type_identity<EffectsOutput>) {
    using O = EffectsOutput;
    static const Fields<O> table{
        "EffectsOutput", {field<&O::widthPx>("widthPx", "How wide the frame is, in pixels.")
                                 .measuredIn(Unit::pixels)
                                 .required(),
                             field<&O::heightPx>("heightPx", "How high the frame is, in pixels.")
                                 .measuredIn(Unit::pixels)
                                 .required()
                                 .readBy(readHeight),
                             field<&O::fps>("fps", "Frames per second.").measuredIn(Unit::hertz).required(),
                             field<&O::aspect>("aspect", "How it lies; by its longer side when absent.")}};
    return table;
}

}   // namespace tavix
