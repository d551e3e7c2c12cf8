#include "TavixRender/Export/PieceKeys.h"

#include "TavixBase/ContentHash.h"
#include "TavixBase/Failure.h"
#include "TavixBase/Hash.h"
#include "TavixCore/Support/Document.h"
#include "TavixRender/Assets/ProgramIdentity.h"
#include "TavixRender/Export/KeyParts.h"

#include <vector>

namespace tavix {

namespace {

constexpr std::uint64_t formOfKeys = 1;   // counts with what stands in a key

// The document without its scenes, and without what no frame shows.
Digest rest(const CompositionSpec& spec) {
    CompositionSpec rest = spec;
    rest.scenes.clear();
    rest.audio.reset();
    rest.lint.reset();
    rest.assetRoot.reset();   // where files lie; what is in them counts
    return contentHash(encodedJson(rest));
}

}   // namespace

PieceKeys::PieceKeys(const CompositionRenderer::Config& config, const FilmFile& encoding)
    : spec_(config.spec), assetRoot_(config.assetRoot), timeline_(spec_) {
    if (!assetRoot_ && spec_.assetRoot) assetRoot_ = *spec_.assetRoot;
    Hash document;
    document.add(formOfKeys).add(rest(spec_));
    KeyParts::addEncoding(document, encoding);
    document_ = document.digest();
    common_ = Hash().add(document_).add(programIdentity()).digest();
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) scenes_.push_back(sceneKey(i));
}

PieceKeys::SceneKey PieceKeys::sceneKey(std::size_t scene) const {
    const CompositionScene& record = spec_.scenes[scene];
    const BackgroundFill& fill = record.background ? *record.background : spec_.background;
    SceneKey key;
    key.files = filesOf(record, spec_.fonts, assetRoot_);
    const std::vector<UsedFile> ofFill = filesOf(fill, assetRoot_);
    key.files.insert(key.files.end(), ofFill.begin(), ofFill.end());
    Hash hash;
    hash.add(std::uint64_t(scene));   // texts move by its number too
    try {
        hash.add(contentHash(encodedJson(record)));
    } catch (const Failure&) {
        return key;   // with numbers that cannot be written
    }
    for (const auto& [path, identity] : key.files) {
        const auto content = identity ? KeyParts::contentOf(path) : Digest();
        if (!content) return key;
        hash.add(*content);
    }
    key.digest = hash.digest();
    return key;
}

// Calls visit(frame's sample) for every frame.
template <class Visit> void PieceKeys::forScenesOf(const FilmPiece& piece, const Visit& visit) const {
    for (std::int64_t i = 0; i < piece.frameCount; ++i)
        if (const auto sample = timeline_.sample(spec_.output.fps.secAt(piece.firstFrame + i)))
            visit(*sample);
}

std::optional<Digest> PieceKeys::keyed(const Digest& common, const FilmPiece& piece) const {
    Hash hash;
    hash.add(common).add(std::uint64_t(piece.frameCount));
    bool isTold = true;
    const auto add = [&](const CompositionTimeline::ActiveScene& active) {
        const auto& digest = scenes_[active.index].digest;
        isTold = isTold && digest;
        hash.add(digest.value_or(Digest())).add(active.localSeconds);
    };
    forScenesOf(piece, [&](const CompositionTimeline::Sample& sample) {
        add(sample.outgoing);
        hash.add(sample.progress).add(sample.incoming.has_value());
        if (sample.incoming) add(*sample.incoming);
    });
    return isTold ? std::optional(hash.digest()) : std::nullopt;
}

bool PieceKeys::holds(const FilmPiece& piece) const {
    bool holds = true;
    const auto look = [&](const CompositionTimeline::ActiveScene& active) {
        for (const auto& [path, identity] : scenes_[active.index].files)
            holds = holds && FileIdentity::of(path) == identity;
    };
    std::optional<std::size_t> last;
    forScenesOf(piece, [&](const CompositionTimeline::Sample& sample) {
        if (last == sample.outgoing.index && !sample.incoming) return;
        last = sample.outgoing.index;
        look(sample.outgoing);
        if (sample.incoming) look(*sample.incoming);
    });
    return holds;
}

}   // namespace tavix
