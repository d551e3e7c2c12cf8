#include "TavixEditor/App/Translation.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tavix::editor {

bool translateInto(const QLocale& locale, QApplication& application) {
    if (locale.language() == QLocale::English || locale.language() == QLocale::C) return false;
    auto* ours = new QTranslator(&application);
    if (!ours->load(
            locale, QStringLiteral("tavix-editor"), QStringLiteral("_"), QStringLiteral(":/translations"))) {
        delete ours;
        return false;
    }
    // The dialogs of Qt speak the same, where its own words are installed.
    auto* ofQt = new QTranslator(&application);
    if (ofQt->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(ofQt);
    return QCoreApplication::installTranslator(ours);
}

}   // namespace tavix::editor
