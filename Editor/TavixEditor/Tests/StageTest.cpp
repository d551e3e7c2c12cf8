// What is done on the stage itself: texts edited in place, phones that take pictures, the frame copied.
#include "EditorWindow.h"
#include "TavixEditor/Stage/QtPoints.h"
#include "TavixEditor/Stage/StageView.h"

#include <QAction>
#include <QClipboard>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

namespace tavix::editor {
namespace {

namespace fs = std::filesystem;

class OnTheStage : public EditorWindow {
protected:
    StageView& stage() { return window->editor().stage(); }
    QPoint at(double x, double y) { return qPoint(stage().viewport().toView({x, y})).toPoint(); }
    // A composition of one layer on a square of 400 pixels.
    void openWith(const LayerContent& content, const BackgroundFill& background = RGBAColor{0, 0, 0, 1}) {
        const fs::path bundle = makeBundle("one");
        CompositionSpec spec = CompositionProjectBundle::read(bundle);
        spec.scenes[0].layers[0].content = content;
        spec.background = background;
        std::ofstream(CompositionProjectBundle::specFile(bundle)) << encodedJson(spec);
        open(bundle);
        studio->model.seek(1);   // all of it has come in
        ASSERT_TRUE(until([&] { return !stage().frame().isNull(); }));
        ASSERT_TRUE(until([&] {   // as soon as it is known where the layer is
            QTest::mouseClick(&stage(), Qt::LeftButton, {}, at(200, 200));
            return state().edited().selection.layer.has_value();
        }));
    }
    QPlainTextEdit* field() {
        const auto found = stage().findChildren<QPlainTextEdit*>(QStringLiteral("textInPlace"));
        for (QPlainTextEdit* each : found)
            if (each->isVisible()) return each;
        return nullptr;
    }
    std::string words() { return std::get<TextContent>(layer().content).text; }
    fs::path picture(const char* name, QColor color) {
        QImage image(200, 400, QImage::Format_RGB32);
        image.fill(color);
        const fs::path file = fs::path(home_.path().toStdString()) / name;
        EXPECT_TRUE(image.save(QString::fromStdString(file.string())));
        return file;
    }
    // As a file manager does: over the window, about, and let go.
    void drag(
        const fs::path& file, const std::vector<QPoint>& way, bool isDropped,
        const std::function<void()>& look = [] {}) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
        const auto inWindow = [&](QPoint point) { return stage().mapTo(window.get(), point); };
        QDragEnterEvent enter(inWindow(way.front()), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &enter);
        for (const QPoint point : way) {
            QDragMoveEvent move(inWindow(point), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(window.get(), &move);
            EXPECT_TRUE(move.isAccepted());
        }
        look();
        if (!isDropped) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(window.get(), &leave);
            return;
        }
        QDropEvent drop(QPointF(inWindow(way.back())), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &drop);
    }
    QImage shown() { return stage().grab().toImage(); }
};

TEST_F(OnTheStage, ATextIsEditedWhereItStands) {
    TextContent text;
    text.text = "Before";
    text.sizeFraction = 0.2;
    openWith(text);
    const auto begin = [&](bool byMouse) {
        if (byMouse)
            QTest::mouseDClick(&stage(), Qt::LeftButton, {}, at(200, 200));
        else
            QTest::keyClick(&stage(), Qt::Key_Return);
        ASSERT_TRUE(until([&] { return field() && field()->hasFocus(); }));
    };
    begin(true);
    EXPECT_EQ(field()->toPlainText(), QStringLiteral("Before"));
    EXPECT_FALSE(field()->geometry().contains(at(200, 200))) << "the letters are seen meanwhile";
    EXPECT_TRUE(stage().rect().contains(field()->geometry()));
    QTest::keyClicks(field(), QStringLiteral("After"));   // in the place of all of it
    QTest::keyClick(field(), Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return !field(); }));
    EXPECT_EQ(words(), "After");
    EXPECT_TRUE(stage().hasFocus());

    begin(false);
    QTest::keyClicks(field(), QStringLiteral("Nothing"));
    QTest::keyClick(field(), Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return !field(); }));
    EXPECT_EQ(words(), "After");

    begin(false);
    QTest::keyClick(field(), Qt::Key_End);
    QTest::keyClick(field(), Qt::Key_Return);
    QTest::keyClicks(field(), QStringLiteral("all"));
    QTest::mouseClick(&stage(), Qt::LeftButton, {}, QPoint(3, 3));   // elsewhere
    ASSERT_TRUE(until([&] { return !field(); }));
    EXPECT_EQ(words(), "After\nall");
    window->actions().undo->trigger();
    EXPECT_EQ(words(), "After") << "one step";
    window->actions().undo->trigger();
    EXPECT_EQ(words(), "Before");
    EXPECT_FALSE(window->actions().undo->isEnabled());
}

