#include "TavixReel/Captions/CaptionCopySource.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/TextWords.h"

namespace tavix {
namespace {

std::string_view verb(Interaction interaction) {
    switch (interaction) {
    case Interaction::tap:
    case Interaction::listSelection: return "select";
    case Interaction::longPress: return "press and hold";
    case Interaction::navPush:
    case Interaction::sheetPresent: return "open";
    case Interaction::navPop: return "go back";
    case Interaction::sheetDismiss: return "close";
    case Interaction::toggle: return "toggle";
    case Interaction::textEntry: return "type";
    case Interaction::scroll: return "scroll";
    case Interaction::swipe: return "swipe";
    }
    return "";
}

std::string trimmedText(const std::optional<std::string>& text) {
    return text ? std::string(trimmed(*text)) : std::string();
}

}   // namespace

std::string humanize(std::string_view identifier) {
    std::string spaced;
    bool endsWord = false;   // the character before was a small letter or a digit
    for (const std::string_view character : KineticMath::characters(identifier)) {
        const bool separates = character == "-" || character == "_" || character == ".";
        const bool isCapital = KineticMath::isUppercase(character);
        if (separates || (isCapital && endsWord)) spaced += ' ';
        if (!separates) spaced += lowered(character);
        endsWord = !separates && !isCapital && KineticMath::isLowercaseOrNumber(character);
    }
    std::string joined;
    for (const KineticMath::Word& word : KineticMath::words(spaced))
        joined.append(joined.empty() ? "" : " ").append(word.text);
    return joined;
}

std::string HumanizedCopySource::line(const CaptionBeatContext& beat) {
    const std::string label = trimmedText(beat.label);
    if (!label.empty()) return KineticMath::capitalized(label);
    const std::string words = humanize(beat.identifier);
    if (words.empty()) return KineticMath::capitalized(verb(beat.interaction));
    if (beat.interaction == Interaction::textEntry)
        return beat.textValue && !beat.textValue->empty() ? "Enter " + *beat.textValue : "Type " + words;
    return KineticMath::capitalized(words);
}

std::map<std::int64_t, std::string> HumanizedCopySource::captionLines(
    std::span<const CaptionBeatContext> beats, CaptionTone, std::int64_t) const {
    std::map<std::int64_t, std::string> lines;
    for (const CaptionBeatContext& beat : beats) lines[beat.stepIndex] = line(beat);
    return lines;
}

std::map<std::int64_t, std::string> ProvidedCopySource::captionLines(
    std::span<const CaptionBeatContext> beats, CaptionTone, std::int64_t) const {
    std::map<std::int64_t, std::string> lines;
    for (const CaptionBeatContext& beat : beats) {
        const std::string provided = trimmedText(beat.providedText);
        lines[beat.stepIndex] = provided.empty() ? HumanizedCopySource::line(beat) : provided;
    }
    return lines;
}

const Names<CaptionTone>& namesOf(std::type_identity<CaptionTone>) {
    using enum CaptionTone;
    static const Names<CaptionTone> table{
        "caption tone", {{marketing, "marketing"}, {terse, "terse"}, {friendly, "friendly"}}};
    return table;
}

}   // namespace tavix
