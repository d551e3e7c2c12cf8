#include "TavixEditor/Stage/TextInPlace.h"

#include "Editor/EditorDesignSystem/Style/Tokens.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace tavix::editor {

TextInPlace::TextInPlace(
    CompositionEditorModel& model, const StagePlace& place, double canvasHeight, QWidget* parent)
    : QPlainTextEdit(parent), model_(model), place_(place) {
    setObjectName(QStringLiteral("textInPlace"));
    setAccessibleName(QCoreApplication::translate("TextInPlace", "Text of the layer"));
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    EditState edited = model_.state.edited();
    const auto* text = edited.content<TextContent>(place.scene, place.layer);
    if (!text) return;
    QFont font = design::fontOf(design::TextSize::body);
    font.setPixelSize(std::clamp(int(text->sizeFraction * canvasHeight), 12, 200));
    font.setWeight(QFont::DemiBold);
    setFont(font);
    setPlainText(words(text->text));
    selectAll();
}

void TextInPlace::settleOver(const QRect& box) {
    const int line = fontMetrics().lineSpacing();
    QRect area = box.adjusted(-line / 2, -line / 4, line / 2, line / 2);
    area.setHeight(std::max(area.height(), 2 * line));
    area.setWidth(std::max(area.width(), 6 * line));
    setGeometry(area.intersected(parentWidget()->rect()));
    show();
    setFocus();
}

void TextInPlace::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) return finish(false);
    if (isReturn && event->modifiers().testFlag(Qt::ControlModifier)) return finish(true);
    QPlainTextEdit::keyPressEvent(event);
}

void TextInPlace::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) finish(true);
}

void TextInPlace::finish(bool isKept) {
    if (std::exchange(isDone_, true)) return;
    const std::string typed = utf8Of(toPlainText());
    hide();
    parentWidget()->setFocus();
    deleteLater();
    if (!isKept) return;
    model_.update("Edit text", [&](EditState& state) {
        if (auto* text = state.content<TextContent>(place_.scene, place_.layer)) text->text = typed;
    });
}

}   // namespace tavix::editor
