#include "TavixEditor/Stage/TextInPlace.h"

#include "Editor/EditorDesignSystem/Style/Tokens.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace tavix::editor {

TextInPlace::TextInPlace(CompositionEditorModel& model, const StagePlace& place, QWidget* parent)
    : QPlainTextEdit(parent), model_(model), place_(place) {
    setObjectName(QStringLiteral("textInPlace"));
    setAccessibleName(QCoreApplication::translate("TextInPlace", "Text of the layer"));
    setFrameShape(QFrame::StyledPanel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    const auto* text = model_.state.edited().content<TextContent>(place.scene, place.layer);
    if (!text) return;
    setFont(design::fontOf(design::TextSize::title));
    written_ = text->text;
    setPlainText(words(written_));
    selectAll();
    model_.beginGesture("Edit text");
    QObject::connect(this, &QPlainTextEdit::textChanged, this, [this] { write(); });
    watching_ = watch(
        [this] {
            if (!isSaid()) finish();
        },
        model_.state.edited);
}

bool TextInPlace::isSaid() const {
    const auto* text = model_.state.edited().content<TextContent>(place_.scene, place_.layer);
    return text && text->text == written_;
}

void TextInPlace::write() {
    if (isDone_ || !isSaid()) return;
    written_ = utf8Of(toPlainText());
    model_.update("Edit text", [this](EditState& state) {
        state.content<TextContent>(place_.scene, place_.layer)->text = written_;
    });
}

// Under the letters, which change while they are typed, or over them, where there is room.
void TextInPlace::settleBeside(const QRect& box) {
    constexpr int leastWidth = 280, mostWidth = 520, mostLines = 5;
    const int gap = design::space::large, lines = std::clamp(blockCount() + 1, 2, mostLines);
    const QSize size(std::clamp(box.width(), leastWidth, mostWidth),
        lines * fontMetrics().lineSpacing() + 2 * design::space::medium);
    const QRect room = parentWidget()->rect().adjusted(gap, gap, -gap, -gap);
    QRect area(QPoint(box.center().x() - size.width() / 2, box.bottom() + gap), size);
    if (area.bottom() > room.bottom()) area.moveBottom(box.top() - gap);
    if (area.top() < room.top()) area.moveBottom(room.bottom());
    area.moveLeft(std::clamp(area.left(), room.left(), std::max(room.right() - size.width(), room.left())));
    setGeometry(area);
    show();
    setFocus();
}

void TextInPlace::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        watching_.end();
        model_.cancelGesture();
        return finish();
    }
    if (isReturn && event->modifiers().testFlag(Qt::ControlModifier)) return finish();
    QPlainTextEdit::keyPressEvent(event);
}

void TextInPlace::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) finish();
}

void TextInPlace::finish() {
    if (std::exchange(isDone_, true)) return;
    watching_.end();
    model_.endGesture();
    hide();
    parentWidget()->setFocus();
    deleteLater();
}

}   // namespace tavix::editor
