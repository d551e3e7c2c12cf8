// tavix-editor [BUNDLE…]
#include "TavixEditor/App/Application.h"
#include "TavixEditor/App/Translation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>

#include <malloc.h>

int main(int argc, char** argv) {
    using namespace tavix;
    // Pictures go back to the system when they are freed, and threads share what they allocate from.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    mallopt(M_ARENA_MAX, 2);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavix-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tavix"));
    QApplication::setApplicationVersion(QStringLiteral(TAVIX_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tavix.Editor"));
    QApplication::setQuitOnLastWindowClosed(false);

    // Of the theme where it is installed, and beside the program where it was built.
    QIcon::setFallbackSearchPaths(
        QIcon::fallbackSearchPaths() << QCoreApplication::applicationDirPath() +
                                            QStringLiteral("/../share/icons/hicolor/256x256/apps"));
    QApplication::setWindowIcon(QIcon::fromTheme(QApplication::desktopFileName()));

    editor::translateInto(QLocale(), application);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Edits compositions of product videos in a window."));
    parser.addPositionalArgument(QStringLiteral("BUNDLE"),
        QCoreApplication::translate("main", "A .tavixcomp bundle to open."), QStringLiteral("[BUNDLE…]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    QStringList bundles;
    for (const QString& bundle : parser.positionalArguments())
        bundles << QFileInfo(bundle).absoluteFilePath();   // another instance stands in another folder

    editor::OneInstance instance;
    if (instance.handOver(bundles)) return 0;
    editor::Application windows(system::StandardFolders::ofUser());
    instance.listen([&windows](const QStringList& of) { windows.open(of); });
    windows.open(bundles);
    return QApplication::exec();
}
