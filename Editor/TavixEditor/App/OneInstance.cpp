#include "TavixEditor/App/OneInstance.h"

#include <QDataStream>
#include <QLocalSocket>

#include <unistd.h>

#include <utility>

namespace tavix::editor {

namespace {

constexpr int patienceMs = 500;

}   // namespace

OneInstance::OneInstance(QString name) : name_(std::move(name)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
}

QString OneInstance::usualName() { return QStringLiteral("tavix-editor-%1").arg(::getuid()); }

bool OneInstance::handOver(const QStringList& bundles) {
    QLocalSocket socket;
    socket.connectToServer(name_);
    if (!socket.waitForConnected(patienceMs)) return false;
    QDataStream stream(&socket);
    stream << bundles;
    const bool isTold = socket.waitForBytesWritten(patienceMs);
    socket.disconnectFromServer();
    return isTold;
}

void OneInstance::listen(std::function<void(const QStringList& bundles)> told) {
    QLocalServer::removeServer(name_);   // of one that crashed
    if (!server_.listen(name_)) return;
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this, told = std::move(told)] {
        while (QLocalSocket* socket = server_.nextPendingConnection())
            QObject::connect(socket, &QLocalSocket::disconnected, &server_, [socket, told] {
                QDataStream stream(socket);
                QStringList bundles;
                stream >> bundles;
                socket->deleteLater();
                if (stream.status() == QDataStream::Ok) told(bundles);
            });
    });
}

}   // namespace tavix::editor
