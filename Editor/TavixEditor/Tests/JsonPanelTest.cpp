// The document as a text: where things stand in it, what may stand there, and what the reader says.
#include "EditorWindow.h"

#include "TavixEditor/Panels/JsonCompletion.h"
#include "TavixEditor/Panels/JsonDraft.h"
#include "TavixEditor/Panels/JsonEdit.h"
#include "TavixEditor/Panels/JsonPanel.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>

#include <gmock/gmock.h>

#include <algorithm>

namespace tavix::editor {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

constexpr const char* film = R"({
  "output": {"widthPx": 320, "heightPx": 240},
  "scenes": [
    {"id": "one", "durationSec": 2, "layers": [
      {"id": "words", "kind": "text",
       "text": {"text": "A \"quoted\" word, {and} [brackets]", "sizeFraction": 0.1}},
      {"kind": "shape", "opacity": 0.5, "shape": {"kind": "ellipse"}}
    ]},
    {"durationSec": 1.5, "layers": []}
  ]
}
)";

TEST(JsonScan, FindsEveryValueAndPutsEachBackByteForByte) {
    const std::string text = film;
    const Json whole = parseJson(text);
    const JsonScan scan(text);
    EXPECT_EQ(scan.spans().size(), 23u);
    for (const JsonSpan& span : scan.spans()) {
        const Json* value = find(whole, span.at);
        ASSERT_TRUE(value) << span.at.text();
        EXPECT_EQ(parseJson(text.substr(span.from, span.to - span.from)), *value) << span.at.text();
        const std::string part = dedented(text, span);
        EXPECT_EQ(withPart(text, span, part), text) << span.at.text();
        EXPECT_EQ(parseJson(part), *value);
    }
}

TEST(JsonScan, StandsEveryTextThatIsCutShortOrBroken) {
    const std::string text = film;
    for (std::size_t length = 0; length <= text.size(); ++length)
        for (const char* end : {"", "}", "\"", ",", "]]]"}) {
            const JsonScan scan(text.substr(0, length) + end, length);
            for (const JsonSpan& span : scan.spans()) {
                EXPECT_LE(span.from, span.to);
                EXPECT_LE(span.to, length + std::string_view(end).size());
            }
        }
}

std::vector<std::string> candidates(std::string text, const JsonPointer& base = {}) {
    const std::size_t cursor = text.find('|');
    text.erase(cursor, 1);
    std::vector<std::string> all;
    for (const JsonCandidate& one : candidatesAt(JsonScan(text, cursor), typeOf<CompositionSpec>(), base))
        all.push_back(one.text);
    return all;
}

TEST(JsonCompletion, KnowsTheKeysOfAPlaceAndTheWordsOfAKey) {
    EXPECT_THAT(candidates(R"({|})"), IsSupersetOf({"\"scenes\"", "\"output\"", "\"audio\""}));
    EXPECT_THAT(candidates(R"({"scenes": [], "ou|})"), Not(Contains("\"scenes\"")));
    EXPECT_THAT(candidates(R"({"scenes": [{"layers": [{|}]}]})"), IsSupersetOf({"\"kind\"", "\"opacity\""}));
    EXPECT_THAT(candidates(R"({"scenes": [{"layers": [{"kind": |}]}]})"),
        IsSupersetOf({"\"text\"", "\"device\"", "\"shape\""}));
    // What a layer holds follows from its kind, wherever that is written.
    EXPECT_THAT(candidates(R"({"scenes": [{"layers": [{|, "kind": "text"}]}]})"), Contains("\"text\""));
    EXPECT_THAT(candidates(R"({"scenes": [{"layers": [{"kind": "text", "text": {"|"}}]}]})"),
        IsSupersetOf({"\"sizeFraction\"", "\"alignment\"", "\"kinetic\""}));
    EXPECT_THAT(candidates(R"({"scenes": [{"layers": [{"kind": "shape", "shape": {"|"}}]}]})"),
        Not(Contains("\"sizeFraction\"")));
    EXPECT_THAT(candidates(R"({"scenes": [{"transition": {"style": "|"}}]})"), Contains("\"crosswarp\""));
    EXPECT_THAT(candidates(R"({"scenes": [{"durationSec": |}]})"), IsEmpty());
    EXPECT_THAT(candidates(R"({"nobody": {|}})"), IsEmpty());
    EXPECT_THAT(candidates(R"(|)"), IsEmpty());
    // A part stands at its place in the document.
    EXPECT_THAT(candidates(R"({"kind": "text", "|"})", JsonPointer::parse("/scenes/3/layers/1")),
        IsSupersetOf({"\"text\"", "\"fromSec\""}));
}

// The tables that complete are those that write.
TEST(JsonCompletion, OffersEveryKeyThatADocumentIsWrittenWithWhereItIsMissing) {
    const std::string text = film;
    const JsonScan all(text);
    int seen = 0;
    for (const JsonSpan& span : all.spans()) {
        if (span.keyFrom == span.from) continue;
        std::string without = text;
        std::fill(
            without.begin() + std::ptrdiff_t(span.keyFrom), without.begin() + std::ptrdiff_t(span.to), ' ');
        // An object without its kind is another one.
        if (span.at.tokens().back() == "kind") continue;
        std::vector<std::string> offered;
        for (const JsonCandidate& one :
            candidatesAt(JsonScan(without, span.keyFrom), typeOf<CompositionSpec>(), {}))
            offered.push_back(one.text);
        EXPECT_THAT(offered, Contains("\"" + span.at.tokens().back() + "\"")) << span.at.text();
        ++seen;
    }
    EXPECT_GT(seen, 10);
}

