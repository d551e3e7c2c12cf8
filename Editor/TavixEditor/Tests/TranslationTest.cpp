// The interface in other languages: nothing is left out, and nothing is mixed up.
#include "TavixEditor/App/Translation.h"

#include "Editor/EditorDomain/Inspector/DocumentWords.h"
#include "TavixEditor/App/DocumentText.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tavix::editor {
namespace {

// Of a file of translations: the words of each context, and what they became.
using Translations = std::map<std::pair<QString, QString>, QString>;

Translations read(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << name.toStdString();
    QXmlStreamReader xml(&file);
    Translations all;
    QString context, source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("name")) context = xml.readElementText();
        if (xml.name() == QLatin1String("source")) source = xml.readElementText();
        if (xml.name() == QLatin1String("translation")) {
            const bool isOpen = xml.attributes().hasAttribute(QStringLiteral("type"));
            const QString words = xml.readElementText();
            all[{context, source}] = isOpen ? QString() : words;
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return all;
}

QString fileOf(const char* language) {
    return QStringLiteral(TAVIX_EDITOR_SOURCES "/Translations/tavix-editor_%1.ts")
        .arg(QLatin1String(language));
}

std::multiset<QString> placeholdersOf(const QString& words) {
    static const QRegularExpression place(QStringLiteral("%[0-9n]"));
    std::multiset<QString> all;
    for (auto found = place.globalMatch(words); found.hasNext();) all.insert(found.next().captured());
    return all;
}

class InLanguage : public ::testing::TestWithParam<const char*> {};

TEST_P(InLanguage, EveryTranslationKeepsWhatIsPutIntoItAndAKeyToReachIt) {
    const Translations all = read(fileOf(GetParam()));
    EXPECT_GT(all.size(), 200u);
    for (const auto& [key, words] : all) {
        const std::string what = (key.first + QStringLiteral(": ") + key.second).toStdString();
        EXPECT_FALSE(words.isEmpty()) << what;
        EXPECT_EQ(placeholdersOf(words), placeholdersOf(key.second)) << what;
        EXPECT_EQ(words.count(QLatin1Char('&')), key.second.count(QLatin1Char('&'))) << what;
        EXPECT_EQ(words.endsWith(QStringLiteral("…")), key.second.endsWith(QStringLiteral("…"))) << what;
        EXPECT_EQ(words.startsWith(QLatin1Char(' ')), key.second.startsWith(QLatin1Char(' '))) << what;
    }
}

// Words that are being written may be English for a while, but not many, and none where all is done.
TEST_P(InLanguage, EveryWordOfTheProgramHasATranslation) {
#ifndef TAVIX_LUPDATE
    GTEST_SKIP() << "Qt's linguist tools are missing.";
#else
    const QTemporaryDir folder;
    const Translations all = read(fileOf(GetParam()));
    for (const bool isWhole : {false, true}) {
        const QString found = folder.filePath(QStringLiteral("found.ts"));
        QFile::remove(found);
        QStringList arguments{
            QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none")};
        const QString sources = QStringLiteral(TAVIX_EDITOR_SOURCES);
        if (isWhole)
            arguments << sources;
        else
            for (const char* part : {"/App", "/Inspector", "/Panels", "/Timeline", "/Windows"})
                arguments << sources + QLatin1String(part);
        arguments << QStringLiteral("-I") << sources + QStringLiteral("/..") << QStringLiteral("-ts")
                  << found;
        ASSERT_EQ(QProcess::execute(QStringLiteral(TAVIX_LUPDATE), arguments), 0);
        const Translations wanted = read(found);
        ASSERT_GT(wanted.size(), 150u);
        std::size_t missing = 0;
        for (const auto& [key, none] : wanted)
            if (const auto known = all.find(key); known == all.end() || known->second.isEmpty()) {
                ++missing;
                EXPECT_TRUE(isWhole) << key.first.toStdString() << ": " << key.second.toStdString()
                                     << " has no translation; see docs/editor.md.";
            }
        EXPECT_LT(missing, wanted.size() / 10);
    }
#endif
}

// What the tables of documents say is in no source of the window: a key that is new is missed here.
TEST_P(InLanguage, EveryWordOfDocumentsHasATranslation) {
    const Translations all = read(fileOf(GetParam()));
    const DocumentWords words = documentWords();
    EXPECT_TRUE(words.labels.contains("Max width") && words.labels.contains("Line rise"))
        << "keys and choices";
    const auto expect = [&](const char* context, const std::set<std::string>& wanted) {
        ASSERT_GT(wanted.size(), 100u);
        for (const std::string& word : wanted) {
            const auto known = all.find({QString::fromLatin1(context), QString::fromStdString(word)});
            EXPECT_TRUE(known != all.end() && !known->second.isEmpty())
                << context << ": " << word << " has no translation; see docs/editor.md.";
        }
    };
    expect("Document", words.labels);
    expect("DocumentHelp", words.helps);
}

INSTANTIATE_TEST_SUITE_P(Languages, InLanguage, ::testing::Values("de", "ja"));

TEST(Translation, SpeaksTheLanguageOfTheDesktopOrEnglish) {
    auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
    EXPECT_FALSE(translateInto(QLocale(QStringLiteral("en_GB")), application));
    EXPECT_FALSE(translateInto(QLocale(QStringLiteral("fi_FI")), application));
    EXPECT_EQ(QCoreApplication::translate("MenuBar", "&File"), QStringLiteral("&File"));
#ifdef TAVIX_LUPDATE
    const auto before = application.findChildren<QTranslator*>();
    EXPECT_TRUE(translateInto(QLocale(QStringLiteral("de_AT")), application));
    EXPECT_EQ(QCoreApplication::translate("MenuBar", "&File"), QStringLiteral("&Datei"));
    EXPECT_EQ(documentLabel("Cue 12"), QStringLiteral("Klang 12"));
    EXPECT_EQ(stepWords("Move layer"), QStringLiteral("Ebene bewegen"));
    EXPECT_EQ(stepWords("Fade"), QStringLiteral("Fade")) << "a name that nobody translates stays";
    for (auto* one : application.findChildren<QTranslator*>())
        if (!before.contains(one)) QCoreApplication::removeTranslator(one);
    EXPECT_EQ(QCoreApplication::translate("MenuBar", "&File"), QStringLiteral("&File"));
#endif
}

}   // namespace
}   // namespace tavix::editor
