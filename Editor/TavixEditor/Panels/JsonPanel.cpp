#include "TavixEditor/Panels/JsonPanel.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixCore/Support/Document.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/JsonEdit.h"
#include "TavixEditor/Panels/WrittenPlace.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <exception>
#include <utility>

namespace tavix::editor {

using namespace design;

namespace {

constexpr double readPauseSec = 0.15, judgePauseSec = 0.3;

struct Read {
    JsonPart part;
    std::string whole, where;
};

}   // namespace

JsonPanel::JsonPanel(
    CompositionEditorModel& model, system::SerialExecutor& main, system::Executor& workers, QWidget* parent)
    : QWidget(parent), model_(model), main_(main), workers_(workers), extent_(new QComboBox),
      place_(makeLabel({}, TextSize::caption, Tone::secondary)), told_(makeLabel({}, TextSize::caption)),
      edit_(new JsonEdit), apply_(new QPushButton(tr("Apply"))), discard_(new QPushButton(tr("Discard"))) {
    setObjectName(QStringLiteral("jsonPanel"));
    setFocusProxy(edit_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* head = new QHBoxLayout;
    head->setContentsMargins(space::large, 0, space::large, space::small);
    head->setSpacing(space::small);
    extent_->addItems({tr("Selection"), tr("Whole Document")});
    extent_->setAccessibleName(tr("What is shown"));
    head->addWidget(extent_);
    head->addWidget(place_, 1);
    column->addLayout(head);
    edit_->setAccessibleName(tr("Document as JSON"));
    edit_->installEventFilter(this);
    column->addWidget(edit_, 1);
    column->addWidget(makeRule(Qt::Horizontal));
    column->addWidget(makeFoot());
    edit_->candidates = [this](const JsonScan& scan) {
        return candidatesAt(scan, typeOf<CompositionSpec>(), shown_.at);
    };
    edit_->onMeaning = [this](const QString& meaning) {
        if (!hasFault_) tell(meaning, std::nullopt, false);
    };
    QObject::connect(edit_, &QPlainTextEdit::textChanged, this, [this] { noteTyping(); });
    QObject::connect(extent_, &QComboBox::currentIndexChanged, this, [this] { noteEdit(); });
    connections_.push_back(watch([this] { noteEdit(); }, model_.state.edited, model_.state.isLoaded));
}

QWidget* JsonPanel::makeFoot() {
    auto* foot = new QWidget;
    auto* column = new QVBoxLayout(foot);
    column->setContentsMargins(space::large, space::small, space::large, space::medium);
    column->setSpacing(space::small);
    told_->setObjectName(QStringLiteral("jsonTold"));
    told_->setWordWrap(true);
    told_->setVisible(false);
    told_->installEventFilter(this);
    column->addWidget(told_);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(space::small);
    buttons->addStretch();
    buttons->addWidget(discard_);
    buttons->addWidget(apply_);
    apply_->setToolTip(QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText));
    column->addLayout(buttons);
    QObject::connect(apply_, &QPushButton::clicked, this, [this] { apply(); });
    QObject::connect(discard_, &QPushButton::clicked, this, [this] { discard(); });
    showButtons();
    return foot;
}

JsonPart JsonPanel::draft() const { return {utf8Of(edit_->toPlainText()), shown_.at}; }
bool JsonPanel::isDirty() const { return draft().text != shown_.text; }

// What is being written stays; the rest follows the document and the selection while it can be seen.
void JsonPanel::noteEdit() {
    isStale_ = true;
    if (!model_.state.isLoaded()) shown_ = {};
    if (!isVisible() || isDirty() || !model_.state.isLoaded()) return;
    readTimer_ = main_.after(readPauseSec, [this] { read(); });
}

void JsonPanel::showEvent(QShowEvent*) {
    if (isStale_ && !isDirty() && model_.state.isLoaded()) read();
}

void JsonPanel::read() {
    reading_.cut();
    isStale_ = false;
    const Selection selection = extent_->currentIndex() == 0 ? model_.state.edited().selection : Selection();
    system::runThere(
        workers_, main_,
        [saved = model_.savedText(), selection] {
            Read read;
            read.whole = saved();
            const auto spec = decodeJson<CompositionSpec>(read.whole);
            const JsonPointer at = writtenPlaceOf(spec, selection.scene, selection.layer);
            read.part = partOfText(read.whole, at);
            read.where = wordsOf(placeOf(read.part.at, spec), spec);
            return read;
        },
        reading_.guard([this](system::Outcome<Read>& outcome) {
            try {
                Read& found = outcome.value();
                if (isDirty()) return;
                place_->setText(words(found.where));
                show(std::move(found.part), std::move(found.whole));
            } catch (const std::exception& error) {
                tell(words(error.what()), std::nullopt, true);
            }
        }));
}

void JsonPanel::show(JsonPart part, std::string whole) {
    whole_ = std::move(whole);
    const bool isSame = part.text == shown_.text && part.at == shown_.at;
    shown_ = std::move(part);
    if (!isSame) {
        const QSignalBlocker blocked(edit_);
        edit_->setPlainText(words(shown_.text));
        shown_.text = utf8Of(edit_->toPlainText());   // its line breaks are those of the field
        tell({}, std::nullopt, false);
    }
    showButtons();
}

void JsonPanel::noteTyping() {
    showButtons();
    judgeTimer_ = main_.after(judgePauseSec, [this] { judge(); });
}

void JsonPanel::judge() {
    const auto fault = isDirty() ? faultIn(draft(), whole_) : std::nullopt;
    if (fault)
        tell(tr("Line %1: %2").arg(fault->line + 1).arg(words(fault->message)), fault->line, true);
    else
        tell({}, std::nullopt, false);
}

void JsonPanel::tell(const QString& text, std::optional<int> line, bool isFault) {
    hasFault_ = isFault;
    toldLine_ = line;
    told_->setText(text);
    told_->setVisible(!text.isEmpty());
    told_->setForegroundRole(isFault ? QPalette::BrightText : QPalette::PlaceholderText);
    told_->setCursor(line ? Qt::PointingHandCursor : Qt::ArrowCursor);
    edit_->setFaultLine(isFault ? line : std::nullopt);
    showButtons();
}

void JsonPanel::showButtons() {
    const bool is = isDirty();
    discard_->setEnabled(is);
    apply_->setEnabled(is && !hasFault_);
}

void JsonPanel::apply() {
    judgeTimer_.cancel();
    judge();
    if (!isDirty() || hasFault_) return;
    system::runThere(
        workers_, main_,
        [saved = model_.savedText(), part = draft()] {
            const std::string whole = saved();
            return std::pair(wholeWith(whole, part), ignoredIn(part, whole));
        },
        reading_.guard([this, applied = draft()](auto& outcome) {
            try {
                auto& [whole, ignored] = outcome.value();
                if (!whole) return judge();
                if (const auto fault = model_.applySavedText(*whole, utf8Of(tr("Edit JSON"))))
                    return tell(words(*fault), std::nullopt, true);
                shown_ = applied;
                whole_ = *whole;
                if (!ignored.empty())
                    tell(tr("Line %1: %2").arg(ignored.front().line + 1).arg(words(ignored.front().message)),
                        ignored.front().line, false);
                showButtons();
            } catch (const std::exception& error) {
                tell(words(error.what()), std::nullopt, true);
            }
        }));
}

void JsonPanel::discard() {
    {
        const QSignalBlocker blocked(edit_);
        edit_->setPlainText(words(shown_.text));
    }
    tell({}, std::nullopt, false);
    read();
}

bool JsonPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == told_ && event->type() == QEvent::MouseButtonRelease && toldLine_) {
        edit_->goToLine(*toldLine_);
        return true;
    }
    if (watched == edit_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return && key->modifiers() == Qt::ControlModifier) {
            apply();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}   // namespace tavix::editor