TEST(JsonDraft, TellsTheLineThatTheReaderStopsAt) {
    struct Row {
        const char *from, *to, *words;
        int line;
    };
    const JsonPart part = partOfText(film, JsonPointer::parse("/scenes/0/layers/0"));
    ASSERT_EQ(part.text.substr(0, 9), "{\"id\": \"w");
    EXPECT_FALSE(faultIn(part, film));
    for (const Row& row : {Row{"\"kind\": \"text\",", "\"kind\": \"text\"", "line 2", 1},
             Row{"0.1", "\"large\"", "sizeFraction", 1}, Row{"\"words\"", "7", "layers[0].id", 0},
             Row{"0.1}}", "0.1}", "", 1}}) {
        JsonPart wrong = part;
        wrong.text.replace(wrong.text.find(row.from), std::string_view(row.from).size(), row.to);
        const auto fault = faultIn(wrong, film);
        ASSERT_TRUE(fault) << row.to;
        EXPECT_EQ(fault->line, row.line) << fault->message;
        EXPECT_THAT(fault->message, ::testing::HasSubstr(row.words));
    }
    JsonPart odd = part;
    odd.text.replace(odd.text.find("sizeFraction"), 12, "sizeFracton");
    EXPECT_FALSE(faultIn(odd, film));
    const auto ignored = ignoredIn(odd, film);
    ASSERT_EQ(ignored.size(), 1u);
    EXPECT_EQ(ignored[0].line, 1);
    EXPECT_THAT(ignored[0].message, ::testing::HasSubstr("sizeFraction"));
    EXPECT_TRUE(ignoredIn(part, film).empty());
}

class JsonOfWindow : public EditorWindow {
protected:
    JsonEdit& show(const std::filesystem::path& bundle) {
        open(bundle);
        studio->model.selectLayer(0, 0);
        window->actions().json->setChecked(true);
        panel = window->findChild<JsonPanel*>(QStringLiteral("jsonPanel"));
        until([&] { return panel->edit().toPlainText().contains(QLatin1String("\"shape\"")); });
        return panel->edit();
    }
    QString told() {
        const auto* label = panel->findChild<QLabel*>(QStringLiteral("jsonTold"));
        return label->isVisible() ? label->text() : QString();
    }
    void change(const char* from, const char* to) {
        QString text = panel->edit().toPlainText();
        ASSERT_TRUE(text.contains(QLatin1String(from))) << text.toStdString();
        panel->edit().setPlainText(text.replace(QLatin1String(from), QLatin1String(to)));
    }
    JsonPanel* panel = nullptr;
};

TEST_F(JsonOfWindow, AppliesTheTextOfTheSelectionAsOneStep) {
    const auto bundle = makeBundle("square");
    JsonEdit& edit = show(bundle);
    EXPECT_FALSE(edit.toPlainText().contains(QLatin1String("scenes"))) << "only the layer";
    change("\"shape\" : {", "\"opacity\" : 0.125, \"odd\" : 1, \"shape\" : {");
    QTest::keyClick(&edit, Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return layer().opacity == 0.125; }));
    EXPECT_TRUE(until([&] { return told().contains(QLatin1String("odd")); })) << "a key that nobody knows";
    EXPECT_EQ(window->actions().undo->text(), QStringLiteral("&Undo Edit JSON"));
    window->actions().undo->trigger();
    EXPECT_EQ(layer().opacity, 1);
    EXPECT_TRUE(until([&] { return !edit.toPlainText().contains(QLatin1String("0.125")); }));
}

TEST_F(JsonOfWindow, WhatCannotBeReadStaysUntilItIsDiscarded) {
    JsonEdit& edit = show(makeBundle("square"));
    const QString before = edit.toPlainText();
    change("\"shape\" : {", "\"opacity\" : \"much\", \"shape\" : {");
    ASSERT_TRUE(until([&] { return told().startsWith(QLatin1String("Line ")); }));
    panel->apply();
    QTest::qWait(100);
    EXPECT_EQ(layer().opacity, 1);
    this->edit();   // elsewhere, meanwhile
    QTest::qWait(300);
    EXPECT_TRUE(edit.toPlainText().contains(QLatin1String("much")));
    click(panel, QStringLiteral("Discard"));
    EXPECT_TRUE(until([&] { return edit.toPlainText().contains(QLatin1String("\"opacity\" : 0.5")); }));
    EXPECT_TRUE(told().isEmpty());
}

TEST_F(JsonOfWindow, ALetterOffersKeysAndReturnTakesOne) {
    JsonEdit& edit = show(makeBundle("square"));
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(1);
    edit.setTextCursor(cursor);
    edit.setFocus();
    QTest::keyClicks(&edit, QStringLiteral("\"fromS"));
    ASSERT_TRUE(edit.isCompleting());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_TRUE(edit.toPlainText().startsWith(QLatin1String("{\"fromSec\": ")))
        << edit.toPlainText().toStdString();
}

}   // namespace
}   // namespace tavix::editor
