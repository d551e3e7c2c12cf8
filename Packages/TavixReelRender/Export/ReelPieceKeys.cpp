#include "TavixReelRender/Export/ReelPieceKeys.h"

#include "TavixBase/ContentHash.h"
#include "TavixBase/Failure.h"
#include "TavixBase/Hash.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Project/ReelAssets.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Assets/ProgramIdentity.h"
#include "TavixRender/Export/KeyParts.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix {

namespace {

constexpr std::uint64_t formOfKeys = 1;   // counts with what stands in a key

template <class T> Digest digestOf(const T& record) { return contentHash(encodedJson(record)); }

// What all frames share: the document without what is told frame by frame, and without what is heard.
EffectsSpec shared(EffectsSpec spec, bool isPlaced) {
    spec.soundCues.clear();
    if (spec.narration) spec.narration->captions.clear();
    if (isPlaced) return spec;   // where the device goes depends on the whole clock
    spec.titleCards.clear();
    spec.cuts.clear();
    spec.retimeTrack.clear();
    spec.cameraTrack.clear();
    spec.motion = {};
    spec.setTransitions({});
    return spec;
}

void addSegment(Hash& hash, const ReelTimeline::ReelSegment& segment) {
    hash.kind(segment.index());
    if (const auto* piece = std::get_if<RetimedSegment>(&segment))
        hash.add(piece->range.startSec).add(piece->range.endSec).add(piece->speed);
    else
        hash.add(std::get<ReelTimeline::CardSegment>(segment).durationSec);
}

}   // namespace

ReelPieceKeys::ReelPieceKeys(const ReelExport::Config& config, const FilmFile& encoding)
    : config_(config), segments_(reelSegments(config.spec, config.footage)), camera_(config.spec),
      isPlaced_(config.spec.devicePlacement() || config.spec.deviceScene) {
    const EffectsSpec& spec = config.spec;
    if (spec.cutDressing) seamsSec_ = ReelTimeline::cutSeamsSec(segments_);
    const ReelFootage& footage = config.footage;
    Hash common;
    common.add(formOfKeys).add(programIdentity());
    KeyParts::addEncoding(common, encoding);
    common.add(double(config.fps)).add(footage.durationSec);
    common.add(std::uint64_t(footage.size.width)).add(std::uint64_t(footage.size.height));
    files_.emplace_back(footage.video, FileIdentity::of(footage.video));
    EffectsSpec named = shared(spec, false);
    if (spec.narration) named.narration->captions = spec.narration->captions;
    named.titleCards = spec.titleCards;
    ReelAssets::forEach(named, [&](AssetKind, std::string& path) {
        if (path.empty()) return;
        const auto file =
            CompositionAssets::resolved(CompositionAssets::tildeExpanded(path).string(), config.assetRoot);
        files_.emplace_back(file, FileIdentity::of(file));
    });
    try {
        common.add(digestOf(shared(spec, isPlaced_)));
        if (isPlaced_)
            for (const auto& segment : segments_) addSegment(common, segment);
        for (const TitleCard& card : spec.titleCards) cards_.push_back(digestOf(card));
        if (spec.narration)
            for (const Caption& caption : spec.narration->captions)
                captions_.push_back({caption.window, digestOf(caption)});
    } catch (const Failure&) {
        return;   // with numbers that cannot be written
    }
    for (const auto& [path, identity] : files_) {
        const auto content = identity ? KeyParts::contentOf(path) : Digest();
        if (!content) return;
        common.add(*content);
    }
    common_ = common.digest();
}

double ReelPieceKeys::cutLight(double compositionSec) const {
    if (seamsSec_.empty()) return 0;
    const double nearest = *std::ranges::min_element(
        seamsSec_, {}, [=](double seamSec) { return std::abs(compositionSec - seamSec); });
    return config_.spec.cutDressing->alpha(compositionSec, nearest);
}

void ReelPieceKeys::addFootage(Hash& hash, double preCutSec, double compositionSec) const {
    const CameraSample camera = camera_.sample(preCutSec);
    hash.add(config_.footage.trim().startSec + preCutSec);
    hash.add(preCutSec).add(camera.scale).add(camera.center.x).add(camera.center.y);
    if (isPlaced_) hash.add(compositionSec);
    hash.add(cutLight(compositionSec));
    for (const ScreenTransition& transition : config_.spec.transitions())
        if (transition.atSec <= preCutSec && preCutSec < transition.revealSec) hash.add(digestOf(transition));
    for (const CaptionKey& caption : captions_)
        if (caption.window.startSec <= preCutSec && preCutSec < caption.window.endSec)
            hash.add(caption.digest);
    if (config_.spec.retimeFrames != RetimeFrames::blend) return;
    for (const auto& segment : segments_) {   // its pace tells what is mixed
        const auto* piece = std::get_if<RetimedSegment>(&segment);
        if (piece && piece->range.startSec <= preCutSec && preCutSec < piece->range.endSec)
            addSegment(hash, segment);
    }
}

std::optional<Digest> ReelPieceKeys::of(const FilmPiece& piece) const {
    if (!common_) return std::nullopt;
    Hash hash;
    hash.add(*common_).add(std::uint64_t(piece.frameCount));
    for (std::int64_t i = 0; i < piece.frameCount; ++i) {
        const double compositionSec = config_.fps.secAt(piece.firstFrame + i);
        const auto at = ReelTimeline::locate(compositionSec + ReelFilm::roundingSec, segments_);
        hash.kind(at.index());
        if (const auto* card = std::get_if<ReelTimeline::CardTime>(&at))
            hash.add(cards_.at(card->index)).add(card->localSeconds);
        else
            addFootage(hash, std::get<ReelTimeline::FootageTime>(at).originalSeconds, compositionSec);
    }
    return hash.digest();
}

bool ReelPieceKeys::holds(const FilmPiece&) const {
    return std::ranges::all_of(
        files_, [](const auto& file) { return FileIdentity::of(file.first) == file.second; });
}

}   // namespace tavix
