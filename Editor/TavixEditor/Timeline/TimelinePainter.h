// Draws what of the timeline lies in a rectangle. Texts are shaped once, diamonds stamped, beat lines laid
// into one row of pixels that a texture repeats, and the waveform read from its pyramid, for the visible
// columns alone.
#pragma once

#include "Editor/EditorDomain/Timeline/TimelineDrag.h"
#include "Editor/EditorDomain/Timeline/TimelineLayout.h"
#include "Editor/EditorDomain/Timeline/Waveform.h"
#include "TavixCore/Document/BeatAnalysis.h"
#include "TavixLive/Playback/DrawAhead.h"

#include <QPixmap>
#include <QRect>
#include <QStaticText>

#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace tavix::editor {

class TimelinePainter {
public:
    struct Shown {
        const timeline::Scene& scene;
        const timeline::Layout& layout;
        const std::vector<timeline::Drag::MarkPlace>& marks;   // selected keyframes
        timeline::Hit hover;
        const std::vector<FilmRange>& cached;   // whose pictures are ready
        double pixelRatio = 1;
    };

    // Texts of bars and bands are shaped again for the next drawing.
    void forget();
    // What was heard in it: its sections and its drop are drawn behind the waveform.
    void setMusic(std::shared_ptr<const Waveform> wave, const std::optional<BeatAnalysis>& heard);

    // `content` is a rectangle of the content, and the painter's own coordinates.
    void paintHead(QPainter& painter, const Shown& shown, const QRect& content);
    void paintBody(QPainter& painter, const Shown& shown, const QRect& content);

private:
    void paintRuler(QPainter& painter, const Shown& shown, const QRect& content) const;
    void paintBands(QPainter& painter, const Shown& shown, const QRect& content);
    void paintBeats(QPainter& painter, const Shown& shown, const QRect& content) const;
    void paintBars(QPainter& painter, const Shown& shown, const QRect& content);
    void paintBar(QPainter& painter, const Shown& shown, std::size_t index, const QRectF& box);
    void paintSound(QPainter& painter, const Shown& shown, const QRect& content) const;
    void paintWave(QPainter& painter, const Shown& shown, const QRect& strip) const;
    void paintSections(QPainter& painter, const Shown& shown, const QRect& strip) const;
    void paintDrop(QPainter& painter, const Shown& shown, const QRect& strip) const;
    void paintKeyframes(QPainter& painter, const Shown& shown, const QRect& content);
    const QStaticText& label(
        std::vector<QStaticText>& cache, std::size_t index, const std::string& text) const;
    const QPixmap& diamond(bool isSelected, double ratio);

    std::vector<QStaticText> barLabels_, bandLabels_;
    QPixmap diamonds_[2];
    std::shared_ptr<const Waveform> wave_;
    std::optional<BeatAnalysis> heard_;   // its times are of the music's file
};

}   // namespace tavix::editor
