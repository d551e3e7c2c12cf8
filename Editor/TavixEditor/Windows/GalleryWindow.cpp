#include "TavixEditor/Windows/GalleryWindow.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/Inspector/MotionGallery.h"
#include "TavixEditor/Windows/GalleryPlayer.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Stage/Stage.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

namespace tavix::editor {

using namespace design;

namespace {

constexpr std::size_t storeBytes = 32u << 20;   // of drawn frames: a motion is played again and again
constexpr QSize usualSize(1040, 760);
constexpr int playerWidth = 400;

}   // namespace

GalleryWindow::GalleryWindow()
    : gallery_({main_, render_, workers_},
          std::make_shared<Stage>(Stage::Options{.storeBytes = storeBytes}, RenderLog{})),
      halves_(new QSplitter), notice_(makeLabel({}, TextSize::caption, Tone::secondary)),
      give_(new QPushButton(tr("Give to the Selected Device"))) {
    setObjectName(QStringLiteral("preset-gallery"));
    setWindowTitle(tr("Motion Presets"));
    onGround(this, QPalette::Window);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(halves_, 1);
    auto* right = new QWidget;
    auto* beside = new QVBoxLayout(right);
    beside->setContentsMargins(0, 0, 0, 0);
    beside->addWidget(new GalleryPlayer(gallery_), 1);
    beside->addWidget(makeFoot());
    halves_->addWidget(right);
    halves_->setChildrenCollapsible(false);
    resize(usualSize);
    connections_.push_back(tavix::show([this] { showTarget(); }, gallery_.selectedID));
}

GalleryWindow::~GalleryWindow() { gallery_.stop(); }

QWidget* GalleryWindow::makeFoot() {
    auto* foot = new QWidget;
    auto* column = new QVBoxLayout(foot);
    column->setContentsMargins(space::large, 0, space::large, space::large);
    notice_->setWordWrap(true);
    column->addWidget(notice_);
    column->addWidget(give_);
    QObject::connect(give_, &QPushButton::clicked, this, [this] {
        if (const PresetGalleryItem* const item = gallery_.selectedItem(); item && target_)
            giveMotion(*target_, *item, tr("Motion “%1”").arg(documentLabel(item->title)));
    });
    return foot;
}

void GalleryWindow::showTarget() {
    const MotionTarget target = target_ ? motionTarget(*target_) : MotionTarget::none;
    give_->setEnabled(target != MotionTarget::none && gallery_.selectedItem());
    notice_->setText(target == MotionTarget::none ? tr("Select a device in a project to give it a motion.")
                     : target == MotionTarget::movingDevice
                         ? tr("It takes the place of the device's own motion; undo brings that back.")
                         : QString());
}

void GalleryWindow::present(CompositionEditorModel& target) {
    if (target_ != &target) {
        target_ = &target;
        delete list_;
        list_ = makeMotionGallery(
            target, nullptr, [this](const PresetGalleryItem& item) { gallery_.select(item); });
        halves_->insertWidget(0, list_);
        halves_->setSizes({width() - playerWidth, playerWidth});
        setFocusProxy(list_);
        ofTarget_.clear();
        ofTarget_.push_back(tavix::show([this] { showTarget(); }, target.state.edited));
    }
    if (!isVisible() && screen()) {
        const QRect room = screen()->availableGeometry();
        resize(usualSize.boundedTo(room.size()));
        move(room.center() - rect().center());
    }
    show();
    raise();
    activateWindow();
    setFocus();
}

void GalleryWindow::leave(const CompositionEditorModel& target) {
    if (target_ != &target) return;
    close();
    setFocusProxy(nullptr);
    ofTarget_.clear();
    delete list_;
    list_ = nullptr;
    target_ = nullptr;
    showTarget();
}

// Nothing is drawn for nobody.
void GalleryWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (gallery_.isPlaying()) gallery_.togglePlayback();
}

}   // namespace tavix::editor
