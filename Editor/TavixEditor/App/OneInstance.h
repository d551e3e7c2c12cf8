// A program that is started again hands its bundles to the one that runs already.
#pragma once

#include <QLocalServer>
#include <QStringList>

#include <functional>

namespace tavix::editor {

class OneInstance {
public:
    // Of the user; the name keeps tests apart.
    explicit OneInstance(QString name = usualName());

    // True when another one runs and was told; then there is nothing left to do here. Waits half a second at
    // most for a program that does not answer.
    bool handOver(const QStringList& bundles);
    // From now on this is the one; it is told the bundles of others, or of none, which asks for its window.
    void listen(std::function<void(const QStringList& bundles)> told);

    static QString usualName();

private:
    QString name_;
    QLocalServer server_;
};

}   // namespace tavix::editor
