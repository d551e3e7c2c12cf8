// Widgets without a display.
#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    tavix::design::Style::apply(application, tavix::design::dark());
    return RUN_ALL_TESTS();
}
