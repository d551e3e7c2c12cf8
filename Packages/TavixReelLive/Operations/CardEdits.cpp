#include "TavixReelLive/Operations/CardEdits.h"

#include "TavixCore/Typography/EmphasisRemap.h"
#include "TavixReelLive/Operations/KineticOfText.h"

#include <algorithm>

namespace tavix::CardEdits {

namespace {

constexpr double headlineSize = 0.052, sublineSize = 0.028, textWidth = 0.82;
constexpr const char* usualPreset = "fade-up";

TitleCard* at(EffectsSpec& spec, std::size_t index) {
    return index < spec.titleCards.size() ? &spec.titleCards[index] : nullptr;
}

CardText madeText(const std::string& text, double sizeFraction) {
    CardText made;
    made.text = text;
    made.sizeFraction = sizeFraction;
    made.maxWidthFraction = textWidth;
    made.kinetic = kineticOfText({.preset = usualPreset}, text);
    return made;
}

void rewrite(CardText& text, const std::string& words) {
    text.emphasis = EmphasisRemap::remap(text.emphasis, text.text, words);
    text.text = words;
    text.kinetic = kineticOfText(text.kinetic, words);
}

template <class Change> void changeTexts(EffectsSpec& spec, std::size_t index, const Change& change) {
    TitleCard* const card = at(spec, index);
    if (!card) return;
    change(card->headline);
    if (card->subline) change(*card->subline);
}

}   // namespace

void add(EffectsSpec& spec, const TitleCardAnchor& anchor, const ReelClock& clock) {
    TitleCard card;
    card.anchor = anchor;
    card.insertionSec = clock.playheadSec;
    card.headline = madeText("Headline", headlineSize);
    spec.titleCards.push_back(std::move(card));
}

void remove(EffectsSpec& spec, std::size_t index) {
    if (at(spec, index)) spec.titleCards.erase(spec.titleCards.begin() + static_cast<std::ptrdiff_t>(index));
}

void move(EffectsSpec& spec, std::size_t index, double toInsertionSec, const ReelClock& clock) {
    TitleCard* const card = at(spec, index);
    if (!card) return;
    card->anchor = CustomAnchor{};
    card->insertionSec = std::clamp(toInsertionSec, 0.0, clock.lengthSec);
}

void setDuration(EffectsSpec& spec, std::size_t index, double sec) {
    TitleCard* const card = at(spec, index);
    if (!card) return;
    card->durationSec = sec;
    *card = TitleCard::clamped(*card);
}

void setHeadlineText(EffectsSpec& spec, std::size_t index, const std::string& text) {
    if (TitleCard* const card = at(spec, index)) rewrite(card->headline, text);
}

void setSublineText(EffectsSpec& spec, std::size_t index, const std::string& text) {
    TitleCard* const card = at(spec, index);
    if (!card) return;
    if (text.empty())
        card->subline.reset();
    else if (card->subline)
        rewrite(*card->subline, text);
    else
        card->subline = madeText(text, sublineSize);
}

void setPreset(EffectsSpec& spec, std::size_t index, const std::string& preset) {
    changeTexts(
        spec, index, [&](CardText& text) { text.kinetic = kineticOfText({.preset = preset}, text.text); });
}

void setFont(EffectsSpec& spec, std::size_t index, const std::optional<std::string>& name,
    const std::optional<std::string>& path) {
    changeTexts(spec, index, [&](CardText& text) {
        text.fontName = name;
        text.fontPath = path;
    });
}

void setBackground(EffectsSpec& spec, std::size_t index, const std::optional<BackgroundFill>& fill) {
    if (TitleCard* const card = at(spec, index)) card->background = fill;
}

}   // namespace tavix::CardEdits
