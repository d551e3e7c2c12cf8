#include "TavixEditor/Windows/EditorView.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Actions.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/InspectorView.h"
#include "TavixEditor/Panels/ExportBar.h"
#include "TavixEditor/Panels/FindingsPanel.h"
#include "TavixEditor/Panels/NoticeBar.h"
#include "TavixEditor/Panels/TransportBar.h"
#include "TavixEditor/Stage/StageView.h"
#include "TavixEditor/Timeline/TimelineView.h"
#include "TavixEditor/Windows/MenuBar.h"
#include "TavixEditor/Windows/SidePanel.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>

namespace tavix::editor {

using namespace design;

namespace {

QPushButton* buttonOf(QAction* action, const QString& words) {
    auto* button = new QPushButton(words);
    button->setFocusPolicy(Qt::TabFocus);
    button->setEnabled(action->isEnabled());
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::changed, button, [=] { button->setEnabled(action->isEnabled()); });
    button->setToolTip(action->shortcut().toString(QKeySequence::NativeText));
    return button;
}

QToolButton* makeToggle(QAction* action) {
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setIconSize({16, 16});
    button->setFixedHeight(height::button);
    button->setMinimumWidth(height::button);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}   // namespace

EditorView::EditorView(Studio& studio, const Actions& actions, QWidget* parent)
    : QWidget(parent), studio_(studio), model_(studio.model),
      findings_(model_, studio.main(), studio.workers()), changes_(model_, studio.main(), studio.workers()) {
    onGround(this, QPalette::Mid);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    around_ = {makeTopBar(actions), makeRule(Qt::Horizontal)};
    for (QWidget* const part : around_) column->addWidget(part);
    notices_ = new NoticeBar;
    column->addWidget(notices_);
    column->addWidget(makeWorkspace(actions), 1);
    EditorState& state = model_.state;
    connections_.push_back(tavix::show([this] { showState(); }, state.bundle, state.hasUnsavedChanges,
        state.statusMessage, state.errorMessage));
}

QWidget* EditorView::makeTopBar(const Actions& actions) {
    auto* bar = onGround(new QWidget, QPalette::Mid);
    bar->setFixedHeight(height::toolbar);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(space::small, 0, space::medium, 0);
    row->setSpacing(space::small);
    row->addWidget(makeMenuBar(actions), 0, Qt::AlignVCenter);
    row->addSpacing(space::small);
    name_ = makeLabel({}, TextSize::strong);
    edited_ = makeLabel({}, TextSize::caption, Tone::secondary);
    status_ = makeLabel({}, TextSize::caption, Tone::secondary);
    row->addWidget(name_);
    row->addWidget(edited_);
    row->addStretch();
    row->addWidget(status_);
    row->addSpacing(space::small);
    row->addWidget(makeFindingsButton(actions.findings));
    for (QAction* panel : {actions.changes, actions.json}) row->addWidget(makeToggle(panel));
    row->addSpacing(space::small);
    row->addWidget(buttonOf(actions.save, tr("Save")));
    auto* exportButton = buttonOf(actions.exportFilm, tr("Export…"));
    exportButton->setDefault(true);
    row->addWidget(exportButton);
    return bar;
}

QWidget* EditorView::makeWorkspace(const Actions& actions) {
    auto* middle = new QWidget;
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    stage_ = new StageView(studio_);
    column->addWidget(stage_, 1);
    column->addWidget(new ExportBar(studio_));
    column->addWidget(makeRule(Qt::Horizontal));
    column->addWidget(new TransportBar(model_, actions));
    auto* wide = new QSplitter(Qt::Horizontal);
    wide->addWidget(new SidePanel(studio_, actions, findings_, changes_));
    wide->addWidget(middle);
    around_.push_back(
        makeInspectorView(model_, wide, [this](const std::filesystem::path& sound) { studio_.hear(sound); }));
    wide->addWidget(around_.back());
    wide->setStretchFactor(1, 1);
    wide->setChildrenCollapsible(false);
    wide->setSizes({320, 1200, 304});
    auto* tall = new QSplitter(Qt::Vertical);
    tall->addWidget(wide);
    around_.push_back(makeTimelineView(model_, tall));
    tall->addWidget(around_.back());
    tall->setStretchFactor(0, 1);
    tall->setCollapsible(0, false);
    tall->setSizes({640, 240});
    return tall;
}

void EditorView::setStageAlone(bool isAlone) {
    for (QWidget* const part : around_) part->setVisible(!isAlone);
    if (isAlone) stage_->setFocus();
}

// Tells how much there is while the panel is closed.
QWidget* EditorView::makeFindingsButton(QAction* action) {
    auto* button = new QToolButton;
    button->setObjectName(QStringLiteral("findingsButton"));
    button->setCheckable(true);
    button->setIconSize({16, 16});
    button->setFixedHeight(height::button);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAccessibleName(tr("Findings"));
    QObject::connect(button, &QToolButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::toggled, button, &QToolButton::setChecked);
    connections_.push_back(tavix::show(
        [this, button] {
            const auto& told = findings_.told();
            const std::size_t errors = told.count(Finding::Level::error);
            button->setText(told.rows.empty() ? QString() : QString::number(told.rows.size()));
            button->setIcon(iconOf(errors > 0          ? Icon::error
                                   : told.rows.empty() ? Icon::check
                                                       : Icon::warning));
            button->setToolTip(FindingsPanel::summaryOf(told));
            button->setAccessibleDescription(FindingsPanel::summaryOf(told));
        },
        findings_.told));
    return button;
}

void EditorView::showState() {
    const auto& bundle = model_.state.bundle();
    name_->setText(bundle ? pathWords(bundle->stem()) : QString());
    edited_->setText(model_.state.hasUnsavedChanges() ? tr("Edited") : QString());
    status_->setText(words(model_.state.statusMessage()));
}

}   // namespace tavix::editor
