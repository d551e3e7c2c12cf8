#include "TavixEditor/Inspector/RowControl.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDomain/Inspector/DocumentWords.h"
#include "TavixCore/Support/Document.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/EasePopup.h"
#include "TavixEditor/Inspector/InspectorWords.h"
#include "TavixEditor/Inspector/ScrubField.h"
#include "TavixEditor/Inspector/WordPicks.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>

#include <cmath>
#include <memory>

namespace tavix::editor {

using namespace design;

namespace {

using Control = InspectorRow::Control;

constexpr int sliderSteps = 200;

void showNumber(ScrubField& field, const InspectorRow& row) {
    if (row.isMixed) return field.setAbsent(mixedWords());
    if (const auto number = row.value.doubleValue()) return field.setValue(*number * row.shownTimes);
    field.setAbsent(InspectorWords::tr("Auto"));
}

RowControl numberControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(space::small);
    auto* field = new ScrubField({}, words(shortSymbol(row.unit)), row.range, row.step, box);
    field->setAccessibleName(documentLabel(row.label));
    const auto kept = std::make_shared<InspectorRow>(row);
    const auto tell = [kept, &edits](double value, bool isEditing) {
        edits.set(*kept,
            Json(kept->range.decimals == 0 ? std::round(value) / kept->shownTimes : value / kept->shownTimes),
            isEditing);
    };
    field->onChange = tell;
    QSlider* slider = nullptr;
    if (row.range.lower == 0 && row.range.upper == 1) {
        slider = new QSlider(Qt::Horizontal, box);
        slider->setRange(0, sliderSteps);
        slider->setAccessibleName(documentLabel(row.label));
        QObject::connect(slider, &QSlider::valueChanged, field,
            [=](int value) { tell(double(value) / sliderSteps, slider->isSliderDown()); });
        QObject::connect(slider, &QSlider::sliderReleased, field,
            [=] { tell(double(slider->value()) / sliderSteps, false); });
        line->addWidget(slider, 1);
        field->setFixedWidth(64);
    }
    line->addWidget(field, slider ? 0 : 1);
    return {box, [=](const InspectorRow& now) {
                *kept = now;
                field->setRange(now.range);
                showNumber(*field, now);
                if (!slider || slider->isSliderDown()) return;
                const QSignalBlocker quietly(slider);
                slider->setValue(int(std::lround(now.value.doubleValue().value_or(0) * sliderSteps)));
            }};
}

QString partTitle(const std::string& part) {
    return part == "width"    ? QStringLiteral("W")
           : part == "height" ? QStringLiteral("H")
                              : words(part).toUpper();
}

RowControl numbersControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(space::small);
    const auto kept = std::make_shared<InspectorRow>(row);
    std::vector<ScrubField*> fields;
    const int columns = row.parts.size() == 3 ? 3 : 2;
    for (std::size_t i = 0; i < row.parts.size(); ++i) {
        const std::string part = row.parts[i];
        auto* field = new ScrubField(partTitle(part), {}, row.range, row.step, box);
        field->setAccessibleName(documentLabel(row.label) + QLatin1Char(' ') + words(part));
        field->onChange = [=, &edits](double value, bool isEditing) {
            if (kept->isOptional && kept->value.isNull()) edits.setPresent(*kept, true);
            edits.setPart(*kept, part, value, isEditing);
        };
        grid->addWidget(field, int(i) / columns, int(i) % columns);
        fields.push_back(field);
    }
    return {box,
        [=](const InspectorRow& now) {
            *kept = now;
            for (std::size_t i = 0; i < fields.size(); ++i) {
                const Json* const part = now.value.find(now.parts[i]);
                // A rectangle may be a list of its numbers.
                const JsonArray* const list = now.value.array();
                const auto number = part                       ? part->doubleValue()
                                    : list && i < list->size() ? (*list)[i].doubleValue()
                                                               : std::nullopt;
                if (number && !now.isMixed)
                    fields[i]->setValue(*number);
                else
                    fields[i]->setAbsent(now.isMixed ? mixedWords() : InspectorWords::tr("Auto"));
            }
        },
        columns == 3 || row.keyed};
}

RowControl toggleControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QCheckBox(parent);
    box->setAccessibleName(documentLabel(row.label));
    const auto kept = std::make_shared<InspectorRow>(row);
    const bool isPresence = row.control == Control::presence;
    QObject::connect(box, &QCheckBox::clicked, box, [=, &edits](bool isOn) {
        if (isPresence)
            edits.setPresent(*kept, isOn);
        else
            edits.set(*kept, Json(isOn), false);
    });
    return {box, [=](const InspectorRow& now) {
                *kept = now;
                box->setTristate(now.isMixed);
                const bool isOn = now.value.boolean() && *now.value.boolean();
                box->setCheckState(now.isMixed ? Qt::PartiallyChecked : isOn ? Qt::Checked : Qt::Unchecked);
            }};
}

