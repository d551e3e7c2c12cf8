// Controls of texts: what is written, its font and its animation, and the files of pictures and sounds.
#include "TavixEditor/Inspector/RowControl.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Typography/KineticSelector.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/FileChoice.h"
#include "TavixEditor/Inspector/InspectorWords.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

#include <memory>

namespace tavix::editor {

using namespace design;

namespace {

// All that is typed until the field is left is one step.
class Paragraph final : public QPlainTextEdit {
public:
    explicit Paragraph(QWidget* parent) : QPlainTextEdit(parent) {
        setTabChangesFocus(true);
        setFixedHeight(68);
        setFrameShape(QFrame::NoFrame);
    }
    std::function<void()> onLeave;

protected:
    void focusOutEvent(QFocusEvent* event) override {
        QPlainTextEdit::focusOutEvent(event);
        if (event->reason() != Qt::PopupFocusReason && onLeave) onLeave();
    }
};

}   // namespace

RowControl makeParagraphControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* field = new Paragraph(parent);
    field->setAccessibleName(documentLabel(row.label));
    const auto kept = std::make_shared<InspectorRow>(row);
    const auto isShowing = std::make_shared<bool>(false), isDirty = std::make_shared<bool>(false);
    QObject::connect(field, &QPlainTextEdit::textChanged, field, [=, &edits] {
        if (*isShowing) return;
        *isDirty = true;
        edits.set(*kept, Json(utf8Of(field->toPlainText())), true);
    });
    field->onLeave = [=, &edits] {
        if (*isDirty) edits.set(*kept, Json(utf8Of(field->toPlainText())), false);
        *isDirty = false;
    };
    return {field,
        [=](const InspectorRow& now) {
            *kept = now;
            const QString text = now.isMixed ? QString() : words(now.value.stringValue().value_or(""));
            field->setPlaceholderText(now.isMixed ? mixedWords() : InspectorWords::tr("Text"));
            if (text == field->toPlainText()) return;
            *isShowing = true;
            field->setPlainText(text);
            *isShowing = false;
        },
        true};
}

RowControl makeFileControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(space::tight);
    auto* field = new QLineEdit(box);
    field->setFrame(false);
    field->setAccessibleName(documentLabel(row.label));
    field->setPlaceholderText(InspectorWords::tr("No file"));
    auto* choose = makeIconButton(Icon::folder, InspectorWords::tr("Choose a file…"), box);
    line->addWidget(field, 1);
    line->addWidget(choose);
    const auto kept = std::make_shared<InspectorRow>(row);
    const auto tell = [=, &edits](const std::string& path) {
        edits.set(*kept, path.empty() && kept->isOptional ? Json() : Json(path), false);
    };
    QObject::connect(field, &QLineEdit::editingFinished, field, [=] {
        if (field->isModified()) tell(utf8Of(field->text()));
        field->setModified(false);
    });
    QObject::connect(choose, &QToolButton::clicked, field, [=, &edits] {
        if (const auto file = chooseFile(field, kept->role, edits.folder())) tell(*file);
    });
    return {box, [=](const InspectorRow& now) {
                *kept = now;
                if (field->hasFocus() && field->isModified()) return;
                field->setPlaceholderText(now.isMixed ? mixedWords() : InspectorWords::tr("No file"));
                field->setText(now.isMixed ? QString() : words(now.value.stringValue().value_or("")));
                field->end(false);   // the name of a file says more than its folders
            }};
}

