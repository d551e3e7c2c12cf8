#include "TavixEditor/Inspector/KeyframeButtons.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/InspectorWords.h"
#include "TavixEditor/Inspector/RowControl.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>

namespace tavix::editor {

using namespace design;

namespace {}   // namespace

class KeyframeButtons::Button final : public QAbstractButton {
public:
    enum class Shape { before, here, next };
    bool isFilled = false, isAnimated = false;

    Button(Shape shape, const QString& words, QWidget* parent) : QAbstractButton(parent), shape_(shape) {
        setFixedSize(shape == Shape::here ? 18 : 14, 20);
        setAccessibleName(words);
        setToolTip(words);
        setFocusPolicy(Qt::TabFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Theme& theme = Style::theme();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPointF middle = QRectF(rect()).center();
        if (hasFocus()) drawBox(painter, rect(), 3, Qt::transparent, theme.focus, 1.5);
        const QColor line = !isEnabled()   ? withAlpha(theme.disabled, 0.5)
                            : underMouse() ? theme.text
                                           : theme.secondary;
        painter.setPen(QPen(line, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        if (shape_ != Shape::here) {
            const double way = shape_ == Shape::before ? -1.5 : 1.5;
            painter.drawPolyline(QPolygonF{{-way, -3}, {way, 0}, {-way, 3}}.translated(middle));
            return;
        }
        if (isAnimated) painter.setPen(QPen(theme.accent, 1.4));
        painter.setBrush(isFilled ? QBrush(isAnimated ? theme.accent : line) : QBrush(Qt::NoBrush));
        painter.drawPolygon(QPolygonF{{0, -4.2}, {4.2, 0}, {0, 4.2}, {-4.2, 0}}.translated(middle));
    }
    void enterEvent(QEnterEvent*) override { update(); }
    void leaveEvent(QEvent*) override { update(); }

private:
    Shape shape_;
};

KeyframeButtons::KeyframeButtons(RowEdits& edits, const InspectorRow& row, QWidget* parent)
    : QWidget(parent), shown_(row) {
    const QString label = documentLabel(row.label);
    before_ = new Button(Button::Shape::before, InspectorWords::tr("Keyframe of %1 before").arg(label), this);
    here_ = new Button(Button::Shape::here, InspectorWords::tr("Keyframe of %1 here").arg(label), this);
    next_ = new Button(Button::Shape::next, InspectorWords::tr("Next keyframe of %1").arg(label), this);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 2, 0, 2);
    line->setSpacing(0);
    for (Button* const button : {before_, here_, next_}) line->addWidget(button);
    connect(
        before_, &QAbstractButton::clicked, this, [this, &edits] { edits.seek(*shown_.keyed->beforeSec); });
    connect(next_, &QAbstractButton::clicked, this, [this, &edits] { edits.seek(*shown_.keyed->nextSec); });
    connect(here_, &QAbstractButton::clicked, this, [this, &edits] { edits.toggleKeyframe(shown_); });
    show(row);
}

void KeyframeButtons::show(const InspectorRow& row) {
    shown_ = row;
    const InspectorRow::Keyed& keyed = *row.keyed;
    before_->setEnabled(keyed.beforeSec.has_value());
    next_->setEnabled(keyed.nextSec.has_value());
    here_->isFilled = keyed.isHere;
    here_->isAnimated = keyed.isAnimated;
    here_->update();
}

}   // namespace tavix::editor
