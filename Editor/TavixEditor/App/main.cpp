// tavix-editor [BUNDLE…]
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/MainWindow.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char** argv) {
    using namespace tavix;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavix-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tavix"));
    QApplication::setApplicationVersion(QStringLiteral(TAVIX_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tavix.Editor"));
    QApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("BUNDLE"),
        QCoreApplication::translate("main", "A .tavixcomp bundle to open."), QStringLiteral("[BUNDLE…]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);

    design::Style::apply(application, design::dark());
    editor::Studio studio(system::StandardFolders::ofUser(), editor::Sound::desktop);
    editor::MainWindow window(studio);
    window.onClosed = [] { QApplication::quit(); };
    window.show();
    for (const QString& argument : parser.positionalArguments())
        window.openDocument(editor::pathOf(argument));
    return QApplication::exec();
}
