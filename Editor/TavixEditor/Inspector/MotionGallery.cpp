#include "TavixEditor/Inspector/MotionGallery.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/MotionStrips.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Operations/DeviceOperations.h"

#include <QCoreApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int cellWidth = MotionStrips::frameWidth + space::medium,
              cellHeight = MotionStrips::frameHeight + 40;

class Card final : public QStyledItemDelegate {
public:
    Card(MotionStrips& strips, QObject* parent) : QStyledItemDelegate(parent), strips_(strips) {}
    int movingRow = -1, movingFrame = 0;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {cellWidth, cellHeight};
    }
    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const Theme& theme = Style::theme();
        const auto& item = PresetGalleryCatalog::all()[index.data(Qt::UserRole).toUInt()];
        const QRect picture(option.rect.x() + (cellWidth - MotionStrips::frameWidth) / 2,
            option.rect.y() + space::tight, MotionStrips::frameWidth, MotionStrips::frameHeight);
        const bool isMoving = movingRow == index.row(), isChosen = option.state & QStyle::State_Selected;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        QPainterPath outline;
        outline.addRoundedRect(picture, radius::card, radius::card);
        if (const MotionStrips::Strip* const strip = strips_.strip(item)) {
            painter->save();
            painter->setClipPath(outline);
            const int frame = isMoving ? movingFrame : strip->restFrame;
            painter->drawImage(picture, strip->frames,
                QRect(frame * MotionStrips::frameWidth, 0, MotionStrips::frameWidth,
                    MotionStrips::frameHeight));
            painter->restore();
        } else {
            drawBox(*painter, picture, radius::card, theme.field);
        }
        if (isChosen || isMoving)
            drawBox(*painter, QRectF(picture).adjusted(-2, -2, 2, 2), radius::card + 1, Qt::transparent,
                isChosen ? theme.focus : theme.secondary, isChosen ? 2 : 1);
        painter->setFont(fontOf(TextSize::caption));
        const QRect below(option.rect.x(), picture.bottom() + space::tight, cellWidth, 15);
        painter->setPen(theme.text);
        painter->drawText(below, Qt::AlignCenter,
            painter->fontMetrics().elidedText(documentLabel(item.title), Qt::ElideRight, cellWidth));
        painter->setPen(theme.secondary);
        painter->drawText(below.translated(0, 14), Qt::AlignCenter, words(displayName(item.dimension)));
        painter->restore();
    }

private:
    MotionStrips& strips_;
};

class MotionGallery final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(MotionGallery)
public:
    MotionGallery(CompositionEditorModel& model, QWidget* parent, MotionChosen onChosen)
        : QWidget(parent), model_(model), onChosen_(std::move(onChosen)) {
        onGround(this, QPalette::Window);
        search_ = new QLineEdit;
        search_->setFrame(false);
        search_->setClearButtonEnabled(true);
        search_->setPlaceholderText(tr("Search %1 motions").arg(PresetGalleryCatalog::all().size()));
        search_->setAccessibleName(tr("Search motions"));
        list_ = new QListWidget;
        list_->setViewMode(QListView::IconMode);
        list_->setResizeMode(QListView::Adjust);
        list_->setMovement(QListView::Static);
        list_->setUniformItemSizes(true);
        list_->setFrameShape(QFrame::NoFrame);
        list_->setMouseTracking(true);
        list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list_->setAccessibleName(tr("Motions"));
        list_->viewport()->setBackgroundRole(QPalette::Window);
        card_ = new Card(strips_, list_);
        list_->setItemDelegate(card_);
        notice_ = makeLabel({}, TextSize::caption, Tone::secondary);
        notice_->setWordWrap(true);
        replace_ = new QPushButton(tr("Replace"));
        replace_->hide();
        auto* foot = new QHBoxLayout;
        foot->addWidget(notice_, 1);
        foot->addWidget(replace_);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(space::medium, space::medium, space::medium, space::medium);
        column->setSpacing(space::small);
        column->addWidget(makeLabel(tr("Motions"), TextSize::title));
        column->addWidget(search_);
        column->addWidget(list_, 1);
        column->addLayout(foot);
        setFocusProxy(search_);
        strips_.onReady = [list = QPointer<QListWidget>(list_)](const std::string&) {
            if (list) list->viewport()->update();
        };
        connect(search_, &QLineEdit::textChanged, this, [this] { fill(); });
        connect(search_, &QLineEdit::returnPressed, this, [this] {
            if (list_->count() > 0) choose(list_->item(0));
        });
        connect(list_, &QListWidget::itemEntered, this,
            [this](QListWidgetItem* item) { play(list_->row(item)); });
        connect(list_, &QListWidget::viewportEntered, this, [this] { play(-1); });
        connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { play(row); });
        connect(list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { choose(item); });
        connect(list_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { choose(item); });
        connect(replace_, &QPushButton::clicked, this, [this] { apply(); });
        timer_.callOnTimeout(this, [this] {
            card_->movingFrame = (card_->movingFrame + 1) % MotionStrips::frameCount;
            updateRow(card_->movingRow);
        });
        connections_.push_back(tavix::show([this] { showSelection(); }, model_.state.edited));
        fill();
    }

