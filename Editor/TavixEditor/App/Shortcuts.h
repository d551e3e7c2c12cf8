// The keys of the commands: those that they come with, and those that the user chose instead.
#pragma once

#include "TavixLive/Files/UserDefaults.h"

#include <QHash>
#include <QKeySequence>
#include <QList>

#include <functional>

class QAction;

namespace tavix::editor {

// Lives as long as the commands do.
class Shortcuts {
public:
    // Gives the commands, which have their usual keys, those that were chosen before.
    Shortcuts(UserDefaults defaults, QList<QAction*> commands);

    const QList<QAction*>& commands() const { return commands_; }
    bool isChanged(const QAction* command) const;
    // Which command has that key; null for none.
    QAction* holderOf(const QKeySequence& key) const;
    // The one key of the command, or none where it is empty. Another command that has it loses it.
    // Remembered; where it cannot be, it holds until the end of the program.
    void set(QAction* command, const QKeySequence& key);
    void reset(QAction* command);   // one that has the usual key by now loses it
    void resetAll();
    // The keys of the same commands in another window, which were changed there.
    void takeFrom(const Shortcuts& other);

    std::function<void()> onChange;   // by hand: in this window
    std::function<void()> onTaken;    // from another one

private:
    void take(const QKeySequence& key, const QAction* by);
    void remember();

    UserDefaults defaults_;
    QList<QAction*> commands_;
    QHash<const QAction*, QList<QKeySequence>> usual_;
};

}   // namespace tavix::editor
