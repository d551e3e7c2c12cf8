#include "TavixEditor/App/EngineProgram.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#include <utility>

namespace tavix::editor {

QString engineProgram() {
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/tavix");
    return QFileInfo(beside).isExecutable() ? beside : QStringLiteral("tavix");
}

void runEngine(
    const QStringList& arguments, QObject* context, std::function<void(const EngineAnswer&)> answer) {
    auto* process = new QProcess;
    // No child of its own, which would tell its end to a widget that is half gone.
    QObject::connect(context, &QObject::destroyed, process, [process] {
        process->disconnect();
        process->kill();
        process->waitForFinished();
        delete process;
    });
    const auto end = [process, answer = std::move(answer)](bool isDone, const QString& fault) {
        process->disconnect();
        process->deleteLater();
        answer({isDone, process->readAllStandardOutput(), fault});
    };
    QObject::connect(
        process, &QProcess::finished, context, [process, end](int code, QProcess::ExitStatus status) {
            const bool isDone = status == QProcess::NormalExit && code == 0;
            end(isDone, isDone ? QString() : QString::fromUtf8(process->readAllStandardError()).trimmed());
        });
    QObject::connect(process, &QProcess::errorOccurred, context, [end](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart) return;
        end(false,
            QCoreApplication::translate("EngineProgram",
                "The command tavix is not beside this program, nor along the search path; install Tavix again."));
    });
    process->start(engineProgram(), arguments);
}

}   // namespace tavix::editor
