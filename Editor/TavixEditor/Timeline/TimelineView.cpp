#include "TavixEditor/Timeline/TimelineView.h"
#include "TavixEditor/App/DocumentText.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDomain/Timeline/TimelineScale.h"
#include "TavixEditor/Timeline/MusicPicture.h"
#include "TavixEditor/Timeline/TimelineCanvas.h"
#include "TavixEditor/Timeline/TimelineGutter.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QSlider>
#include <QToolButton>

#include <cmath>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int zoomSteps = 100;   // of the slider, from the least to the most, each by the same factor

int sliderOf(double zoom) {
    return int(std::lround(std::log(zoom) / std::log(timeline::mostZoom) * zoomSteps));
}
double zoomOf(int slider) { return std::pow(timeline::mostZoom, double(slider) / zoomSteps); }

class TimelinePanel final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(TimelinePanel)
public:
    TimelinePanel(CompositionEditorModel& model, QWidget* parent);

private:
    QWidget* makeHeader();
    void follow();
    void showSelection();
    void showMusic();
    void showHeard();

    CompositionEditorModel& model_;
    TimelineCanvas* canvas_;
    TimelineGutter* gutter_;
    QScrollBar *across_, *down_;
    QSlider* zoom_ = nullptr;
    QLabel* summary_ = nullptr;
    QWidget* focusLine_ = nullptr;
    std::filesystem::path music_;   // whose picture is shown, or on its way
    MusicPicture picture_;
    Connections connections_;
};

TimelinePanel::TimelinePanel(CompositionEditorModel& model, QWidget* parent)
    : QWidget(parent), model_(model) {
    onGround(this, QPalette::Window);
    canvas_ = new TimelineCanvas(model);
    gutter_ = new TimelineGutter(*canvas_);
    across_ = new QScrollBar(Qt::Horizontal);
    down_ = new QScrollBar(Qt::Vertical);
    for (QScrollBar* const bar : {across_, down_}) bar->setFocusPolicy(Qt::NoFocus);
    focusLine_ = new QWidget;
    focusLine_->setFixedHeight(2);
    focusLine_->setAutoFillBackground(true);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(focusLine_, 0, 0, 1, 3);
    grid->addWidget(makeHeader(), 1, 0, 1, 3);
    grid->addWidget(gutter_, 2, 0);
    grid->addWidget(canvas_, 2, 1);
    grid->addWidget(down_, 2, 2);
    grid->addWidget(across_, 3, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    setFocusProxy(canvas_);

    canvas_->onView = [this] { follow(); };
    canvas_->onFocus = [this](bool hasFocus) {
        QPalette palette = focusLine_->palette();
        palette.setColor(QPalette::Window, hasFocus ? Style::theme().focus : Style::theme().panel);
        focusLine_->setPalette(palette);
    };
    canvas_->onFocus(false);
    connect(across_, &QScrollBar::valueChanged, this,
        [this](int x) { canvas_->setScroll(x, canvas_->scrollY()); });
    connect(
        down_, &QScrollBar::valueChanged, this, [this](int y) { canvas_->setScroll(canvas_->scrollX(), y); });
    connections_.push_back(tavix::show([this] { showSelection(); }, model_.state.edited));
    connections_.push_back(tavix::show([this] { showMusic(); }, model_.state.edited, model_.state.bundle));
    connections_.push_back(watch([this] { showHeard(); }, model_.state.musicAnalysis));
    follow();
}

QWidget* TimelinePanel::makeHeader() {
    auto* header = new QWidget;
    header->setFixedHeight(height::row);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(space::medium, 0, space::medium, 0);
    row->setSpacing(space::medium);
    summary_ = makeLabel({}, TextSize::caption, Tone::secondary);
    auto* snapping = new QCheckBox(tr("Snap"));
    snapping->setFont(fontOf(TextSize::caption));
    snapping->setChecked(true);
    snapping->setToolTip(
        tr("Dragged things stick to the playhead, to ends and to beats. Hold Ctrl to drag freely."));
    connect(snapping, &QCheckBox::toggled, this, [this](bool isOn) { canvas_->setSnapping(isOn); });
    auto* less = makeIconButton(Icon::zoomOut, tr("Show more of the film (−)"));
    auto* more = makeIconButton(Icon::zoomIn, tr("Show it larger (+)"));
    zoom_ = new QSlider(Qt::Horizontal);
    zoom_->setRange(0, zoomSteps);
    zoom_->setFixedWidth(120);
    zoom_->setAccessibleName(tr("Zoom of the timeline"));
    connect(zoom_, &QSlider::valueChanged, this, [this](int value) { canvas_->setZoom(zoomOf(value)); });
    connect(less, &QToolButton::clicked, this, [this] { zoom_->setValue(zoom_->value() - zoomSteps / 8); });
    connect(more, &QToolButton::clicked, this, [this] { zoom_->setValue(zoom_->value() + zoomSteps / 8); });
    row->addWidget(summary_, 1);
    row->addWidget(snapping);
    row->addWidget(less);
    row->addWidget(zoom_);
    row->addWidget(more);
    return header;
}

void TimelinePanel::follow() {
    const timeline::Scale& scale = canvas_->layout().scale;
    {
        const QSignalBlocker quietly(across_), too(down_), three(zoom_);
        across_->setRange(0, std::max(0, int(std::ceil(scale.contentWidth())) - canvas_->width()));
        across_->setPageStep(canvas_->width());
        across_->setSingleStep(40);
        across_->setValue(int(canvas_->scrollX()));
        down_->setRange(0, canvas_->mostScrollY());
        down_->setPageStep(canvas_->height());
        down_->setSingleStep(timeline::Layout::rowHeight);
        down_->setValue(canvas_->scrollY());
        zoom_->setValue(sliderOf(scale.zoom));
    }
    across_->setVisible(across_->maximum() > 0);
    down_->setVisible(down_->maximum() > 0);
    gutter_->update();
}

void TimelinePanel::showSelection() {
    const QString words = selectionWords(model_.state.edited());
    summary_->setText(words.isEmpty() ? tr("Nothing selected") : words);
}

void TimelinePanel::showMusic() {
    const std::filesystem::path file = musicFileOf(model_);
    if (file == music_) return;
    music_ = file;
    picture_ = {};
    showHeard();
    if (file.empty()) return;
    loadMusicPicture(file, this, [this, file](const MusicPicture& picture) {
        if (file != music_) return;
        picture_ = picture;
        showHeard();
    });
}

// What was heard just now is newer than what lies beside the file.
void TimelinePanel::showHeard() {
    const auto& heard = model_.state.musicAnalysis();
    canvas_->setMusic(picture_.wave, heard ? heard : picture_.heard);
}

}   // namespace

QWidget* makeTimelineView(CompositionEditorModel& model, QWidget* parent) {
    return new TimelinePanel(model, parent);
}

}   // namespace tavix::editor
