// What a screen reader is told of programs on the desktop, over the bus that it listens to. Each line on the
// standard input asks for the whole tree of the program whose name it gives; a line of JSON answers.
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdint>
#include <iostream>
#include <string>

namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
constexpr int mostChildren = 400, deepest = 40;   // lists of all fonts are nobody's way

struct Place {
    QString service, path;
};

struct State {
    const char* word;
    int bit;   // of AtspiStateType
};
constexpr State states[] = {{"checked", 4}, {"enabled", 8}, {"focused", 12}, {"selected", 23},
    {"showing", 25}, {"modal", 16}, {"editable", 7}, {"expanded", 10}};

class Tree {
public:
    explicit Tree(QDBusConnection bus) : bus_(std::move(bus)) {}

    QJsonArray of(const QString& program) const {
        QJsonArray found;
        const Place registry{
            QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/accessible/root")};
        for (const Place& place : childrenOf(registry))
            if (property(place, accessible, "Name").toString() == program)
                for (const Place& window : childrenOf(place)) found.append(node(window, 0));
        return found;
    }

private:
    QDBusMessage ask(const Place& place, const QString& interface, const char* method,
        const QVariantList& arguments = {}) const {
        auto call =
            QDBusMessage::createMethodCall(place.service, place.path, interface, QLatin1String(method));
        call.setArguments(arguments);
        return bus_.call(call, QDBus::Block, 5000);
    }
    QVariant property(const Place& place, const QString& interface, const char* name) const {
        const auto answer = ask(place, QStringLiteral("org.freedesktop.DBus.Properties"), "Get",
            {interface, QLatin1String(name)});
        if (answer.type() != QDBusMessage::ReplyMessage) return {};
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }
    QList<Place> childrenOf(const Place& place) const {
        QList<Place> children;
        const auto answer = ask(place, accessible, "GetChildren");
        if (answer.type() != QDBusMessage::ReplyMessage) return children;
        const auto list = answer.arguments().value(0).value<QDBusArgument>();
        list.beginArray();
        while (!list.atEnd()) {
            Place child;
            QDBusObjectPath path;
            list.beginStructure();
            list >> child.service >> path;
            list.endStructure();
            child.path = path.path();
            children.append(child);
        }
        list.endArray();
        return children;
    }
    QJsonArray statesOf(const Place& place) const {
        QJsonArray words;
        const auto answer = ask(place, accessible, "GetState");
        if (answer.type() != QDBusMessage::ReplyMessage) return words;
        const auto bits = qdbus_cast<QList<quint32>>(answer.arguments().value(0));
        for (const State& state : states)
            if (state.bit / 32 < bits.size() && (bits[state.bit / 32] >> (state.bit % 32)) & 1)
                words.append(QLatin1String(state.word));
        return words;
    }
    QJsonArray boxOf(const Place& place) const {
        const auto answer =
            ask(place, QStringLiteral("org.a11y.atspi.Component"), "GetExtents", {quint32(0)});
        if (answer.type() != QDBusMessage::ReplyMessage) return {};
        const auto box = answer.arguments().value(0).value<QDBusArgument>();
        int x = 0, y = 0, width = 0, height = 0;
        box.beginStructure();
        box >> x >> y >> width >> height;
        box.endStructure();
        return {x, y, width, height};
    }

    QJsonObject node(const Place& place, int depth) const {
        QJsonObject made{{QStringLiteral("name"), property(place, accessible, "Name").toString()},
            {QStringLiteral("about"), property(place, accessible, "Description").toString()},
            {QStringLiteral("role"), ask(place, accessible, "GetRoleName").arguments().value(0).toString()},
            {QStringLiteral("states"), statesOf(place)}, {QStringLiteral("box"), boxOf(place)}};
        const auto text = ask(place, QStringLiteral("org.a11y.atspi.Text"), "GetText", {0, -1});
        if (text.type() == QDBusMessage::ReplyMessage)
            made[QStringLiteral("text")] = text.arguments().value(0).toString();
        const QVariant value = property(place, QStringLiteral("org.a11y.atspi.Value"), "CurrentValue");
        if (value.isValid()) made[QStringLiteral("value")] = value.toDouble();
        const bool isSeen = made[QStringLiteral("states")].toArray().contains(QLatin1String("showing"));
        const int count = property(place, accessible, "ChildCount").toInt();
        QJsonArray children;
        if (isSeen && depth < deepest && count <= mostChildren)
            for (const Place& child : childrenOf(place)) children.append(node(child, depth + 1));
        made[QStringLiteral("children")] = children;
        return made;
    }

    QDBusConnection bus_;
};

QString addressOfBus() {
    const auto call = QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"),
        QStringLiteral("/org/a11y/bus"), QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    return QDBusConnection::sessionBus().call(call, QDBus::Block, 10000).arguments().value(0).toString();
}

}   // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QString address = addressOfBus();
    const auto bus = QDBusConnection::connectToBus(address, QStringLiteral("a11y"));
    if (!bus.isConnected()) {
        std::cerr << "The bus of screen readers does not answer: install at-spi2-core, and start this under "
                     "dbus-run-session.\n";
        return 1;
    }
    const Tree tree(bus);
    for (std::string program; std::getline(std::cin, program);)
        std::cout << QJsonDocument(tree.of(QString::fromStdString(program)))
                         .toJson(QJsonDocument::Compact)
                         .toStdString()
                  << std::endl;
    return 0;
}
