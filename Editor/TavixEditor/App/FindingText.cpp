#include "TavixEditor/App/FindingText.h"

#include "TavixEditor/App/Words.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <vector>

namespace tavix::editor {

namespace {

struct Sentence {
    const char* pattern;      // with %1, %2 and so on, in this order, for what the judge puts in
    const char* parts = "";   // the numbers of those that are words of the judge, too
};

constexpr Sentence sentences[] = {
    {QT_TRANSLATE_NOOP("Finding", "%1 needs a beat grid — the composition declares no audio.music.bpm.")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Set audio.music.bpm (+ firstBeatSec) — run `tavix beats <audio>` to measure them.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 and %2 both set — pick one duration authority.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 and %2 on the same %3 — pick one clock%4."), "34"},
    {QT_TRANSLATE_NOOP("Finding", "bpm %1 out of range (40…220).")},
    {QT_TRANSLATE_NOOP("Finding", "A composition needs at least one scene.")},
    {QT_TRANSLATE_NOOP("Finding", "Cue at %1s is past the composition end (%2s).")},
    {QT_TRANSLATE_NOOP("Finding",
        "Sound \"%1\" is neither a catalog name (%2) nor an audio-file path — it will be skipped.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 %2 out of range (%3…%4).")},
    {QT_TRANSLATE_NOOP(
        "Finding", "%1 accent transitions (dreamyZoom/crosswarp/ripple) — one accent per composition.")},
    {QT_TRANSLATE_NOOP("Finding", "Total runs %1s — teasers read best under 60–90s.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 starts at %2s — %3s off the beat grid (nearest beat %4s at %5 BPM).")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Set scenes[%1].durationSec to %2 (or use durationBeats) to land the cut on the beat.")},
    {QT_TRANSLATE_NOOP("Finding", "Music bed has an empty path.")},
    {QT_TRANSLATE_NOOP("Finding", "Device screen needs a still or video path.")},
    {QT_TRANSLATE_NOOP("Finding",
        "screens are for the devices of a formation, one each; without a choreographyPreset only screen is shown.")},
    {QT_TRANSLATE_NOOP("Finding",
        "Device has both a placement track and x/y/scale keyframes — pick one motion system (placement = baked springs, tracks = generic keyframes).")},
    {QT_TRANSLATE_NOOP("Finding", "Placement times must be strictly ascending.")},
    {QT_TRANSLATE_NOOP("Finding", "screenOpacity %1 is outside 0…1 — clamped at render.")},
    {QT_TRANSLATE_NOOP("Finding", "screenOpacity times must be strictly ascending.")},
    {QT_TRANSLATE_NOOP("Finding",
        "Last pose keyframe at %1s is past the layer's %2s window — scene3D pose times are LAYER-LOCAL (0 = the layer's start), not the reel clock.")},
    {QT_TRANSLATE_NOOP("Finding",
        "A 3D device layer owns the phone's rotation (tilt/poseTrack) — a flat rotationDeg keyframe track would spin the finished 3D render. Drop the track or scene3D.")},
    {QT_TRANSLATE_NOOP("Finding", "Pose times must be strictly ascending.")},
    {QT_TRANSLATE_NOOP("Finding", "Depth times must be strictly ascending.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 has no effect beside %2, which takes its place."), "2"},
    {QT_TRANSLATE_NOOP("Finding", "position has no effect here. %1."), "1"},
    {QT_TRANSLATE_NOOP("Finding", "Keyframe t must be ≥ 0 (layer-local clock).")},
    {QT_TRANSLATE_NOOP("Finding", "Keyframe times must be strictly ascending (%1 after %2).")},
    {QT_TRANSLATE_NOOP("Finding", "Opacity %1 is outside 0…1 — it renders clamped.")},
    {QT_TRANSLATE_NOOP("Finding", "Scale must be > 0 (scale interpolates in log space).")},
    {QT_TRANSLATE_NOOP("Finding",
        "Both an opacity track and a fading enter/exit phase — the two multiply into a double-fade.")},
    {QT_TRANSLATE_NOOP("Finding", "Unknown effect \"%1\" — must be one of %2.")},
    {QT_TRANSLATE_NOOP("Finding", "fromSec must be ≥ 0 (scene-local clock).")},
    {QT_TRANSLATE_NOOP("Finding", "Layer starts at %1s but the scene ends at %2s.")},
    {QT_TRANSLATE_NOOP("Finding", "durationSec must be > 0 (omit it to run to the scene end).")},
    {QT_TRANSLATE_NOOP("Finding", "Layer window ends at %1s, past the scene end (%2s).")},
    {QT_TRANSLATE_NOOP("Finding", "Mark reference has an empty mark name.")},
    {QT_TRANSLATE_NOOP("Finding", "clip \"%1\" doesn't match any device layer id in this scene%2."), "2"},
    {QT_TRANSLATE_NOOP("Finding",
        "Mark references need a device layer (with a video screen) in the same scene — this scene has none.")},
    {QT_TRANSLATE_NOOP("Finding",
        "This scene has %1 device layers — set \"clip\" on the mark reference to pick one (device ids: %2).")},
    {QT_TRANSLATE_NOOP("Finding", "There is no rule \"%1\" to mute; `tavix lint --codes` lists them.")},
    {QT_TRANSLATE_NOOP("Finding", "There is no %1 \"%2\", so the device does not move by it. Use one of %3."),
        "1"},
    {QT_TRANSLATE_NOOP("Finding", "\"%1\" is no key here, and is not read. The keys are %2.")},
    {QT_TRANSLATE_NOOP("Finding", "\"%1\" is not known here and is read as \"%2\". Use one of %3.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 is read as %2; it must be %3."), "3"},
    {QT_TRANSLATE_NOOP("Finding", "%1 It is left out.")},
    {QT_TRANSLATE_NOOP("Finding", "Did you mean \"%1\"?")},
    {QT_TRANSLATE_NOOP("Finding", "Shape width/heightFraction must be > 0.")},
    {QT_TRANSLATE_NOOP("Finding", "Video layer has an empty path.")},
    {QT_TRANSLATE_NOOP("Finding", "trimEndSec (%1) must be after trimStartSec (%2).")},
    {QT_TRANSLATE_NOOP("Finding", "Image layer has an empty path.")},
    {QT_TRANSLATE_NOOP("Finding",
        "Transition durationSec (or durationBeats on a music grid) is required and must be > 0 (the tempo decision is always explicit).")},
    {QT_TRANSLATE_NOOP("Finding",
        "Transition (%1s) is longer than the shorter adjacent scene (%2s) — both scenes must outlive the overlap.")},
    {QT_TRANSLATE_NOOP("Finding", "flip has no 2-D presentation — it renders as a wipe here.")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Bouncy transition timing (damping %1) — counts as the scene's one accent.")},
    {QT_TRANSLATE_NOOP("Finding", "%1: durationSec must be > 0.")},
    {QT_TRANSLATE_NOOP(
        "Finding", "%1 runs %2s — scenes over 30s usually want a cut (\"let time solve layout\").")},
    {QT_TRANSLATE_NOOP("Finding", "%1 is the last scene — a transition needs a next scene to join.")},
    {QT_TRANSLATE_NOOP("Finding",
        "%1 has %2 3D device layers — each one is a full 3D render per frame; expect roughly %3× frame cost.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 shows >2 text layers at once — give each message its own moment.")},
    {QT_TRANSLATE_NOOP(
        "Finding", "%1 has two focal layers (device/full-bleed video) at once — one focal point per frame.")},
    {QT_TRANSLATE_NOOP("Finding",
        "%1 has %2 bouncy springs (damping < 0.7) — one accent per scene, damping ≥ 0.8 elsewhere.")},
    {QT_TRANSLATE_NOOP("Finding", "Unknown kinetic preset \"%1\" — must be one of %2.")},
    {QT_TRANSLATE_NOOP("Finding", "alignment must be left|center|right.")},
    {QT_TRANSLATE_NOOP("Finding", "\"%1\" shows for %2s — under the readability floor (%3s for %4 words).")},
    {QT_TRANSLATE_NOOP("Finding", "\"%1\" shows for %2s — under the readability floor (%3s for %4 word).")},
    {QT_TRANSLATE_NOOP("Finding",
        "sizeFraction %1 is below the label minimum %2 (≈32px @1080w) — unreadable at video distance.")},
    {QT_TRANSLATE_NOOP("Finding", "sizeFraction %1 is below the supporting-copy minimum %2 (≈44px @1080w).")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Text center (%1, %2)px is outside the safe area (within %3×%4px of center (%5, %6)).")},
    {QT_TRANSLATE_NOOP("Finding", "\"%1\" looks like a path but not a font file (.ttf/.otf/.ttc).")},
    {QT_TRANSLATE_NOOP("Finding", "Text layer has empty copy.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 has no effect on a %2, which has %3."), "3"},
    {QT_TRANSLATE_NOOP("Finding", "There is no word %1: the text has %2, counted from 0."), "2"},
    {QT_TRANSLATE_NOOP("Finding",
        "%1: durationSec (%2) and durationBeats (%3 = %4s) both set — pick one duration authority.")},
    {QT_TRANSLATE_NOOP("Finding",
        "%1: the device motion runs to %2s but durationBeats: %3 resolves to %4s — the tail will be cut.")},
    {QT_TRANSLATE_NOOP("Finding", "Use durationBeats: %1 to fit it.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 (%2) and %3 (%4) both set — pick one duration authority.")},
    {QT_TRANSLATE_NOOP("Finding", "Beat %1 is %2s on the global clock — before this scene starts (%3s).")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Beat %1 resolves to scene time %2s — at or before the layer's start (%3s).")},
    {QT_TRANSLATE_NOOP("Finding", "Beat %1 resolves to %2s — before the composition starts.")},
    {QT_TRANSLATE_NOOP("Finding",
        "Beat keyframes need a concrete or beat-valued layer start — this layer starts at a recording mark.")},
    {QT_TRANSLATE_NOOP("Finding", "Use atMark for the keyframe too, or give the layer fromBeat/fromSec.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 must reference the SAME device layer's clip.")},
    {QT_TRANSLATE_NOOP("Finding", "Mark \"%1\" resolves to %2s — before the clip's trimStartSec (%3s).")},
    {QT_TRANSLATE_NOOP("Finding", "Mark \"%1\" resolves to scene time %2s — before the scene starts.")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Mark \"%1\" resolves to scene time %2s — at or before the layer's start (%3s).")},
    {QT_TRANSLATE_NOOP("Finding",
        "Mark \"%1\" has no end time — only scripted steps (a `durationSec` scroll) land \"#end\" marks.")},
    {QT_TRANSLATE_NOOP(
         "Finding", "%1 has %2 device layers — set \"clip\" on the mark reference to pick one%3."),
        "3"},
    {QT_TRANSLATE_NOOP(
         "Finding", "Mark \"%1\" references clip \"%2\", but %3 has no device layer with that id%4."),
        "4"},
    {QT_TRANSLATE_NOOP("Finding",
        "Mark references need a VIDEO device screen — the device layer plays a still, which has no timeline sidecar.")},
    {QT_TRANSLATE_NOOP("Finding",
        "No timeline sidecar for \"%1\" — expected %2 next to the clip (tavix run writes it; the .tavixcomp bundler copies it).")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Re-copy the recording together with its .timeline.json, or drop the mark references.")},
    {QT_TRANSLATE_NOOP("Finding", "Mark \"%1\" not found in the sidecar for \"%2\". Available marks: %3."),
        "3"},
    {QT_TRANSLATE_NOOP("Finding",
        "Mark \"%1\" is ambiguous — %2 steps carry it. Give each step a distinct target.label in the FlowSpec.")},
    {QT_TRANSLATE_NOOP("Finding",
         "%1: the %2's footage ends %3s into the layer window but the window runs to %4s — the last frame freezes for %5s."),
        "2"},
    {QT_TRANSLATE_NOOP("Finding",
        "Shorten the scene/window (durationSec/durationBeats) to fit the footage, trim later, or re-record a longer segment — recordings never stretch.")},
    {QT_TRANSLATE_NOOP("Finding",
         "A part of %1 cannot be read: over a fifth of a line its contrast is %2:1 against what lies under it there."),
        "1"},
    {QT_TRANSLATE_NOOP("Finding", "Move it off what it crosses, or put a panel or a shadow under the text.")},
    {QT_TRANSLATE_NOOP("Finding",
         "%1 has a contrast of %2:1 against what lies under it; %3:1 is the least for text of this size."),
        "1"},
    {QT_TRANSLATE_NOOP(
        "Finding", "Choose a colour that is lighter or darker, or put a panel or a shadow under the text.")},
    {QT_TRANSLATE_NOOP("Finding", "Cannot read the image \"%1\". %2"), "2"},
    {QT_TRANSLATE_NOOP("Finding", "There is no clip \"%1\".")},
    {QT_TRANSLATE_NOOP("Finding", "The clip \"%1\" holds no picture.")},
    {QT_TRANSLATE_NOOP("Finding",
         "More than three %1 within a second %2 (%3), over %4 % of a field of 10 degrees, where a quarter is the most. They can cause seizures."),
        "12"},
    {QT_TRANSLATE_NOOP(
        "Finding", "Flash at most three times in any second, over a smaller area, or with less difference.")},
    {QT_TRANSLATE_NOOP("Finding", "The film is black %1 (%2)."), "1"},
    {QT_TRANSLATE_NOOP("Finding", "Nothing moves %1 (%2)."), "1"},
    {QT_TRANSLATE_NOOP("Finding", "There is no reel \"%1\".")},
    {QT_TRANSLATE_NOOP("Finding", "There is no background \"%1\"; use one of %2.")},
    {QT_TRANSLATE_NOOP("Finding", "There is no sound file \"%1\".")},
    {QT_TRANSLATE_NOOP("Finding",
        "The font file \"%1\" is missing or holds no font; \"%2\" stands in for it. Check its path, which starts at the document's folder.")},
    {QT_TRANSLATE_NOOP("Finding",
        "The font \"%1\" is not on this machine; \"%2\" stands in for it. Bring its file in the bundle and name that as the font.")},
    {QT_TRANSLATE_NOOP("Finding",
         "%1 is broken inside a word: its letters are set apart by trackingEm, and a line of %2 px has no room for all of it."),
        "1"},
    {QT_TRANSLATE_NOOP("Finding",
        "Make trackingEm or sizeFraction smaller, maxWidthFraction larger, or end lines by line feeds.")},
    {QT_TRANSLATE_NOOP("Finding",
         "%1 is broken inside a word: a line has room for %2 px, and a word is wider at this size."),
        "1"},
    {QT_TRANSLATE_NOOP("Finding", "Make sizeFraction smaller or maxWidthFraction larger.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 takes %2 lines, %3 px high, in a frame of %4 px."), "1"},
    {QT_TRANSLATE_NOOP(
        "Finding", "Make it smaller, shorter or wider, or let several layers say it one after another.")},
    {QT_TRANSLATE_NOOP(
         "Finding", "%1 is drawn %2 px from where it is put, to stay inside the frame with its margins."),
        "1"},
    {QT_TRANSLATE_NOOP("Finding", "Put it at %1, where it is drawn, or make it smaller.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 is never seen: %2"), "12"},
    {QT_TRANSLATE_NOOP(
        "Finding", "Device %1 of the %2 of this formation is outside the frame for most of the time.")},
    {QT_TRANSLATE_NOOP(
        "Finding", "Devices %1 of the %2 of this formation are outside the frame for most of the time.")},
    {QT_TRANSLATE_NOOP("Finding", "Use a smaller spread or fewer devices.")},
    {QT_TRANSLATE_NOOP("Finding", "%1 shows nothing but its background for its first %2 s.")},
    {QT_TRANSLATE_NOOP("Finding", "Let something appear within half a second.")},
};

// What the judge puts into its sentences.
constexpr Sentence parts[] = {
    {QT_TRANSLATE_NOOP("FindingPart", "layer")},
    {QT_TRANSLATE_NOOP("FindingPart", "keyframe")},
    {QT_TRANSLATE_NOOP("FindingPart", " for the start")},
    {QT_TRANSLATE_NOOP("FindingPart", " for the end")},
    {QT_TRANSLATE_NOOP("FindingPart", " (device ids: %1)")},
    {QT_TRANSLATE_NOOP("FindingPart", "motion")},
    {QT_TRANSLATE_NOOP("FindingPart", "formation")},
    {QT_TRANSLATE_NOOP("FindingPart", "at least %1")},
    {QT_TRANSLATE_NOOP("FindingPart", "at most %1")},
    {QT_TRANSLATE_NOOP("FindingPart", "between %1 and %2")},
    {QT_TRANSLATE_NOOP("FindingPart", "the formation \"%1\"")},
    {QT_TRANSLATE_NOOP("FindingPart", "the motion \"%1\"")},
    {QT_TRANSLATE_NOOP("FindingPart", "the formation \"%1\", which leaves the device flat")},
    {QT_TRANSLATE_NOOP("FindingPart", "the motion \"%1\", which leaves the device flat")},
    {QT_TRANSLATE_NOOP("FindingPart", "A fill covers the whole frame")},
    {QT_TRANSLATE_NOOP("FindingPart", "A video stands in its rect, or fills the frame")},
    {QT_TRANSLATE_NOOP("FindingPart", "A device stands in the middle of the frame, moved by its placement")},
    {QT_TRANSLATE_NOOP("FindingPart", "no parameters")},
    {QT_TRANSLATE_NOOP("FindingPart", "1 word")},
    {QT_TRANSLATE_NOOP("FindingPart", "%1 words")},
    {QT_TRANSLATE_NOOP("FindingPart", "none (older recording without labels — re-record)")},
    {QT_TRANSLATE_NOOP("FindingPart", "device screen")},
    {QT_TRANSLATE_NOOP("FindingPart", "reel on the device screen")},
    {QT_TRANSLATE_NOOP("FindingPart", "video")},
    {QT_TRANSLATE_NOOP("FindingPart", "this %1 layer"), "1"},
    {QT_TRANSLATE_NOOP("FindingPart", "This %1 layer"), "1"},
    {QT_TRANSLATE_NOOP("FindingPart", "The emphasis in %1"), "1"},
    {QT_TRANSLATE_NOOP("FindingPart", "text")},
    {QT_TRANSLATE_NOOP("FindingPart", "device")},
    {QT_TRANSLATE_NOOP("FindingPart", "image")},
    {QT_TRANSLATE_NOOP("FindingPart", "shape")},
    {QT_TRANSLATE_NOOP("FindingPart", "fill")},
    {QT_TRANSLATE_NOOP("FindingPart", "%1 lies in front of all of it."), "1"},
    {QT_TRANSLATE_NOOP("FindingPart", "it stays outside the frame.")},
    {QT_TRANSLATE_NOOP("FindingPart", "it stays too small or too clear to be seen.")},
    {QT_TRANSLATE_NOOP("FindingPart", "it has no size.")},
    {QT_TRANSLATE_NOOP("FindingPart", "it stays clear; look at its opacity.")},
    {QT_TRANSLATE_NOOP("FindingPart", "There is no such file.")},
    {QT_TRANSLATE_NOOP("FindingPart", "It is not a file.")},
    {QT_TRANSLATE_NOOP("FindingPart", "The file cannot be read.")},
    {QT_TRANSLATE_NOOP("FindingPart", "It is not a PNG, JPEG, WebP, HEIC or AVIF image.")},
    {QT_TRANSLATE_NOOP("FindingPart", "The image is damaged: the file ends early.")},
    {QT_TRANSLATE_NOOP("FindingPart", "flashes")},
    {QT_TRANSLATE_NOOP("FindingPart", "flashes of red")},
    {QT_TRANSLATE_NOOP("FindingPart", "from %1 to %2 s")},
};

class Sentences {
public:
    template <std::size_t count>
    Sentences(const char* context, const Sentence (&all)[count]) : context_(context) {
        for (const Sentence& sentence : all) readers_.push_back(readerOf(sentence));
        // The one that leaves the least open: "the text has 1 word" before "the text has %2".
        std::ranges::stable_sort(
            readers_, std::greater(), [](const Reader& reader) { return reader.fixedLength; });
    }

    std::optional<QString> translated(const QString& said) const;

private:
    struct Reader {
        const Sentence* sentence;
        QRegularExpression expression;
        QString longestPiece;   // a quick look tells most of them apart
        qsizetype fixedLength;
    };
    static Reader readerOf(const Sentence& sentence);

    const char* context_;
    std::vector<Reader> readers_;
};

const Sentences& wholeSentences() {
    static const Sentences all("Finding", sentences);
    return all;
}

const Sentences& partsOfSentences() {
    static const Sentences all("FindingPart", parts);
    return all;
}

Sentences::Reader Sentences::readerOf(const Sentence& sentence) {
    static const QRegularExpression place(QStringLiteral("%[1-9]"));
    const QStringList pieces = words(sentence.pattern).split(place);
    QStringList escaped;
    QString longest;
    qsizetype length = 0;
    for (const QString& piece : pieces) {
        escaped << QRegularExpression::escape(piece);
        length += piece.size();
        if (piece.size() > longest.size()) longest = piece;
    }
    const QString whole = QRegularExpression::anchoredPattern(escaped.join(QStringLiteral("(.*?)")));
    return {&sentence, QRegularExpression(whole, QRegularExpression::DotMatchesEverythingOption), longest,
        length};
}

// The words that are put in may hold "%1" themselves.
QString filled(const QString& pattern, const QStringList& arguments) {
    QString text;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const int number =
            pattern[i] == QLatin1Char('%') && i + 1 < pattern.size() ? pattern[i + 1].digitValue() : 0;
        if (number < 1 || number > arguments.size()) {
            text += pattern[i];
        } else {
            text += arguments[number - 1];
            ++i;
        }
    }
    return text;
}

std::optional<QString> Sentences::translated(const QString& said) const {
    for (const Reader& reader : readers_) {
        if (!said.contains(reader.longestPiece)) continue;
        const QRegularExpressionMatch match = reader.expression.match(said);
        if (!match.hasMatch()) continue;
        QStringList arguments = match.capturedTexts().mid(1);
        for (const char* number = reader.sentence->parts; *number != 0; ++number) {
            QString& argument = arguments[*number - '1'];
            argument = partsOfSentences().translated(argument).value_or(argument);
        }
        return filled(QCoreApplication::translate(context_, reader.sentence->pattern), arguments);
    }
    return std::nullopt;
}

}   // namespace

std::optional<QString> knownFinding(const QString& sentence) { return wholeSentences().translated(sentence); }

QString findingWords(const std::string& sentence) {
    const QString said = words(sentence);
    return knownFinding(said).value_or(said);
}

}   // namespace tavix::editor
