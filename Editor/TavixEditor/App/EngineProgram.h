// The command `tavix`, which does for the application what it does for everybody else.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QObject;

namespace tavix::editor {

struct EngineAnswer {
    bool isDone = false;
    QByteArray output;
    QString fault;   // a finished sentence where it is not done
};

// The one beside this program, or else along the search path.
QString engineProgram();
// Runs it without waiting; answers on the main thread while the context lives.
void runEngine(
    const QStringList& arguments, QObject* context, std::function<void(const EngineAnswer&)> answer);

}   // namespace tavix::editor