// The words are in the document while they are typed, and nowhere else: what takes the text away takes the
// field along.
TEST_F(OnTheStage, WordsAreInTheDocumentWhileTheyAreTyped) {
    TextContent text;
    text.text = "Words";
    text.sizeFraction = 0.2;
    openWith(text);
    const auto type = [&](const char* more) {
        QTest::keyClick(&stage(), Qt::Key_Return);
        ASSERT_TRUE(until([&] { return field() && field()->hasFocus(); }));
        QTest::keyClicks(field(), QString::fromUtf8(more));
    };
    type("More");
    EXPECT_EQ(words(), "More");
    EXPECT_TRUE(state().hasUnsavedChanges());
    window->actions().save->trigger();
    ASSERT_TRUE(until([&] { return !state().hasUnsavedChanges(); }));
    EXPECT_NE(fileOf(*state().bundle()).find("\"More\""), std::string::npos);
    studio->model.undo();
    EXPECT_EQ(words(), "Words") << "all of it is one step";
    ASSERT_TRUE(until([&] { return !field(); }));
    type("Other");
    window->openDocument(makeBundle("other"));
    QWidget* const question = dialog("unsavedChanges");
    ASSERT_TRUE(question) << "it is asked for, as everything that is not saved";
    click(question, QStringLiteral("Don’t Save"));
    ASSERT_TRUE(until([&] { return state().bundle() && state().bundle()->stem() == "other"; }));
    ASSERT_TRUE(until([&] { return !field(); }));
    EXPECT_TRUE(std::holds_alternative<ShapeContent>(layer().content));
    EXPECT_FALSE(state().hasUnsavedChanges());
}

TEST_F(OnTheStage, APictureOverAPhoneBecomesItsScreen) {
    DeviceContent device;
    device.basePaddingPx = 20;
    device.screen = StillScreen{picture("blue.png", Qt::blue).string()};
    openWith(device);
    const fs::path green = picture("shot.png", Qt::green);
    const QImage before = shown();
    const QPoint on = at(200, 200), off = at(8, 8);
    drag(green, {off, on}, false, [&] {
        EXPECT_NE(shown().pixelColor(on + QPoint(0, 9)), before.pixelColor(on + QPoint(0, 9)))
            << "the phone is shown as what takes it";
    });
    EXPECT_EQ(shown(), before) << "it has left";
    drag(green, {off, on}, true);
    ASSERT_TRUE(until([&] {
        const auto* still = std::get_if<StillScreen>(&std::get<DeviceContent>(layer().content).screen);
        return still && still->path == "assets/shot.png";
    }));
    EXPECT_EQ(state().edited().spec.scenes[0].layers.size(), 1u);
    ASSERT_TRUE(until([&] {
        const QImage frame = stage().frame();
        return frame.pixelColor(frame.width() / 2, frame.height() / 2) == QColor(Qt::green);
    }));
    // Beside it, it is a layer of its own.
    drag(picture("other.png", Qt::red), {on, off}, true);
    ASSERT_TRUE(until([&] { return state().edited().spec.scenes[0].layers.size() == 2; }));
    window->actions().undo->trigger();
    window->actions().undo->trigger();
    EXPECT_EQ(std::get<DeviceContent>(layer().content), device);
}

