// The interface in other languages: nothing is left out, and nothing is mixed up.
#include "TavixEditor/App/Translation.h"

#include "Editor/EditorDomain/Inspector/DocumentWords.h"
#include "TavixCore/Findings/LintRule.h"
#include "TavixCore/Support/Document.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/EngineProgram.h"
#include "TavixEditor/App/FindingText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/WrittenPlace.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixRender/Judge/DocumentJudge.h"
#include "TestSupport/SourceTree.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <filesystem>
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

// What the sources of a judge say in one piece: literals that end as sentences do.
std::set<QString> sentencesIn(const std::filesystem::path& source) {
    QFile file(pathWords(source));
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << source;
    QString code = QString::fromUtf8(file.readAll());
    code.remove(QRegularExpression(QStringLiteral("//[^\n]*|#include[^\n]*")));
    if (!code.contains(QStringLiteral("worded(")) && !code.contains(QStringLiteral("findingOf("))) return {};
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    static const QRegularExpression whole(QStringLiteral("^(?!it )[A-Za-z{\"].* .*\\.$"));
    std::set<QString> sentences;
    for (auto found = literal.globalMatch(code); found.hasNext();) {
        QString text = found.next().captured(1);
        text.replace(QStringLiteral("\\\""), QStringLiteral("\""));
        if (whole.match(text).hasMatch()) sentences.insert(text);
    }
    return sentences;
}

std::set<QString> sentencesOfTheJudge() {
    std::set<QString> all;
    for (const char* folder :
        {"Packages/TavixCore/Judge", "Packages/TavixCore/Time", "Packages/TavixRender/Judge"})
        for (const auto& entry : std::filesystem::directory_iterator(testsupport::inSourceTree(folder)))
            if (entry.path().extension() == ".cpp") all.merge(sentencesIn(entry.path()));
    return all;
}

// A document around an example of the rules, which may be a scene or a layer.
Json documentOf(const std::string& fragment) {
    const Json json = parseJson(fragment);
    if (json.find("scenes")) return json;
    const std::string scene =
        json.find("kind") ? R"({"durationSec": 3, "layers": [)" + fragment + "]}" : fragment;
    return parseJson(R"({"scenes": [)" + scene + "]}");
}

std::vector<Finding> findingsOf(const CompositionLint::RuleEntry& rule) {
    if (rule.fragment.empty()) return {};
    try {
        const Json written = documentOf(std::string(rule.fragment));
        return DocumentJudge::judge(decodeValue<CompositionSpec>(written), written,
            std::filesystem::temp_directory_path(), {.rules = true, .footage = true})
            .findings;
    } catch (const std::exception&) {
        return {};   // what cannot be read at all does not open in a window
    }
}

// The language, until it goes.
class Spoken {
public:
    explicit Spoken(const char* language) : before_(application().findChildren<QTranslator*>()) {
        translateInto(QLocale(QString::fromLatin1(language)), application());
    }
    ~Spoken() {
        for (auto* one : application().findChildren<QTranslator*>())
            if (!before_.contains(one)) QCoreApplication::removeTranslator(one);
    }

private:
    static QApplication& application() { return *qobject_cast<QApplication*>(QCoreApplication::instance()); }
    QList<QTranslator*> before_;
};

class InLanguage : public ::testing::TestWithParam<const char*> {};

TEST_P(InLanguage, AFindingNamesAnyKindOfLayerWithoutEnglish) {
    const Spoken language(GetParam());
    for (const ContentKindRow& kind : contentKinds) {
        EditState state;
        state.spec.scenes.emplace_back().durationSec = 4;
        LayerOperations::addLayer(state, 0, kind.kind);
        const QString place = words(wordsOf({0, 0, {}}, state.spec));
        EXPECT_FALSE(place.contains(QStringLiteral("layer"))) << place.toStdString();
        EXPECT_FALSE(place.contains(QStringLiteral("this "))) << place.toStdString();
    }
}

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

// A new sentence of a rule is missed here.
TEST_P(InLanguage, EverySentenceOfTheJudgeIsKnown) {
    const auto sentences = sentencesOfTheJudge();
    EXPECT_GT(sentences.size(), 80u);
    for (QString sentence : sentences)
        EXPECT_TRUE(knownFinding(sentence.replace(QStringLiteral("{}"), QString())))
            << sentence.toStdString() << " is not in FindingSentences.cpp; see docs/editor.md.";
    std::size_t told = 0;
    const Spoken spoken(GetParam());
    for (const CompositionLint::RuleEntry& rule : CompositionLint::rules())
        for (const Finding& finding : findingsOf(rule))
            for (const std::string& said : {finding.message, finding.suggestion.value_or("")}) {
                if (said.empty()) continue;
                ++told;
                EXPECT_TRUE(knownFinding(words(said))) << said;
#ifdef TAVIX_LUPDATE
                EXPECT_NE(utf8Of(findingWords(said)), said);
#endif
            }
    EXPECT_GT(told, 60u);
}

