#include "TavixReel/Captions/CaptionAuthor.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixReel/Camera/EffectsAuthor.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace tavix::CaptionAuthor {
namespace {

std::string_view withoutQuotes(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 3> pairs{
        {{"\"", "\""}, {"\u201C", "\u201D"}, {"'", "'"}}};
    const std::vector<std::string_view> characters = KineticMath::characters(text);
    if (characters.size() < 2) return text;
    const std::string_view first = characters.front(), last = characters.back();
    if (std::ranges::find(pairs, std::pair(first, last)) == pairs.end()) return text;
    return trimmed(text.substr(first.size(), text.size() - first.size() - last.size()));
}

CaptionBeatContext ofStep(const FlowSpec& flow, const Step& step, const Timeline::Event* event) {
    CaptionBeatContext context{.stepIndex = step.index,
        .interaction = step.interaction,
        .identifier = step.target.identifier,
        .label = step.target.label,
        .textValue = step.target.textValue,
        .stateDescription = {},
        .screen = flow.entry.rootViewType,
        .providedText = step.caption};
    if (!context.label && event) context.label = event->label;
    if (step.state) context.stateDescription = step.state->description;
    return context;
}

CaptionBeatContext ofEvent(const Timeline::Event& event) {
    CaptionBeatContext context;
    context.stepIndex = event.index;
    context.interaction = named<Interaction>(event.type).value_or(Interaction::tap);
    context.identifier = event.label.value_or(event.type);
    context.label = event.label;
    return context;
}

template <class T> const T* withIndex(const std::vector<T>& all, std::int64_t index) {
    const auto found = std::ranges::find(all, index, &T::index);
    return found == all.end() ? nullptr : &*found;
}

double wordCount(std::string_view text) { return 1 + static_cast<double>(std::ranges::count(text, ' ')); }

}   // namespace

std::vector<HeroBeat> beats(const Timeline& timeline, const MotionSpec& motion, const Options& options) {
    std::vector<HeroBeat> kept = EffectsAuthor::heroBeats(timeline, motion);
    std::ranges::stable_sort(kept, {}, &HeroBeat::tSec);
    const auto most = static_cast<std::size_t>(std::max<std::int64_t>(options.maxCaptions, 0));
    if (kept.size() > most) kept.resize(most);
    return kept;
}

std::vector<CaptionBeatContext> contexts(
    const FlowSpec* flow, const Timeline& timeline, std::span<const HeroBeat> beats) {
    std::vector<CaptionBeatContext> all;
    for (const HeroBeat& beat : beats) {
        const Timeline::Event* event = withIndex(timeline.events, beat.index);
        if (!flow) {
            if (event) all.push_back(ofEvent(*event));
        } else if (const Step* step = withIndex(flow->steps, beat.index)) {
            all.push_back(ofStep(*flow, *step, event));
        }
    }
    return all;
}

std::optional<Narration> author(const FlowSpec* flow, const Timeline& timeline, const MotionSpec& motion,
    const Options& options, const CaptionCopySource& copy) {
    const std::vector<HeroBeat> kept = beats(timeline, motion, options);
    if (kept.empty()) return std::nullopt;
    const auto lines = copy.captionLines(contexts(flow, timeline, kept), options.tone, options.maxWords);
    return assemble(kept, lines, motion, options);
}

std::optional<Narration> assemble(std::span<const HeroBeat> beats,
    const std::map<std::int64_t, std::string>& lines, const MotionSpec& motion, const Options& options) {
    Narration narration;
    double freeFromSec = -std::numeric_limits<double>::infinity();
    for (const HeroBeat& beat : beats) {
        const auto line = lines.find(beat.index);
        if (line == lines.end()) continue;
        std::string text = sanitize(line->second, options.maxWords);
        const bool repeats =
            !narration.captions.empty() && lowered(narration.captions.back().text) == lowered(text);
        if (text.empty() || repeats) continue;
        const double dwellSec = std::max(options.minDwellSec, options.dwellPerWordSec * wordCount(text));
        const double startSec = std::max(beat.tSec + motion.settleHoldSec, freeFromSec);
        const double endSec = startSec + dwellSec;
        freeFromSec = endSec + motion.minBeatSpacingSec;
        Caption& caption = narration.captions.emplace_back();
        caption.stepIndex = beat.index;
        caption.text = std::move(text);
        caption.window = {startSec, endSec};
    }
    if (narration.captions.empty()) return std::nullopt;
    narration.style = options.style;
    return narration;
}

std::string sanitize(std::string_view text, std::int64_t maxWords) {
    const std::vector<KineticMath::Word> words = KineticMath::words(withoutQuotes(trimmed(text)));
    const auto most = static_cast<std::size_t>(std::max<std::int64_t>(maxWords, 1));
    std::string kept;
    for (std::size_t i = 0; i < std::min(most, words.size()); ++i)
        kept.append(i ? " " : "").append(words[i].text);
    return kept;
}

}   // namespace tavix::CaptionAuthor