RowControl makeFontControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QFontComboBox(parent);
    box->setAccessibleName(documentLabel(row.label));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(8);
    box->setMaxVisibleItems(14);
    box->lineEdit()->setFrame(false);
    const auto kept = std::make_shared<InspectorRow>(row);
    const auto tell = [=, &edits] {
        const std::string name = utf8Of(box->currentText().trimmed());
        edits.set(*kept, name.empty() ? Json() : Json(name), false);
    };
    QObject::connect(box, &QComboBox::activated, box, tell);
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, [=] {
        if (box->currentText().trimmed() != words(kept->value.stringValue().value_or(""))) tell();
    });
    return {box, [=](const InspectorRow& now) {
                *kept = now;
                const QSignalBlocker quietly(box);
                box->lineEdit()->setPlaceholderText(
                    now.isMixed ? mixedWords() : InspectorWords::tr("The theme's"));
                if (box->lineEdit()->hasFocus()) return;
                box->setEditText(now.isMixed ? QString() : words(now.value.stringValue().value_or("")));
                box->lineEdit()->setCursorPosition(0);
            }};
}

namespace {

struct KineticChoice {
    std::string_view key;
    QComboBox* box;
};

// The row's value with another word. A hand-made style is given up for a preset, whatever is chosen first.
Json withWord(const InspectorRow& row, std::string_view key, const QVariant& word) {
    JsonObject made = row.value.find("preset") && row.value.object()
                          ? *row.value.object()
                          : JsonObject{{"preset", Json(KineticVocabulary::defaultPreset)}};
    if (word.isValid())
        made.set(key, Json(utf8Of(word.toString())));
    else
        made.remove(key);
    return made;
}

// Shows the word of the row's value, or the usual one of its preset.
void showWord(const KineticChoice& choice, const InspectorRow& row) {
    const Json* const value = row.value.find(choice.key);
    const bool hasPreset = row.value.find("preset") != nullptr;
    std::string word = value ? value->stringValue().value_or("") : "";
    if (word.empty() && hasPreset && choice.key == "speed") word = KineticVocabulary::defaultSpeed;
    if (word.empty() && hasPreset && choice.key == "intensity") word = KineticVocabulary::defaultIntensity;
    const int none = hasPreset && choice.key == "weight" ? 0 : -1;
    choice.box->setPlaceholderText(row.isMixed ? mixedWords() : InspectorWords::tr("Hand-made"));
    choice.box->setCurrentIndex(row.isMixed ? -1 : word.empty() ? none : choice.box->findData(words(word)));
}

}   // namespace

RowControl makeKineticControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(space::small);
    grid->setVerticalSpacing(space::tight);
    const auto kept = std::make_shared<InspectorRow>(row);
    auto* notice = makeLabel(
        InspectorWords::tr(
            "This item has hand-authored values. Choose a preset to replace them with editable semantic controls."),
        TextSize::caption, Tone::secondary, box);
    notice->setWordWrap(true);
    grid->addWidget(notice, 0, 0, 1, 2);
    std::vector<KineticChoice> choices;
    const auto add = [&](std::string_view key, const QString& label, const auto& ids, bool hasDefault) {
        auto* choice = new QComboBox(box);
        choice->setAccessibleName(label);
        if (hasDefault) choice->addItem(InspectorWords::tr("Preset's own"));
        for (const std::string_view id : ids) choice->addItem(wordLabel(std::string(id)), words(id));
        const int at = int(choices.size()) + 1;
        grid->addWidget(makeLabel(label, TextSize::caption, Tone::secondary, box), at, 0);
        grid->addWidget(choice, at, 1);
        choices.push_back({key, choice});
        QObject::connect(choice, &QComboBox::activated, choice, [=, &edits](int index) {
            edits.set(*kept, withWord(*kept, key, choice->itemData(index)), false);
        });
    };
    add("preset", InspectorWords::tr("Preset"), KineticVocabulary::presetIDs, false);
    add("speed", InspectorWords::tr("Speed"), KineticVocabulary::speeds(), false);
    add("weight", InspectorWords::tr("Weight"), KineticVocabulary::weights(), true);
    add("intensity", InspectorWords::tr("Intensity"), KineticVocabulary::intensities(), false);
    grid->setColumnStretch(1, 1);
    return {box,
        [=](const InspectorRow& now) {
            *kept = now;
            notice->setVisible(!now.value.find("preset") && !now.isMixed);
            for (const KineticChoice& choice : choices) showWord(choice, now);
        },
        true};
}

}   // namespace tavix::editor
