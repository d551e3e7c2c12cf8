// What is asked of the desktop over its bus, with services that stand in for it. Run on a bus of its own.
#include "TavixEditor/App/DesktopNotice.h"
#include "TavixEditor/App/Reveal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QTest>
#include <QVariantMap>
#include <QWidget>

#include <gtest/gtest.h>

#include <vector>

namespace tavix::editor {
namespace {

// Answers every call, and remembers it.
class Service final : public QDBusVirtualObject {
public:
    Service(const QString& name, const QString& path)
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)), name_(name) {
        isThere_ = bus_.registerVirtualObject(path, this) && bus_.registerService(name);
    }
    ~Service() override {
        bus_.unregisterService(name_);
        QDBusConnection::disconnectFromBus(name_);
    }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        calls.push_back(message);
        bus.send(message.createReply(1u));
        return true;
    }
    bool isThere() const { return isThere_; }
    std::vector<QDBusMessage> calls;

private:
    QDBusConnection bus_;
    QString name_;
    bool isThere_ = false;
};

class DesktopBus : public ::testing::Test {
protected:
    void SetUp() override {
        if (!QDBusConnection::sessionBus().isConnected()) GTEST_SKIP() << "There is no session bus.";
        // Nothing of a real desktop opens: who is asked to has no such slot.
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &nobody_, "opens");
    }
    void TearDown() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    template <class Condition> static bool until(Condition condition) {
        return QTest::qWaitFor(condition, 10000);
    }

    QObject nobody_;
};

TEST_F(DesktopBus, TheFileManagerIsAskedToShowTheFileByItsAddress) {
    Service files(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"));
    ASSERT_TRUE(files.isThere());
    bool hasFailed = false;
    revealInFolder("/tmp/a film & ü.mp4", [&](const QString&) { hasFailed = true; });
    ASSERT_TRUE(until([&] { return !files.calls.empty(); }));
    EXPECT_EQ(files.calls[0].member(), QStringLiteral("ShowItems"));
    // Addresses are escaped: no blank, nothing but ASCII.
    EXPECT_EQ(files.calls[0].arguments().at(0).toStringList(),
        QStringList(QStringLiteral("file:///tmp/a%20film%20&%20%C3%BC.mp4")));
    QTest::qWait(50);
    EXPECT_FALSE(hasFailed);
}

TEST_F(DesktopBus, WithoutAFileManagerASentenceSaysWhereTheFileIs) {
    QString told;
    revealInFolder("/tmp/film.mp4", [&](const QString& sentence) { told = sentence; });
    ASSERT_TRUE(until([&] { return !told.isEmpty(); }));
    EXPECT_EQ(told, QStringLiteral("No file manager answers. The file is “/tmp/film.mp4”."));
}

TEST_F(DesktopBus, ANoticeTellsWhatItIsAboutAndNoMarkupComesThrough) {
    Service notices(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"));
    ASSERT_TRUE(notices.isThere());
    QWidget window;
    showDesktopNotice(QStringLiteral("Export finished"), QStringLiteral("a<b>.mp4"), &window);
    ASSERT_TRUE(until([&] { return !notices.calls.empty(); }));
    const QList<QVariant> told = notices.calls[0].arguments();
    EXPECT_EQ(notices.calls[0].member(), QStringLiteral("Notify"));
    // Name, the one that it replaces, icon, summary, body, actions, hints, milliseconds.
    EXPECT_EQ(notices.calls[0].signature(), QStringLiteral("susssasa{sv}i"));
    EXPECT_EQ(told.at(3).toString(), QStringLiteral("Export finished"));
    EXPECT_EQ(told.at(4).toString(), QStringLiteral("a&lt;b&gt;.mp4"));
    EXPECT_EQ(told.at(7).toInt(), -1) << "as long as the desktop wants";
}

}   // namespace
}   // namespace tavix::editor
