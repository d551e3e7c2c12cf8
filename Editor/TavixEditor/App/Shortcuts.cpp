#include "TavixEditor/App/Shortcuts.h"

#include "TavixBase/Failure.h"
#include "TavixEditor/App/Words.h"

#include <QAction>

#include <utility>

namespace tavix::editor {

namespace {

constexpr std::string_view name = "editorShortcuts";

}   // namespace

Shortcuts::Shortcuts(UserDefaults defaults, QList<QAction*> commands)
    : defaults_(std::move(defaults)), commands_(std::move(commands)) {
    const Json chosen = defaults_.value(name);
    for (QAction* command : commands_) {
        usual_[command] = command->shortcuts();
        const Json* key = chosen.find(utf8Of(command->objectName()));
        if (key && key->text())
            command->setShortcut(QKeySequence(words(*key->text()), QKeySequence::PortableText));
    }
}

bool Shortcuts::isChanged(const QAction* command) const {
    return command->shortcuts() != usual_.value(command);
}

QAction* Shortcuts::holderOf(const QKeySequence& key) const {
    for (QAction* command : commands_)
        if (!key.isEmpty() && command->shortcuts().contains(key)) return command;
    return nullptr;
}

void Shortcuts::take(const QKeySequence& key, const QAction* by) {
    for (QAction* command : commands_) {
        QList<QKeySequence> keys = command->shortcuts();
        if (command != by && keys.removeAll(key) > 0) command->setShortcuts(keys);
    }
}

void Shortcuts::set(QAction* command, const QKeySequence& key) {
    if (!key.isEmpty()) take(key, command);
    command->setShortcut(key);
    remember();
}

void Shortcuts::reset(QAction* command) {
    for (const QKeySequence& key : usual_.value(command)) take(key, command);
    command->setShortcuts(usual_.value(command));
    remember();
}

void Shortcuts::resetAll() {
    for (QAction* command : commands_) command->setShortcuts(usual_.value(command));
    remember();
}

// A command with several keys that lost one of them keeps the first.
void Shortcuts::remember() {
    JsonObject chosen;
    for (const QAction* command : commands_)
        if (isChanged(command))
            chosen.set(utf8Of(command->objectName()),
                utf8Of(command->shortcut().toString(QKeySequence::PortableText)));
    try {
        defaults_.set(name, std::move(chosen));
    } catch (const Failure&) {
        // They hold for now.
    }
    if (onChange) onChange();
}

void Shortcuts::takeFrom(const Shortcuts& other) {
    for (QAction* command : commands_)
        for (const QAction* changed : other.commands_)
            if (changed->objectName() == command->objectName()) command->setShortcuts(changed->shortcuts());
    if (onTaken) onTaken();
}

}   // namespace tavix::editor
