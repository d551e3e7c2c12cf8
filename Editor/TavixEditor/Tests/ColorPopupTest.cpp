// Colours that are chosen by hand, in the inspector of a text.
#include "TavixEditor/Inspector/ColorPopup.h"
#include "EditorTestKit.h"
#include "TavixEditor/Inspector/Colors.h"
#include "TavixEditor/Inspector/InspectorView.h"
#include "TavixEditor/Inspector/ScreenPick.h"
#include "TavixEditor/Inspector/ScrubField.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace tavix::editor {
namespace {

using testing::QuietStudio;

struct ColorPopupTest : ::testing::Test {
    QuietStudio studio;
    std::unique_ptr<QWidget> view;

    void SetUp() override {
        view.reset(makeInspectorView(studio.model, nullptr, {}));
        view->resize(320, 900);
        view->show();
        studio.model.selectLayer(0, 1);
        QApplication::processEvents();
        set(RGBAColor{1, 0.5, 0, 1});
        open();
    }
    void set(const RGBAColor& color) {
        studio.model.update("Color",
            [&](EditState& state) { std::get<TextContent>(state.layer(0, 1)->content).color = color; });
    }
    void open() { QTest::mouseClick(in<QAbstractButton>(view.get(), "Color"), Qt::LeftButton); }
    QWidget* popup() const {
        for (QWidget* const each : view->findChildren<QWidget*>(QStringLiteral("colorPopup")))
            if (each->isVisible()) return each;
        return nullptr;
    }
    template <class Widget> static Widget* in(const QWidget* top, const char* name) {
        for (Widget* const each : top->findChildren<Widget*>())
            if (each->accessibleName() == QLatin1String(name)) return each;
        ADD_FAILURE() << "there is no " << name;
        return nullptr;
    }
    QWidget* plane() const { return in<QWidget>(popup(), "Saturation and brightness"); }
    // In parts of its sides.
    void press(double x, double y) const {
        QTest::mouseClick(plane(), Qt::LeftButton, {},
            QPoint(1 + int(x * (plane()->width() - 2)), 1 + int(y * (plane()->height() - 2))));
    }
    QColor color() const { return qColor(std::get<TextContent>(studio.layer(1).content).color); }
    const std::string& undoName() const { return *studio.model.history().undoName(); }
};

TEST_F(ColorPopupTest, TheCornersOfThePlaneAreWhiteTheHueAndBlack) {
    press(0, 0);
    EXPECT_EQ(color(), QColor(Qt::white));
    press(1, 0);
    EXPECT_EQ(color().rgb(), QColor(255, 128, 0).rgb()) << "the hue outlives white";
    press(0.5, 1);
    EXPECT_EQ(color(), QColor(Qt::black));
    press(1, 0);
    EXPECT_EQ(color().rgb(), QColor(255, 128, 0).rgb()) << "and black";
}

TEST_F(ColorPopupTest, AllThatIsChosenIsOneStepAndEscapeGivesItUp) {
    press(0.3, 0.3);
    press(0.6, 0.1);
    EXPECT_NE(color().rgb(), QColor(255, 128, 0).rgb());
    QTest::keyClick(popup(), Qt::Key_Escape);
    EXPECT_FALSE(popup());
    EXPECT_EQ(color().rgb(), QColor(255, 128, 0).rgb());
    EXPECT_EQ(undoName(), "Color") << "nothing was done";
    open();
    press(0, 0);
    in<QSlider>(popup(), "Hue")->setValue(240);
    press(1, 0);
    popup()->close();
    EXPECT_EQ(color(), QColor(Qt::blue));
    EXPECT_EQ(undoName(), "Change Color");
    studio.model.undo();
    EXPECT_EQ(color().rgb(), QColor(255, 128, 0).rgb());
}

TEST_F(ColorPopupTest, EachNumberIsItsOwnPartOfTheColour) {
    struct {
        const char* name;
        int after[4];   // an arrow key, of red, green, blue and of alpha
    } const cases[]{{"R", {254, 128, 0, 255}}, {"G", {254, 127, 0, 255}}, {"B", {254, 127, 1, 255}},
        {"Opacity", {254, 127, 1, 252}}};
    for (const auto& c : cases) {
        ScrubField* field = nullptr;
        for (ScrubField* const each : popup()->findChildren<ScrubField*>())
            if (each->accessibleName() == QLatin1String(c.name)) field = each;
        ASSERT_TRUE(field) << c.name;
        QTest::keyClick(field, c.name == std::string_view("B") ? Qt::Key_Up : Qt::Key_Down);
        EXPECT_EQ(color().rgba(), qRgba(c.after[0], c.after[1], c.after[2], c.after[3])) << c.name;
    }
}

TEST_F(ColorPopupTest, OpacityAndDigitsAreColoursToo) {
    in<QSlider>(popup(), "Opacity")->setValue(51);
    EXPECT_EQ(color().alpha(), 51);
    EXPECT_EQ(color().rgb() & 0xffffff, QColor(255, 128, 0).rgb() & 0xffffff);
    auto* const digits = in<QLineEdit>(popup(), "Hexadecimal digits");
    EXPECT_EQ(digits->text(), QStringLiteral("#ff800033"));
    digits->setFocus();
    digits->selectAll();
    QTest::keyClicks(digits, QStringLiteral("#0f0"));
    QTest::keyClick(digits, Qt::Key_Return);
    EXPECT_EQ(color(), QColor(Qt::green));
    EXPECT_FALSE(popup()) << "Return keeps it";
}

TEST_F(ColorPopupTest, OffersWhatTheFilmHasAndWhatWasChosenBefore) {
    EXPECT_TRUE(in<QAbstractButton>(popup(), "#ff8000"));
    press(0, 0);
    in<QSlider>(popup(), "Hue")->setValue(120);
    press(1, 0);
    popup()->close();
    set(RGBAColor{0, 0, 1, 1});   // no green in the film any more
    open();
    auto* const recent = in<QAbstractButton>(popup(), "#00ff00");
    ASSERT_TRUE(recent);
    QTest::mouseClick(recent, Qt::LeftButton);
    EXPECT_EQ(color(), QColor(Qt::green));
}

TEST_F(ColorPopupTest, ArrowsMoveInThePlane) {
    press(1, 0);
    for (int i = 0; i < 10; ++i) QTest::keyClick(plane(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(color(), QColor(Qt::black));
    for (int i = 0; i < 100; ++i) QTest::keyClick(plane(), Qt::Key_Up);
    for (int i = 0; i < 10; ++i) QTest::keyClick(plane(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(color(), QColor(Qt::white));
}

TEST(ScreenPick, TakesWhatIsUnderThePointer) {
    QWidget ground;
    QPalette red;
    red.setColor(QPalette::Window, QColor(200, 10, 30));
    ground.setPalette(red);
    ground.setGeometry(40, 40, 200, 200);
    ground.show();
    std::optional<QColor> picked;
    int times = 0;
    const auto pick = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        pickFromScreen(&ground, [&](const std::optional<QColor>& color) {
            picked = color;
            ++times;
        });
        return ground.findChild<QWidget*>(QStringLiteral("screenPick"));
    };
    const QPoint middle = ground.mapToGlobal(QPoint(100, 100));
    QWidget* lens = pick();
    QTest::mouseClick(lens, Qt::LeftButton, {}, lens->mapFromGlobal(middle));
    ASSERT_TRUE(picked);
    EXPECT_EQ(*picked, QColor(200, 10, 30));
    lens = pick();
    QTest::keyClick(lens, Qt::Key_Escape);
    EXPECT_FALSE(picked) << "Escape takes none";
    EXPECT_EQ(times, 2);
}

}   // namespace
}   // namespace tavix::editor
