#include "TavixEditor/Windows/GalleryPlayer.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"

#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QToolButton>

namespace tavix::editor {

using namespace design;

// The picture, as large as there is room for.
class GalleryPlayer::Screen final : public QWidget {
public:
    Screen() {
        setMinimumSize(PresetGalleryModel::canvasWidthPx / 2, PresetGalleryModel::canvasHeightPx / 2);
        setAccessibleName(GalleryPlayer::tr("The motion as it plays"));
    }
    void show(const StagePicture& picture) {
        const auto view = picture.pixels->view();
        image_ = QImage(
            view.pixels, view.size.width, view.size.height, qsizetype(view.strideBytes), QImage::Format_RGB32)
                     .copy();
        update();
    }
    void clear() {
        image_ = {};
        update();
    }
    QSize sizeHint() const override {
        return {PresetGalleryModel::canvasWidthPx, PresetGalleryModel::canvasHeightPx};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QSize canvas(PresetGalleryModel::canvasWidthPx, PresetGalleryModel::canvasHeightPx);
        QRect place(QPoint(), canvas.scaled(size(), Qt::KeepAspectRatio));
        place.moveCenter(rect().center());
        if (image_.isNull()) return drawBox(painter, place, radius::card, Style::theme().field);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QPainterPath outline;
        outline.addRoundedRect(place, radius::card, radius::card);
        painter.setClipPath(outline);
        painter.drawImage(place, image_);
    }

private:
    QImage image_;
};

GalleryPlayer::GalleryPlayer(PresetGalleryModel& model, QWidget* parent)
    : QWidget(parent), model_(model), screen_(new Screen), title_(makeLabel({}, TextSize::title)),
      about_(makeLabel({}, TextSize::body, Tone::secondary)),
      name_(makeLabel({}, TextSize::caption, Tone::secondary)), error_(makeLabel({}, TextSize::body)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::large, space::medium, space::large, space::medium);
    column->setSpacing(space::small);
    column->addWidget(screen_, 1);
    error_->setWordWrap(true);
    name_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (QLabel* const label : {title_, about_, name_, error_}) column->addWidget(label);
    column->addWidget(makeButtons());
    model_.setStageSink([this](const StagePicture& picture) { screen_->show(picture); });
    connections_.push_back(tavix::show([this] { showItem(); }, model_.selectedID));
    connections_.push_back(
        tavix::show([this] { showState(); }, model_.isPlaying, model_.isLoading, model_.errorMessage));
}

GalleryPlayer::~GalleryPlayer() { model_.setStageSink({}); }

QWidget* GalleryPlayer::makeButtons() {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    restart_ = makeIconButton(Icon::toStart, tr("From the start"), box);
    play_ = makeIconButton(Icon::play, tr("Play"), box);
    row->addWidget(restart_);
    row->addWidget(play_);
    row->addStretch();
    QObject::connect(restart_, &QToolButton::clicked, this, [this] { model_.restart(); });
    QObject::connect(play_, &QToolButton::clicked, this, [this] { model_.togglePlayback(); });
    return box;
}

void GalleryPlayer::showItem() {
    const PresetGalleryItem* const item = model_.selectedItem();
    screen_->clear();
    play_->setEnabled(item != nullptr);
    restart_->setEnabled(item != nullptr);
    if (!item) {
        title_->setText(tr("No motion is chosen"));
        about_->setText(tr("Choose one to see it here."));
        return name_->clear();
    }
    title_->setText(documentLabel(item->title));
    about_->setText(tr("%1 · %2 · %3 s", "a collection, 2D or 3D, the seconds that it takes")
                        .arg(documentLabel(std::string(displayName(item->collection))),
                            words(displayName(item->dimension)))
                        .arg(item->durationSec, 0, 'f', 1));
    name_->setText(tr("In documents: %1").arg(words(item->authoringName())));
}

void GalleryPlayer::showState() {
    const bool isPlaying = model_.isPlaying();
    play_->setIcon(iconOf(isPlaying ? Icon::pause : Icon::play));
    play_->setToolTip(isPlaying ? tr("Pause") : tr("Play"));
    play_->setAccessibleName(play_->toolTip());
    const auto& error = model_.errorMessage();
    error_->setText(error ? words(*error) : model_.isLoading() ? tr("It is being drawn…") : QString());
    error_->setVisible(!error_->text().isEmpty());
}

}   // namespace tavix::editor