TEST_F(OnTheStage, WhatIsClearIsCheckeredAndCopiedClear) {
    ShapeContent shape;
    shape.fill = RGBAColor{1, 0, 0, 1};
    shape.widthFraction = shape.heightFraction = 0.5;
    openWith(shape, RGBAColor{0, 0, 0, 0});
    const QImage frame = stage().frame();
    EXPECT_EQ(frame.pixelColor(frame.width() / 2, frame.height() / 2), QColor(Qt::red));
    EXPECT_NE(frame.pixelColor(2, 2), frame.pixelColor(10, 2));
    QGuiApplication::clipboard()->clear();
    window->actions().copyFrame->trigger();
    ASSERT_TRUE(until([&] { return !QGuiApplication::clipboard()->image().isNull(); }));
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), QSize(400, 400)) << "in the size of the canvas, whatever the stage's";
    EXPECT_EQ(copied.pixelColor(200, 200), QColor(Qt::red));
    EXPECT_EQ(copied.pixelColor(10, 10).alpha(), 0);
    EXPECT_EQ(state().statusMessage(), "Copied the frame.");
}

TEST_F(OnTheStage, FullScreenComesAndGoesWithTheStageFitted) {
    open(makeBundle("square"));
    window->actions().fullScreen->trigger();
    ASSERT_TRUE(until([&] { return window->isFullScreen(); }));
    ASSERT_TRUE(until([&] { return window->size() == window->screen()->size(); }));
    ASSERT_TRUE(until([&] { return stage().width() == window->width(); })) << "it has the screen for itself";
    EXPECT_GT(stage().height(), window->height() * 9 / 10);
    const PixelRect canvas = stage().viewport().canvasRect();
    EXPECT_GE(canvas.y, 0);
    EXPECT_LE(canvas.maxY(), stage().height());
    // Escape gives up the selection first, and then the screen.
    studio->model.selectLayer(0, 0);
    QTest::keyClick(&stage(), Qt::Key_Escape);
    EXPECT_TRUE(window->isFullScreen());
    EXPECT_FALSE(state().edited().selection.layer);
    QTest::keyClick(&stage(), Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return !window->isFullScreen(); }));
    ASSERT_TRUE(until([&] { return stage().width() < window->width() - 200; })) << "the inspector is back";
    EXPECT_LT(stage().height(), window->height() - 200) << "and the timeline";
}

// Every handle takes hold of every kind of layer.
TEST_F(OnTheStage, ACornerGrowsAPictureThatHasNoSizeOfItsOwn) {
    const fs::path red = picture("red.png", Qt::red);
    ImageContent image;
    image.path = red.string();
    openWith(image);
    const PixelRect box{100, 0, 200, 400};   // 200 by 400 pixels in the middle
    const auto corner = [&](double x, double y) { return at(x, y); };
    QTest::mousePress(&stage(), Qt::LeftButton, {}, corner(box.maxX(), box.maxY()));
    QTest::mouseMove(&stage(), corner(250, 300));
    QTest::mouseMove(&stage(), corner(200, 200));
    QTest::mouseRelease(&stage(), Qt::LeftButton, {}, corner(200, 200));
    const auto& grown = std::get<ImageContent>(layer().content);
    ASSERT_TRUE(grown.heightFraction);
    EXPECT_NEAR(*grown.heightFraction, 0.5, 0.02);
    EXPECT_NEAR(layer().position.x, 150, 4) << "about the corner that stays";
    EXPECT_NEAR(layer().position.y, 100, 4);
}

}   // namespace
}   // namespace tavix::editor