RowControl wordControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setAccessibleName(documentLabel(row.label));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(6);
    if (row.isOptional) box->addItem(InspectorWords::tr("Default"));
    for (std::size_t i = 0; i < row.words.size(); ++i)
        box->addItem(i < row.wordNames.size() ? words(row.wordNames[i]) : wordLabel(row.words[i]),
            words(row.words[i]));
    const auto kept = std::make_shared<InspectorRow>(row);
    QObject::connect(box, &QComboBox::activated, box, [=, &edits](int index) {
        const QVariant word = box->itemData(index);
        if (kept->control == Control::alternative)
            edits.setAlternative(*kept, utf8Of(word.toString()));
        else
            edits.set(*kept, word.isValid() ? Json(utf8Of(word.toString())) : Json(), false);
    });
    return {box, [=](const InspectorRow& now) {
                *kept = now;
                const auto word = now.value.stringValue();
                const int index = word ? box->findData(words(*word)) : now.isOptional ? 0 : -1;
                box->setPlaceholderText(now.isMixed ? mixedWords() : word ? words(*word) : QString());
                box->setCurrentIndex(now.isMixed ? -1 : index);
            }};
}

RowControl textControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setAccessibleName(documentLabel(row.label));
    const auto kept = std::make_shared<InspectorRow>(row);
    QObject::connect(field, &QLineEdit::editingFinished, field, [=, &edits] {
        if (!field->isModified()) return;
        field->setModified(false);
        bool isNumber = false;
        const double number = field->text().toDouble(&isNumber);
        const bool wantsNumber = kept->value.isNumber() && isNumber;
        const bool isAway = kept->isOptional && field->text().isEmpty();
        edits.set(*kept, isAway ? Json() : wantsNumber ? Json(number) : Json(utf8Of(field->text())), false);
    });
    return {field, [=](const InspectorRow& now) {
                *kept = now;
                if (field->hasFocus() && field->isModified()) return;
                const auto text = now.value.stringValue();
                field->setPlaceholderText(now.isMixed      ? mixedWords()
                                          : now.isOptional ? InspectorWords::tr("None")
                                                           : QString());
                field->setText(now.isMixed          ? QString()
                               : text               ? words(*text)
                               : now.value.isNull() ? QString()
                                                    : words(writeJson(now.value)).trimmed());
                field->setModified(false);
            }};
}

RowControl curveControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* ease = new EaseControl(parent);
    const auto kept = std::make_shared<InspectorRow>(row);
    ease->onChange = [=, &edits](const TimingCurve& curve, bool isEditing) {
        edits.set(*kept, writeValue(typeOf<TimingCurve>(), &curve), isEditing);
    };
    return {ease,
        [=](const InspectorRow& now) {
            *kept = now;
            if (!now.value.isNull()) ease->setCurve(decodeValue<TimingCurve>(now.value));
        },
        true};
}

RowControl elementControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(0, 0, 0, 0);
    auto* away =
        makeIconButton(Icon::trash, InspectorWords::tr("Remove %1").arg(documentLabel(row.label)), box);
    line->addStretch();
    line->addWidget(away);
    const auto kept = std::make_shared<InspectorRow>(row);
    QObject::connect(away, &QToolButton::clicked, away, [=, &edits] { edits.remove(*kept); });
    return {box, [=](const InspectorRow& now) { *kept = now; }};
}

RowControl adderControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    auto* add = new QPushButton(InspectorWords::tr("Add %1").arg(documentLabel(row.label)), parent);
    const auto kept = std::make_shared<InspectorRow>(row);
    QObject::connect(add, &QPushButton::clicked, add, [=, &edits] { edits.append(*kept); });
    return {add, [=](const InspectorRow& now) { *kept = now; }, true};
}

RowControl noteControl(const InspectorRow&, RowEdits&, QWidget* parent) {
    auto* label = makeLabel({}, TextSize::body, Tone::secondary, parent);
    return {label, [=](const InspectorRow& now) {
                const auto count = now.value.integerValue();
                label->setText(now.isMixed ? mixedWords() : count ? QString::number(*count) : QString());
            }};
}

}   // namespace

QString mixedWords() { return InspectorWords::tr("Mixed"); }

QString wordLabel(const std::string& word) { return documentLabel(labelOfWord(word)); }

RowControl makeRowControl(const InspectorRow& row, RowEdits& edits, QWidget* parent) {
    switch (row.control) {
    case Control::number: return numberControl(row, edits, parent);
    case Control::numbers: return numbersControl(row, edits, parent);
    case Control::toggle:
    case Control::presence: return toggleControl(row, edits, parent);
    case Control::word:
    case Control::alternative: return wordControl(row, edits, parent);
    case Control::text: return textControl(row, edits, parent);
    case Control::paragraph: return makeParagraphControl(row, edits, parent);
    case Control::file: return makeFileControl(row, edits, parent);
    case Control::sound: return makeSoundControl(row, edits, parent);
    case Control::font: return makeFontControl(row, edits, parent);
    case Control::color: return makeColorControl(row, edits, parent);
    case Control::fill: return makeFillControl(row, edits, parent);
    case Control::curve: return curveControl(row, edits, parent);
    case Control::kinetic: return makeKineticControl(row, edits, parent);
    case Control::element: return elementControl(row, edits, parent);
    case Control::adder: return adderControl(row, edits, parent);
    case Control::picks: return makePicksControl(row, edits, parent);
    case Control::note: return noteControl(row, edits, parent);
    }
    return {};
}

}   // namespace tavix::editor
