#include "Engine/Reel/ReelPlot.h"

#include "Engine/Reel/PlotCanvas.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Names.h"
#include "TavixReel/Captions/CaptionLaneLayout.h"

#include <algorithm>
#include <cmath>

namespace tavix::engine {

namespace {

using imaging::Color;

constexpr Color ground{0.085, 0.087, 0.094, 1}, panel{0.13, 0.135, 0.147, 1};
constexpr Color quietInk{0.62, 0.63, 0.66, 1}, brightInk{0.95, 0.95, 0.96, 1}, line{0.24, 0.245, 0.26, 1};
constexpr Color zoomInk{0.36, 0.78, 0.71, 1}, acrossInk{0.96, 0.68, 0.32, 1}, downInk{0.55, 0.66, 0.98, 1};
constexpr Color footageFill{0.26, 0.28, 0.32, 1}, fastFill{0.42, 0.36, 0.2, 1}, cardFill{0.45, 0.3, 0.62, 1};
constexpr Color cutInk{0.95, 0.33, 0.36, 1}, captionFill{0.2, 0.42, 0.66, 1},
    transitionFill{0.62, 0.28, 0.4, 1};

constexpr double leftPx = 110, rightPx = 28, topPx = 24, widthPx = 1600, gapPx = 14, smallPx = 13;

class Plotter {
public:
    Plotter(const ReelStory& story, double heightPx)
        : story_(story), canvas_({int(widthPx), int(heightPx)}, ground),
          secPx_((widthPx - leftPx - rightPx) / std::max(story.durationSec, 0.001)) {}

    void axis(double bottomPx) {
        const double stepSec = story_.durationSec > 90   ? 10
                               : story_.durationSec > 40 ? 5
                               : story_.durationSec > 15 ? 2
                                                         : 1;
        for (int i = 0; i * stepSec <= story_.durationSec; ++i) {
            const double x = xOf(i * stepSec);
            canvas_.fill({x, topPx, 1, bottomPx - topPx}, 0, line);
            canvas_.text(decimals(i * stepSec, 0) + " s", x - 8, bottomPx + 20, smallPx, quietInk);
        }
    }

    // Ticks with what was done; words that would run into others go a line down.
    void steps(PlotBox box) {
        label("steps", box);
        std::vector<double> endsPx(3, 0);
        for (const auto& step : story_.steps) {
            const double x = xOf(step.atSec);
            canvas_.fill({x - 1, box.y, 2, box.height}, 1, brightInk);
            const auto free = std::ranges::find_if(endsPx, [x](double end) { return end < x; });
            if (free == endsPx.end()) continue;
            const double y = box.y + 16 + 18 * double(free - endsPx.begin());
            const std::string words = step.event.label.value_or(step.event.type);
            *free = x + 14 + canvas_.text(words, x + 6, y, smallPx, quietInk);
        }
    }

    void zoom(PlotBox box) {
        double most = 1.25;
        for (const CameraSample& sample : story_.path) most = std::max(most, sample.scale);
        rowPanel("scale", box);
        canvas_.text("× " + twoDecimals(most), 20, box.y + 14, smallPx, quietInk);
        canvas_.text("× 1", 20, box.maxY(), smallPx, quietInk);
        std::vector<double> values;
        for (const CameraSample& sample : story_.path) values.push_back((sample.scale - 1) / (most - 1));
        canvas_.curve(box, values, zoomInk);
        for (const auto& move : story_.camera)
            canvas_.fill({xOf(move.atSec) - 3, box.maxY() - 6, 6, 6}, 3, zoomInk);
    }

    void center(PlotBox box) {
        rowPanel("centre", box);
        canvas_.text("across", 20, box.y + box.height / 2 + 26, smallPx, acrossInk);
        canvas_.text("down", 20, box.y + box.height / 2 + 44, smallPx, downInk);
        std::vector<double> across, down;
        for (const CameraSample& sample : story_.path) {
            across.push_back(sample.center.x / std::max(double(story_.video.widthPx), 1.0));
            down.push_back(1 - sample.center.y / std::max(double(story_.video.heightPx), 1.0));
        }
        canvas_.curve(box, across, acrossInk);
        canvas_.curve(box, down, downInk);
    }

    void footage(PlotBox box) {
        label("footage", box);
        canvas_.fill(box, 4, footageFill);
        for (const auto& pace : story_.paces)
            bar(pace.range, box, fastFill, "×" + decimals(pace.speed, pace.speed < 10 ? 1 : 0));
        for (const auto& card : story_.cards) bar(card.range, box, cardFill, card.headline);
        for (const auto& transition : story_.transitions)
            bar(transition.range, {box.x, box.maxY() - 18, box.width, 18}, transitionFill,
                std::string(nameOf(transition.style)));
        for (const auto& cut : story_.cuts)
            canvas_.fill({xOf(cut.atSec) - 1.5, box.y - 5, 3, box.height + 10}, 1, cutInk);
    }

    void captions(PlotBox box, const std::map<std::size_t, std::size_t>& rows) {
        label("captions", box);
        for (std::size_t i = 0; i < story_.captions.size(); ++i)
            bar(story_.captions[i].range, {box.x, box.y + 34 * double(rows.at(i)), box.width, 30},
                captionFill, story_.captions[i].text);
    }

    imaging::Bitmap draw() const { return canvas_.draw(); }

private:
    double xOf(double atSec) const { return leftPx + atSec * secPx_; }

    void label(const char* words, const PlotBox& box) {
        canvas_.text(words, 20, box.y + box.height / 2 + 5, 15, brightInk);
    }
    void rowPanel(const char* words, const PlotBox& box) {
        canvas_.fill(
            {box.x - 4, box.y - 4, box.width + 8, box.height + 8}, 6, {panel.r, panel.g, panel.b, 0.7});
        label(words, box);
    }
    void bar(const TimeRangeSec& range, const PlotBox& row, const Color& color, const std::string& words) {
        const double width = std::max((range.endSec - range.startSec) * secPx_, 2.0);
        canvas_.fill({xOf(range.startSec), row.y, width, row.height}, 4, color);
        canvas_.text(
            words, xOf(range.startSec) + 7, row.y + row.height / 2 + 5, smallPx, brightInk, width - 12);
    }

    const ReelStory& story_;
    PlotCanvas canvas_;
    double secPx_;
};

std::map<std::size_t, std::size_t> captionRows(const ReelStory& story, std::size_t& rowCount) {
    std::vector<CaptionLaneLayout::Window> windows;
    for (std::size_t i = 0; i < story.captions.size(); ++i) windows.push_back({i, story.captions[i].range});
    const auto rows = CaptionLaneLayout::rowAssignment(windows, {});
    rowCount = 1;
    for (const auto& [index, row] : rows) rowCount = std::max(rowCount, row + 1);
    return rows;
}

}   // namespace

imaging::Bitmap plotOf(const ReelStory& story) {
    std::size_t rowCount = 1;
    const auto rows = captionRows(story, rowCount);
    const double innerPx = widthPx - leftPx - rightPx;
    double y = topPx;
    const auto next = [&](double heightPx) {
        const PlotBox box{leftPx, y, innerPx, heightPx};
        y += heightPx + gapPx;
        return box;
    };
    const PlotBox steps = next(58), zoom = next(190), center = next(190), footage = next(46);
    const PlotBox captions = next(34 * double(rowCount));
    Plotter plotter(story, y + 34);
    plotter.axis(y);
    plotter.steps(steps);
    plotter.zoom(zoom);
    plotter.center(center);
    plotter.footage(footage);
    plotter.captions(captions, rows);
    return plotter.draw();
}

}   // namespace tavix::engine
