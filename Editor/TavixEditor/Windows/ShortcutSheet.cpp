#include "TavixEditor/Windows/ShortcutSheet.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Actions.h"
#include "TavixEditor/App/Shortcuts.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tavix::editor {

using namespace design;

namespace {

constexpr QSize leastSize(520, 560);
constexpr int keyColumnWidth = 150;

QString keysOf(const QAction* command) {
    return QKeySequence::listToString(command->shortcuts(), QKeySequence::NativeText)
        .replace(QLatin1String("; "), QLatin1String(",  "));
}

}   // namespace

ShortcutSheet::ShortcutSheet(Shortcuts& shortcuts, QWidget* parent)
    : QDialog(parent), shortcuts_(shortcuts), search_(new QLineEdit), commands_(new QTreeWidget),
      key_(new QKeySequenceEdit), conflict_(makeLabel({}, TextSize::caption)),
      assign_(new QPushButton(tr("Assign"))), none_(new QPushButton(tr("No Key"))),
      reset_(new QPushButton(tr("Reset"))) {
    setObjectName(QStringLiteral("shortcutSheet"));
    setWindowTitle(tr("Keyboard Shortcuts"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(leastSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::section, space::section, space::section, space::large);
    column->setSpacing(space::medium);
    column->addWidget(makeLabel(tr("Keyboard Shortcuts"), TextSize::title));
    search_->setPlaceholderText(tr("Search commands and keys"));
    search_->setAccessibleName(tr("Search commands and keys"));
    search_->setClearButtonEnabled(true);
    column->addWidget(search_);
    commands_->setColumnCount(2);
    commands_->setHeaderHidden(true);
    commands_->setRootIsDecorated(false);
    commands_->setUniformRowHeights(true);
    commands_->setAccessibleName(tr("Commands"));
    commands_->header()->setStretchLastSection(false);
    commands_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    commands_->header()->setSectionResizeMode(1, QHeaderView::Fixed);
    commands_->header()->resizeSection(1, keyColumnWidth);
    column->addWidget(commands_, 1);
    column->addWidget(makeEditing());
    QObject::connect(search_, &QLineEdit::textChanged, this, [this] { list(); });
    QObject::connect(commands_, &QTreeWidget::currentItemChanged, this, [this] { showChosen(); });
    QObject::connect(commands_, &QTreeWidget::itemActivated, this, [this] { key_->setFocus(); });
    shortcuts_.onTaken = [this] { list(); };
    list();
}

ShortcutSheet::~ShortcutSheet() { shortcuts_.onTaken = nullptr; }

QWidget* ShortcutSheet::makeEditing() {
    auto* editing = new QWidget;
    auto* column = new QVBoxLayout(editing);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(space::small);
    auto* row = new QHBoxLayout;
    row->setSpacing(space::small);
    key_->setAccessibleName(tr("New key"));
    for (QLineEdit* const inner : key_->findChildren<QLineEdit*>()) inner->setAccessibleName(tr("New key"));
    row->addWidget(key_, 1);
    for (QPushButton* button : {assign_, none_, reset_}) row->addWidget(button);
    column->addLayout(row);
    conflict_->setWordWrap(true);
    conflict_->setMinimumHeight(height::field);
    column->addWidget(conflict_);
    auto* foot = new QHBoxLayout;
    auto* all = new QPushButton(tr("Reset All"));
    auto* close = new QPushButton(tr("Close"));
    foot->addWidget(all);
    foot->addStretch();
    foot->addWidget(close);
    column->addLayout(foot);
    for (QPushButton* button : {assign_, none_, reset_, all, close}) button->setAutoDefault(false);
    QObject::connect(key_, &QKeySequenceEdit::keySequenceChanged, this, [this] { showConflict(); });
    QObject::connect(assign_, &QPushButton::clicked, this, [this] { assign(); });
    QObject::connect(none_, &QPushButton::clicked, this, [this] {
        if (QAction* command = chosen()) shortcuts_.set(command, {});
        list();
    });
    QObject::connect(reset_, &QPushButton::clicked, this, [this] {
        if (QAction* command = chosen()) shortcuts_.reset(command);
        list();
    });
    QObject::connect(all, &QPushButton::clicked, this, [this] {
        shortcuts_.resetAll();
        list();
    });
    QObject::connect(close, &QPushButton::clicked, this, &QDialog::accept);
    return editing;
}

QAction* ShortcutSheet::chosen() const {
    const QTreeWidgetItem* item = commands_->currentItem();
    return item ? item->data(0, Qt::UserRole).value<QAction*>() : nullptr;
}

void ShortcutSheet::list() {
    QAction* const before = chosen();
    const QSignalBlocker blocked(commands_);
    commands_->clear();
    for (QAction* command : shortcuts_.commands()) {
        const QString keys = keysOf(command);
        if (!plainWords(command).contains(search_->text(), Qt::CaseInsensitive) &&
            !keys.contains(search_->text(), Qt::CaseInsensitive))
            continue;
        auto* item = new QTreeWidgetItem(commands_, {plainWords(command), keys});
        item->setData(0, Qt::UserRole, QVariant::fromValue(command));
        item->setIcon(0, command->icon());
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setSizeHint(0, {0, height::row});
        if (shortcuts_.isChanged(command)) item->setFont(1, fontOf(TextSize::strong));
        if (command == before) commands_->setCurrentItem(item);
    }
    if (!commands_->currentItem() && commands_->topLevelItemCount() > 0)
        commands_->setCurrentItem(commands_->topLevelItem(0));
    showChosen();
}

void ShortcutSheet::showChosen() {
    const QAction* command = chosen();
    key_->setEnabled(command != nullptr);
    key_->setKeySequence(command ? command->shortcut() : QKeySequence());
    none_->setEnabled(command && !command->shortcut().isEmpty());
    reset_->setEnabled(command && shortcuts_.isChanged(command));
    showConflict();
}

// A command has keys that are pressed at once, and no words of several.
QKeySequence ShortcutSheet::typed() const {
    return key_->keySequence().isEmpty() ? QKeySequence() : QKeySequence(key_->keySequence()[0]);
}

void ShortcutSheet::showConflict() {
    const QAction* command = chosen();
    const QAction* holder = shortcuts_.holderOf(typed());
    const bool isOther = command && !typed().isEmpty() && typed() != command->shortcut();
    assign_->setEnabled(isOther);
    conflict_->setText(isOther && holder && holder != command
                           ? tr("%1 belongs to “%2”, which loses it.")
                                 .arg(typed().toString(QKeySequence::NativeText), plainWords(holder))
                           : QString());
}

void ShortcutSheet::assign() {
    if (QAction* command = chosen()) shortcuts_.set(command, typed());
    list();
}

}   // namespace tavix::editor
