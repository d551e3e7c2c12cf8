#include "TavixEditor/Windows/WelcomeView.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Actions.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/NoticeBar.h"
#include "TavixEditor/Windows/RecentCard.h"
#include "TavixEditor/Windows/Thumbnails.h"
#include "TavixPlatform/System/ChildProcess.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tavix::editor {

using namespace design;

WelcomeView::WelcomeView(Studio& studio, const Actions& actions, QWidget* parent)
    : QWidget(parent), studio_(studio) {
    onGround(this, QPalette::Window);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    notices_ = new NoticeBar;
    all->addWidget(notices_);
    auto* row = new QHBoxLayout;
    all->addLayout(row, 1);
    row->setSpacing(0);
    row->addWidget(makeBeginnings(actions));
    row->addWidget(makeRule(Qt::Vertical));
    row->addWidget(makeRecents(actions), 1);
    error_ = new QLabel(this);
    error_->setObjectName(QStringLiteral("welcomeError"));
    error_->setWordWrap(true);
    error_->setContentsMargins(space::small, space::small, space::small, space::small);
    error_->setAutoFillBackground(true);
    QPalette red = error_->palette();
    red.setColor(QPalette::Window, QColor(0xb3, 0x26, 0x1e, 217));
    red.setColor(QPalette::WindowText, Qt::white);
    error_->setPalette(red);
    connections_.push_back(tavix::show([this] { showError(); }, studio_.model.state.errorMessage));
}

QWidget* WelcomeView::makeBeginnings(const Actions& actions) {
    auto* pane = onGround(new QWidget, QPalette::Mid);
    pane->setFixedWidth(280);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(space::page, space::page, space::page, space::page);
    column->setSpacing(space::small);
    column->addStretch(1);
    column->addWidget(makeLabel(QStringLiteral("Tavix"), TextSize::display));
    column->addWidget(makeLabel(
        tr("Version %1").arg(QCoreApplication::applicationVersion()), TextSize::caption, Tone::secondary));
    column->addSpacing(space::section);
    const auto add = [&](const QIcon& icon, const QString& words) {
        auto* button = new QPushButton(icon, words);
        column->addWidget(button);
        return button;
    };
    const auto addAction = [&](QAction* action, const QString& words) {
        QPushButton* const button = add(action->icon(), words);
        QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
        return button;
    };
    const auto addInstall = [&](Icon icon, const QString& words, AgentSheet::Begin begin) {
        QPushButton* const button = add(iconOf(icon), words);
        button->hide();
        QObject::connect(button, &QPushButton::clicked, this, [this, begin] {
            if (onInstall) onInstall(begin);
        });
        return button;
    };
    addAction(actions.open, tr("Open Project"))->setDefault(true);
    addAction(actions.newProject, tr("New from Template"));
    update_ = addInstall(Icon::redo, tr("Update Engine"), AgentSheet::Begin::globally);
    addAction(actions.setUpAgents, tr("Set up agents"));
    global_ = addInstall(Icon::check, tr("Install Globally"), AgentSheet::Begin::globally);
    global_->setToolTip(tr("Puts the command tavix on this machine, for the agents that it has."));
    project_ = addInstall(Icon::folder, tr("Install for a Project"), AgentSheet::Begin::forProject);
    project_->setToolTip(tr("Puts the command tavix into one folder, for the agents that work there."));
    update_->setToolTip(tr("The command on this machine is of another version than this application."));
    column->addStretch(2);
    return pane;
}

QWidget* WelcomeView::makeGalleryCard(QAction* action) {
    auto* card = new QPushButton(action->icon(), tr("Browse every motion preset and video example"));
    card->setObjectName(QStringLiteral("galleryCard"));
    card->setIconSize({20, 20});
    QObject::connect(card, &QPushButton::clicked, action, &QAction::trigger);
    return card;
}

QWidget* WelcomeView::makeRecents(const Actions& actions) {
    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(space::section, space::page, space::section, space::section);
    column->setSpacing(space::small);
    column->addWidget(makeLabel(tr("Recent Projects"), TextSize::title));
    column->addSpacing(space::tight);
    recents_ = new QVBoxLayout;
    recents_->setSpacing(space::tight);
    column->addLayout(recents_);
    column->addStretch();
    column->addWidget(makeGalleryCard(actions.gallery));
    return pane;
}

void WelcomeView::readRecents() {
    lifeline_.cut();
    while (QLayoutItem* item = recents_->takeAt(0)) {
        if (item->widget()) item->widget()->deleteLater();
        delete item;
    }
    const auto items = studio_.recents.list();
    for (const RecentProjects::Item& item : items) {
        auto* card = new RecentCard(item);
        QObject::connect(card, &QAbstractButton::clicked, this, [this, path = item.path] {
            if (onOpenRecent) onOpenRecent(path);
        });
        recents_->addWidget(card);
        drawThumbnail(item.path, card);
    }
    if (items.empty())
        recents_->addWidget(makeLabel(tr("No recent projects"), TextSize::body, Tone::secondary));
}

void WelcomeView::drawThumbnail(const std::filesystem::path& bundle, RecentCard* card) {
    const int sidePx = int(RecentCard::thumbnailPx * devicePixelRatioF());
    system::runThere(
        studio_.files(), studio_.main(),
        [bundle, sidePx, cache = studio_.folders.cache] { return thumbnailOf(bundle, cache, sidePx); },
        lifeline_.guard([card](system::Outcome<QImage>& outcome) { card->setThumbnail(outcome.value()); }));
}

// Programs are asked for their versions, so it is found out elsewhere.
void WelcomeView::readSetup() {
    system::runThere(
        studio_.workers(), studio_.main(),
        [defaults = studio_.defaults] {
            const CLIInstaller installer(ToolchainPlaces::ofThisMachine(), defaults);
            // A package of the system's own is a command as well, which its manager keeps up to date.
            const bool isInstalled = installer.isInstalled() || system::findProgram("tavix").has_value();
            return Setup{isInstalled, installer.engineUpdateAvailable()};
        },
        setup_.guard([this](system::Outcome<Setup>& outcome) {
            if (!outcome.hasFailed()) showSetup(outcome.value());
        }));
}

void WelcomeView::showSetup(const Setup& setup) {
    update_->setVisible(setup.hasUpdate);
    global_->setVisible(!setup.isInstalled);
    project_->setVisible(!setup.isInstalled);
}

void WelcomeView::showEvent(QShowEvent*) {
    readRecents();
    readSetup();
}

void WelcomeView::showError() {
    const auto& message = studio_.model.state.errorMessage();
    error_->setVisible(message.has_value());
    if (!message) return;
    error_->setText(words(*message));
    const int width = this->width() - 2 * space::section;
    const int height = error_->heightForWidth(width);
    error_->setGeometry(space::section, this->height() - space::medium - height, width, height);
    error_->raise();
}

}   // namespace tavix::editor