private:
    static bool matches(const PresetGalleryItem& item, const QString& typed) {
        const QString all = documentLabel(item.title) + QLatin1Char(' ') + words(item.title) +
                            QLatin1Char(' ') + documentLabel(std::string(displayName(item.collection))) +
                            QLatin1Char(' ') + documentLabel(std::string(displayName(item.family))) +
                            QLatin1Char(' ') + words(displayName(item.dimension)) + QLatin1Char(' ') +
                            words(item.authoringName());
        for (const QString& word : typed.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            if (!all.contains(word, Qt::CaseInsensitive)) return false;
        return true;
    }

    void fill() {
        play(-1);
        list_->clear();
        const auto& items = PresetGalleryCatalog::all();
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (!matches(items[i], search_->text())) continue;
            auto* item = new QListWidgetItem(documentLabel(items[i].title), list_);
            item->setData(Qt::UserRole, uint(i));
            item->setToolTip(documentLabel(std::string(displayName(items[i].collection))));
        }
        if (list_->count() == 0)
            notice_->setText(tr("No motion is called that."));
        else
            showSelection();
    }

    // Only one moves, and none where the desktop asks for rest.
    void play(int row) {
        if (row == card_->movingRow) return;
        const int before = std::exchange(card_->movingRow, row);
        card_->movingFrame = 0;
        updateRow(before);
        updateRow(row);
        if (row < 0 || isMotionReduced()) return timer_.stop();
        const auto& item = PresetGalleryCatalog::all()[list_->item(row)->data(Qt::UserRole).toUInt()];
        timer_.start(std::max(40, int(std::lround(item.durationSec * 1000 / MotionStrips::frameCount))));
    }
    void updateRow(int row) {
        if (QListWidgetItem* const item = list_->item(row))
            list_->viewport()->update(list_->visualItemRect(item));
    }

    void showSelection() {
        chosen_.reset();
        replace_->hide();
        if (onChosen_) return notice_->clear();
        notice_->setText(motionTarget(model_) == MotionTarget::none
                             ? tr("Select a device to give it a motion.")
                             : tr("A click gives the motion to the selected device."));
    }

    void choose(const QListWidgetItem* item) {
        const std::size_t index = item->data(Qt::UserRole).toUInt();
        if (onChosen_) return onChosen_(PresetGalleryCatalog::all()[index]);
        const MotionTarget target = motionTarget(model_);
        if (target == MotionTarget::none) return showSelection();
        chosen_ = index;
        if (target == MotionTarget::device) return apply();
        notice_->setText(tr("“%1” takes the place of the device's own motion.").arg(item->text()));
        replace_->show();
        replace_->setFocus();
    }

    void apply() {
        if (!chosen_) return;
        const PresetGalleryItem& item = PresetGalleryCatalog::all()[*chosen_];
        giveMotion(model_, item, tr("Motion “%1”").arg(documentLabel(item.title)));
        chosen_.reset();
        replace_->hide();
        notice_->setText(tr("“%1” is applied.").arg(documentLabel(item.title)));
    }

    CompositionEditorModel& model_;
    MotionChosen onChosen_;
    MotionStrips& strips_ = MotionStrips::ofApplication();
    QLineEdit* search_;
    QListWidget* list_;
    Card* card_;
    QLabel* notice_;
    QPushButton* replace_;
    QTimer timer_;
    std::optional<std::size_t> chosen_;
    Connections connections_;
};

}   // namespace

QWidget* makeMotionGallery(CompositionEditorModel& model, QWidget* parent, MotionChosen onChosen) {
    return new MotionGallery(model, parent, std::move(onChosen));
}

namespace {

std::optional<LayerPlace> selectedDevice(const CompositionEditorModel& model) {
    const EditState& state = model.state.edited();
    const std::vector<LayerPlace> places = state.selection.layers();
    if (places.empty()) return std::nullopt;
    const CompositionLayer& layer = state.spec.scenes[places[0].scene].layers[places[0].layer];
    return std::holds_alternative<DeviceContent>(layer.content) ? std::optional(places[0]) : std::nullopt;
}

}   // namespace

MotionTarget motionTarget(const CompositionEditorModel& model) {
    const auto place = selectedDevice(model);
    if (!place) return MotionTarget::none;
    const CompositionSpec& spec = model.state.edited().spec;
    return DeviceOperations::deviceHasAuthoredMotion(spec, place->scene, place->layer)
               ? MotionTarget::movingDevice
               : MotionTarget::device;
}

void giveMotion(CompositionEditorModel& model, const PresetGalleryItem& item, const QString& step) {
    const auto place = selectedDevice(model);
    if (!place) return;
    model.update(utf8Of(step), [&](EditState& state) {
        if (const auto* motion = std::get_if<DeviceMotionPreset>(&item.source)) {
            DeviceMotionRef ref;
            ref.preset = *motion;
            DeviceOperations::applyDeviceMotionPreset(state, place->scene, place->layer, ref);
        } else {
            DeviceChoreographyRef ref;
            ref.preset = std::get<DeviceChoreographyPreset>(item.source);
            DeviceOperations::applyDeviceChoreographyPreset(state, place->scene, place->layer, ref);
        }
    });
}

void showMotionGallery(CompositionEditorModel& model, QWidget* parent, const QPoint& globally) {
    const QString name = QStringLiteral("choose-motion");
    if (auto* const open = parent->findChild<QDialog*>(name)) {
        open->raise();
        return open->activateWindow();
    }
    auto* window = new QDialog(parent);
    window->setObjectName(name);
    window->setWindowTitle(QCoreApplication::translate("MotionGallery", "Motions"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(window);
    column->setContentsMargins(0, 0, 0, 0);
    QWidget* const gallery = makeMotionGallery(model, window);
    column->addWidget(gallery);
    window->resize(4 * cellWidth + 48, 600);
    window->move(globally - QPoint(window->width(), 0));
    window->show();
    gallery->setFocus();
}

}   // namespace tavix::editor
