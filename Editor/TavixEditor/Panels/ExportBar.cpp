#include "TavixEditor/Panels/ExportBar.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Reveal.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/ExportChoice.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <cmath>

namespace tavix::editor {

using namespace design;

ExportBar::ExportBar(CompositionEditorModel& model, QWidget* parent)
    : QWidget(parent), model_(model), text_(makeLabel({}, TextSize::body)), progress_(new QProgressBar),
      stop_(new QPushButton(tr("Stop"))), reveal_(new QPushButton(tr("Show in Folder"))),
      dismiss_(new QPushButton(tr("Done"))) {
    setObjectName(QStringLiteral("exportBar"));
    onGround(this, QPalette::Window);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(space::large, space::tight, space::medium, space::tight);
    row->setSpacing(space::medium);
    row->addWidget(text_);
    row->addWidget(progress_, 1);
    row->addStretch(0);
    for (QPushButton* button : {stop_, reveal_, dismiss_}) row->addWidget(button);
    progress_->setRange(0, 1000);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(tr("Export"));
    QObject::connect(stop_, &QPushButton::clicked, this, [this] {
        isStopped_ = true;
        model_.exports().stopAll();
    });
    QObject::connect(
        reveal_, &QPushButton::clicked, this, [this] { revealInFolder(model_.state.exportTarget()); });
    QObject::connect(dismiss_, &QPushButton::clicked, this, &QWidget::hide);
    setVisible(false);
    connections_.push_back(watch([this] { showRunning(); }, model_.state.isExporting));
    connections_.push_back(watch([this] { showProgress(); }, model_.state.exportProgress));
}

void ExportBar::showRunning() {
    const bool isRunning = model_.state.isExporting();
    if (isRunning) {
        since_.start();
        isStopped_ = false;
    }
    const bool isDone = !isRunning && model_.state.exportProgress() >= 1 && !isStopped_;
    setVisible(isRunning || isDone);   // what failed is told where errors are
    stop_->setVisible(isRunning);
    progress_->setVisible(isRunning);
    reveal_->setVisible(isDone);
    dismiss_->setVisible(isDone);
    if (isDone)
        text_->setText(tr("Exported %1.").arg(pathWords(model_.state.exportTarget().filename())));
    else
        showProgress();
}

void ExportBar::showProgress() {
    if (!model_.state.isExporting()) return;
    const double fraction = model_.state.exportProgress();
    progress_->setValue(int(std::lround(fraction * 1000)));
    const double left = remainingSec(fraction, double(since_.elapsed()) / 1000);
    const QString name = pathWords(model_.state.exportTarget().filename());
    text_->setText(std::isfinite(left)
                       ? tr("Exporting %1, about %2 s left").arg(name).arg(int(std::ceil(left)))
                       : tr("Exporting %1…").arg(name));
}

}   // namespace tavix::editor
