// By what pieces of a reel's film are known. A key is made of what the piece's frames show: where the camera
// stands, which caption or card is in sight, and what all frames share.
#pragma once

#include "TavixReel/Camera/ReelCamera.h"
#include "TavixReelRender/Export/ReelExport.h"
#include "TavixRender/Assets/FileIdentity.h"

#include <utility>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class ReelPieceKeys final : public PiecedFilm::Keys {
public:
    // Reads the recording and the files that the document names. The config must outlive this.
    ReelPieceKeys(const ReelExport::Config& config, const FilmFile& encoding);

    std::optional<Digest> of(const FilmPiece& piece) const override;
    bool holds(const FilmPiece& piece) const override;

private:
    struct CaptionKey {
        TimeRangeSec window;
        Digest digest;
    };
    void addFootage(Hash& hash, double preCutSec, double compositionSec) const;
    double cutLight(double compositionSec) const;

    const ReelExport::Config& config_;
    std::vector<ReelTimeline::ReelSegment> segments_;
    std::vector<double> seamsSec_;
    ReelCamera camera_;
    bool isPlaced_;   // the device has a place or a turn of its own, by the finished reel's clock
    std::vector<CaptionKey> captions_;
    std::vector<Digest> cards_;
    std::optional<Digest> common_;   // nothing when a file cannot be read
    std::vector<std::pair<std::filesystem::path, std::optional<FileIdentity>>> files_;
};

}   // namespace tavix
