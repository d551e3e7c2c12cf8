#include "TavixEditor/Panels/CommandPalette.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/Actions.h"
#include "TavixEditor/Panels/CommandMatch.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>
#include <vector>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int paletteWidth = 460, mostRows = 10, topPx = 90;

}   // namespace

CommandPalette::CommandPalette(const QList<QAction*>& commands, QWidget* window)
    : QFrame(window, Qt::Popup | Qt::FramelessWindowHint), commands_(commands), search_(new QLineEdit),
      found_(new QListWidget) {
    setObjectName(QStringLiteral("commandPalette"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::small, space::small, space::small, space::small);
    column->setSpacing(space::tight);
    column->addWidget(search_);
    column->addWidget(found_);
    search_->setPlaceholderText(tr("Search commands"));
    search_->setAccessibleName(tr("Search commands"));
    search_->installEventFilter(this);
    found_->setFrameShape(QFrame::NoFrame);
    found_->setFocusPolicy(Qt::NoFocus);
    found_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    found_->viewport()->setAutoFillBackground(false);
    found_->setAccessibleName(tr("Commands"));
    QObject::connect(search_, &QLineEdit::textChanged, this, [this] { list(); });
    QObject::connect(found_, &QListWidget::itemClicked, this, [this] { run(); });
    list();
    setFixedSize(paletteWidth, height::field + space::tight + mostRows * height::row + 2 * space::small);
    setMask(boxRegion(rect(), radius::popover));
    move(window->mapToGlobal(QPoint((window->width() - paletteWidth) / 2, topPx)));
    show();
    search_->setFocus();
}

void CommandPalette::list() {
    std::vector<std::pair<int, QAction*>> ranked;
    for (QAction* command : commands_)
        if (const auto rank =
                command->isEnabled() ? commandRank(plainWords(command), search_->text()) : std::nullopt)
            ranked.push_back({*rank, command});
    std::stable_sort(
        ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    found_->clear();
    for (const auto& [rank, command] : ranked) {
        const QString keys = command->shortcut().toString(QKeySequence::NativeText);
        auto* item = new QListWidgetItem(command->icon(),
            keys.isEmpty() ? plainWords(command) : plainWords(command) + QStringLiteral("   ") + keys,
            found_);
        item->setData(Qt::UserRole, QVariant::fromValue(command));
        item->setSizeHint({0, height::row});
    }
    if (ranked.empty()) {
        auto* const none = new QListWidgetItem(tr("No command is called so."), found_);
        none->setFlags(Qt::NoItemFlags);
        none->setSizeHint({0, height::row});
    }
    found_->setCurrentRow(ranked.empty() ? -1 : 0);
}

void CommandPalette::run() {
    const QListWidgetItem* item = found_->currentItem();
    if (!item) return;
    const QPointer<QAction> command = item->data(Qt::UserRole).value<QAction*>();
    close();
    // The popup has gone before the command opens a window of its own.
    QTimer::singleShot(0, command, [command] { command->trigger(); });
}

bool CommandPalette::eventFilter(QObject* watched, QEvent* event) {
    if (watched != search_ || event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
    if (step != 0) {
        found_->setCurrentRow(std::clamp(found_->currentRow() + step, 0, std::max(found_->count() - 1, 0)));
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        run();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void CommandPalette::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawBox(painter, rect(), radius::popover, Style::theme().raised, Style::theme().hairline);
}

}   // namespace tavix::editor
