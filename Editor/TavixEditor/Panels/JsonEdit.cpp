#include "TavixEditor/Panels/JsonEdit.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/Words.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QSyntaxHighlighter>
#include <QTextBlock>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int indentSpaces = 2, fontPx = 12;

// Texts hold no line breaks, so every line is coloured by itself.
class Colours final : public QSyntaxHighlighter {
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString& line) override {
        static const QRegularExpression word(
            QStringLiteral(R"re(("(?:[^"\\]|\\.)*"?)(\s*:)?|(-?\d[\d.eE+-]*)|\b(true|false|null)\b)re"));
        const Theme& theme = Style::theme();
        for (auto all = word.globalMatch(line); all.hasNext();) {
            const QRegularExpressionMatch match = all.next();
            if (match.capturedLength(1) > 0)
                setFormat(int(match.capturedStart(1)), int(match.capturedLength(1)),
                    match.capturedLength(2) > 0 ? theme.focus : theme.success);
            else
                setFormat(int(match.capturedStart()), int(match.capturedLength()), theme.warning);
        }
    }
};

}   // namespace

JsonEdit::JsonEdit(QWidget* parent)
    : QPlainTextEdit(parent), completer_(new QCompleter(this)), found_(new QStandardItemModel(this)) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(fontPx);
    setFont(font);
    setTabStopDistance(QFontMetricsF(font).horizontalAdvance(QLatin1Char(' ')) * indentSpaces);
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    document()->setDocumentMargin(space::small);
    setTabChangesFocus(false);
    new Colours(document());
    completer_->setModel(found_);
    completer_->setWidget(this);
    completer_->setCompletionMode(QCompleter::PopupCompletion);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    completer_->setFilterMode(Qt::MatchContains);
    QObject::connect(completer_, qOverload<const QString&>(&QCompleter::activated), this,
        [this](const QString& candidate) { insert(candidate); });
    QObject::connect(completer_, qOverload<const QModelIndex&>(&QCompleter::highlighted), this,
        [this](const QModelIndex& at) {
            if (onMeaning) onMeaning(at.data(Qt::ToolTipRole).toString());
        });
}

bool JsonEdit::isCompleting() const { return completer_->popup()->isVisible(); }

void JsonEdit::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (isCompleting() && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
                              key == Qt::Key_Tab || key == Qt::Key_Backtab)) {
        event->ignore();   // the list takes it
        return;
    }
    const bool isAsked = key == Qt::Key_Space && event->modifiers() == Qt::ControlModifier;
    if (isAsked) return complete(true);
    if (key == Qt::Key_Tab) {
        insertPlainText(QString(indentSpaces, QLatin1Char(' ')));
        return;
    }
    if (key == Qt::Key_Backtab) {   // leaves the field, which takes Tab for itself
        focusPreviousChild();
        return;
    }
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && event->modifiers() == Qt::NoModifier) {
        const QString line = textCursor().block().text().left(textCursor().positionInBlock());
        const QString trimmed = line.trimmed();
        QString indent = line.left(line.size() - QStringView(line).trimmed().size());
        indent.truncate(line.indexOf(trimmed));
        if (trimmed.endsWith(QLatin1Char('{')) || trimmed.endsWith(QLatin1Char('[')))
            indent += QString(indentSpaces, QLatin1Char(' '));
        insertPlainText(QLatin1Char('\n') + indent);
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
    const QString typed = event->text();
    const bool isWord = !typed.isEmpty() && (typed[0].isLetterOrNumber() || typed[0] == QLatin1Char('"'));
    if (isWord || (isCompleting() && key == Qt::Key_Backspace)) complete(false);
}

void JsonEdit::complete(bool isAsked) {
    const QString text = toPlainText();
    const int position = textCursor().position();
    const JsonScan scan(utf8Of(text), utf8Of(text.left(position)).size());
    const auto all = candidates ? candidates(scan) : std::vector<JsonCandidate>();
    const JsonCursor& cursor = scan.cursor();
    const auto characters = [&](std::size_t bytes) {
        return int(QString::fromUtf8(text.toUtf8().left(qsizetype(bytes))).size());
    };
    wordFrom_ = characters(cursor.from);
    wordTo_ = characters(cursor.to);
    isKey_ = cursor.isKey;
    const QString prefix = text.mid(wordFrom_, position - wordFrom_).remove(QLatin1Char('"'));
    found_->clear();
    for (const JsonCandidate& candidate : all) {
        auto* item = new QStandardItem(words(candidate.text));
        item->setToolTip(words(candidate.meaning));
        found_->appendRow(item);
    }
    completer_->setCompletionPrefix(prefix);
    const bool isWritten =
        completer_->completionCount() == 1 &&
        completer_->currentCompletion().remove(QLatin1Char('"')).compare(prefix, Qt::CaseSensitive) == 0;
    if (completer_->completionCount() == 0 || (isWritten && !isAsked)) {
        completer_->popup()->hide();
        return;
    }
    QRect at = cursorRect();
    at.setWidth(std::min(width() - at.left(), completer_->popup()->sizeHintForColumn(0) + 32));
    at.setWidth(std::max(at.width(), 160));
    completer_->complete(at);
    completer_->popup()->setCurrentIndex(completer_->completionModel()->index(0, 0));
}

void JsonEdit::insert(const QString& candidate) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(wordFrom_);
    cursor.setPosition(std::max(wordTo_, textCursor().position()), QTextCursor::KeepAnchor);
    const QString rest = toPlainText().mid(cursor.selectionEnd()).trimmed();
    const bool hasColon = rest.startsWith(QLatin1Char(':'));
    cursor.insertText(isKey_ && !hasColon ? candidate + QStringLiteral(": ") : candidate);
    setTextCursor(cursor);
    if (onMeaning) onMeaning({});
}

void JsonEdit::setFaultLine(std::optional<int> line) {
    faultLine_ = line;
    markFault();
}

void JsonEdit::markFault() {
    QList<QTextEdit::ExtraSelection> marks;
    if (faultLine_) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(document()->findBlockByNumber(*faultLine_));
        mark.format.setBackground(withAlpha(Style::theme().danger, 0.18));
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks << mark;
    }
    setExtraSelections(marks);
}

void JsonEdit::goToLine(int line) {
    QTextCursor cursor(document()->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::EndOfBlock);
    setTextCursor(cursor);
    centerCursor();
    setFocus();
}

void JsonEdit::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    if (auto* colours = document()->findChild<QSyntaxHighlighter*>()) colours->rehighlight();
    markFault();
}

}   // namespace tavix::editor
