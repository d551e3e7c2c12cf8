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
    const auto* text = model_.state.edited().content<TextContent>(place.scene, place.layer);
    if (!text) return;
    QFont font = design::fontOf(design::TextSize::body);
    font.setPixelSize(std::clamp(int(text->sizeFraction * canvasHeight), 12, 200));
    font.setWeight(QFont::DemiBold);
    setFont(font);
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
