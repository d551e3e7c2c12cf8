#include "TavixEditor/Windows/SidePanel.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Actions.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/Panels/ChangesPanel.h"
#include "TavixEditor/Panels/FindingsPanel.h"
#include "TavixEditor/Panels/JsonPanel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int leastWidth = 280;

}   // namespace

SidePanel::SidePanel(
    Studio& studio, const Actions& actions, Findings& findings, Changes& changes, QWidget* parent)
    : QWidget(parent), title_(makeLabel({}, TextSize::title)), pages_(new QStackedWidget) {
    setObjectName(QStringLiteral("sidePanel"));
    onGround(this, QPalette::Window);
    setMinimumWidth(leastWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, space::small, 0, 0);
    column->setSpacing(space::tight);
    auto* head = new QHBoxLayout;
    head->setContentsMargins(space::large, 0, space::small, 0);
    head->addWidget(title_);
    head->addStretch();
    auto* close = makeIconButton(Icon::close, tr("Close"));
    head->addWidget(close);
    column->addLayout(head);
    column->addWidget(pages_, 1);
    QObject::connect(close, &QToolButton::clicked, this, [this] {
        const int page = pages_->currentIndex();
        if (page >= 0) actions_[page]->setChecked(false);
    });
    add(actions.findings, new FindingsPanel(findings));
    add(actions.changes, new ChangesPanel(changes));
    add(actions.json, new JsonPanel(studio.model, studio.main(), studio.workers()));
    setVisible(false);
}

void SidePanel::add(QAction* action, QWidget* page) {
    actions_ << action;
    pages_->addWidget(page);
    QObject::connect(action, &QAction::toggled, this, [this, action](bool isOn) { turnTo(action, isOn); });
}

void SidePanel::turnTo(QAction* action, bool isShown) {
    if (isShown) {
        for (QAction* other : actions_)
            if (other != action) other->setChecked(false);
        pages_->setCurrentIndex(int(actions_.indexOf(action)));
        title_->setText(plainWords(action));
        setAccessibleName(title_->text());
    }
    bool isAny = false;
    for (const QAction* one : actions_) isAny = isAny || one->isChecked();
    setVisible(isAny);
    if (isShown) pages_->currentWidget()->setFocus();
}

}   // namespace tavix::editor