TEST_P(InLanguage, EveryTemplateOfTheCommandHasATranslation) {
    QProcess command;
    command.start(
        engineProgram(), {QStringLiteral("new"), QStringLiteral("--list"), QStringLiteral("--json")});
    if (!command.waitForFinished()) GTEST_SKIP() << "The command is not built.";
    const Translations all = read(fileOf(GetParam()));
    const QJsonArray templates = QJsonDocument::fromJson(command.readAllStandardOutput()).array();
    EXPECT_GE(templates.size(), 6);
    for (const auto& one : templates) {
        const QString about = one.toObject()[QLatin1String("about")].toString();
        EXPECT_TRUE(all.contains({QStringLiteral("Template"), about})) << about.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, InLanguage, ::testing::Values("de", "ja"));

TEST(Translation, SpeaksTheLanguageOfTheDesktopOrEnglish) {
    auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
    EXPECT_FALSE(translateInto(QLocale(QStringLiteral("en_GB")), application));
    EXPECT_FALSE(translateInto(QLocale(QStringLiteral("fi_FI")), application));
    EXPECT_EQ(QCoreApplication::translate("MenuBar", "&File"), QStringLiteral("&File"));
#ifdef TAVIX_LUPDATE
    {
        const Spoken spoken("de_AT");
        EXPECT_EQ(QCoreApplication::translate("MenuBar", "&File"), QStringLiteral("&Datei"));
        EXPECT_EQ(documentLabel("Cue 12"), QStringLiteral("Klang 12"));
        EXPECT_EQ(documentLabel("Rise Yaw 360"), QStringLiteral("Aufsteigen, Gierdrehung 360"));
        EXPECT_EQ(stepWords("Move layer"), QStringLiteral("Ebene bewegen"));
        EXPECT_EQ(stepWords("Fade"), QStringLiteral("Fade")) << "a name that nobody translates stays";
    }
    EXPECT_EQ(QCoreApplication::translate("MenuBar", "&File"), QStringLiteral("&File"));
#endif
}

TEST(Translation, LeavesFindingsAsTheyAreInEnglish) {
    for (const CompositionLint::RuleEntry& rule : CompositionLint::rules())
        for (const Finding& finding : findingsOf(rule)) {
            EXPECT_EQ(utf8Of(findingWords(finding.message)), finding.message);
            EXPECT_EQ(utf8Of(findingWords(finding.suggestion.value_or(""))), finding.suggestion.value_or(""));
        }
}

#ifdef TAVIX_LUPDATE
TEST(Translation, KeepsWhatAFindingSpeaksOf) {
    const struct {
        const char *english, *german;
    } cases[] = {{"\"layer %2\" shows for 0.2s — under the readability floor (0.35s for 1 word).",
                     "„layer %2“ ist 0.2 s zu sehen; zum Lesen braucht es 0.35 s (1 Wort)."},
        {"\"a\nb\" shows for 0.2s — under the readability floor (0.4s for 2 words).",
            "„a\nb“ ist 0.2 s zu sehen; zum Lesen braucht es 0.4 s (2 Wörter)."},
        {"This text layer is never seen: \"motion\" lies in front of all of it.",
            "Diese Ebene (Text) ist nie zu sehen: \"motion\" liegt ganz davor."},
        {"There is no word 7: the text has 1 word, counted from 0.",
            "Ein Wort 7 gibt es nicht: der Text hat ein Wort, von 0 an gezählt."},
        {"opacity is read as 1; it must be between 0 and 1.",
            "opacity wird als 1 gelesen; erlaubt ist zwischen 0 und 1."},
        {"enter has no effect beside the formation \"fanDeck\", which leaves the device flat, which takes its place.",
            "enter wirkt nicht neben der Formation „fanDeck“, die das Gerät flach lässt: das tritt an seine Stelle."},
        {"Intro: the device screen's footage ends 1.00s into the layer window but the window runs to 3.00s — the last frame freezes for 2.00s.",
            "Intro: das Material (Bildschirm des Geräts) endet nach 1.00 s, aber die Ebene dauert 3.00 s; das letzte Bild steht 2.00 s."},
        {"Set scenes[0].durationSec to 2.5 (or use durationBeats) to land the cut on the beat.",
            "scenes[0].durationSec auf 2.5 setzen (oder durationBeats verwenden), damit der Schnitt auf den Schlag fällt."},
        {"The file is no PNG.", "The file is no PNG."}};
    const Spoken spoken("de");
    for (const auto& c : cases) EXPECT_EQ(utf8Of(findingWords(c.english)), c.german);
}
#endif

}   // namespace
}   // namespace tavix::editor
