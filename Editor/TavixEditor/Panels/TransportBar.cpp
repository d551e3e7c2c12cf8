#include "TavixEditor/Panels/TransportBar.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Controls/Timecode.h"
#include "TavixEditor/App/Actions.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace tavix::editor {

using namespace design;

namespace {

QToolButton* buttonOf(QAction* action) {
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setIconSize({16, 16});
    button->setFixedSize(height::button, height::button);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}   // namespace

TransportBar::TransportBar(CompositionEditorModel& model, const Actions& actions, QWidget* parent)
    : QWidget(parent), model_(model), now_(new Timecode(TextSize::strong)),
      total_(new Timecode(TextSize::body, QPalette::PlaceholderText)) {
    onGround(this, QPalette::Mid);
    setFixedHeight(height::toolbar - 4);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(space::medium, 0, space::medium, 0);
    row->setSpacing(space::tight);
    auto* times = new QHBoxLayout;
    times->setSpacing(space::small);
    times->addWidget(now_);
    times->addWidget(makeLabel(QStringLiteral("/"), TextSize::body, Tone::secondary));
    times->addWidget(total_);
    times->addStretch();
    row->addLayout(times, 1);
    for (QAction* action :
        {actions.toStart, actions.stepBack, actions.play, actions.stepForward, actions.toEnd})
        row->addWidget(buttonOf(action));
    auto* view = new QHBoxLayout;
    view->setSpacing(space::tight);
    view->addStretch();
    for (QAction* action : {actions.safeAreas, actions.zoomOut, actions.zoomIn, actions.fit})
        view->addWidget(buttonOf(action));
    row->addLayout(view, 1);
    connections_.push_back(
        tavix::show([this] { showTime(); }, model_.state.currentTime, model_.state.outputDuration));
}

void TransportBar::showTime() {
    now_->setSec(model_.state.currentTime());
    total_->setSec(model_.state.outputDuration());
}

}   // namespace tavix::editor
