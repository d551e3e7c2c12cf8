#include "TavixEditor/Inspector/InspectorSectionView.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/InspectorWords.h"
#include "TavixEditor/Inspector/KeyframeButtons.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int labelWidth = 92, indent = 10;

class Heading final : public QAbstractButton {
public:
    Heading(const QString& title, QWidget* parent) : QAbstractButton(parent) {
        setText(title);
        setAccessibleName(title);
        setCheckable(true);
        setFixedHeight(height::field);
        setFocusPolicy(Qt::TabFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Theme& theme = Style::theme();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(fontOf(TextSize::strong));
        painter.setPen(theme.text);
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft, text());
        const QPointF middle(width() - 8.0, height() / 2.0);
        if (isChecked()) {
            drawChevron(painter, middle, underMouse() ? theme.text : theme.disabled);
        } else {
            painter.translate(middle);
            painter.rotate(-90);
            drawChevron(painter, {}, underMouse() ? theme.text : theme.disabled);
            painter.resetTransform();
        }
        if (hasFocus()) drawBox(painter, rect(), radius::field, Qt::transparent, theme.focus, 1.5);
    }
    void enterEvent(QEnterEvent*) override { update(); }
    void leaveEvent(QEvent*) override { update(); }
};

}   // namespace

// The name of a row, with a badge where a preset gave its value.
class RowLabel final : public QLabel {
public:
    RowLabel(int indentPoints, QWidget* parent) : QLabel(parent), indent_(indentPoints) {
        setFont(fontOf(TextSize::body));
        setForegroundRole(QPalette::PlaceholderText);
        setContentsMargins(indentPoints, 0, 0, 0);
    }
    void show(const QString& words, bool hasBadge) {
        hasBadge_ = hasBadge;
        const int room = labelWidth + 8 - indent_ - (hasBadge ? badgeRoom : 0);
        setText(fontMetrics().elidedText(words, Qt::ElideRight, room));
        isShortened_ = text() != words;
        setAccessibleName(hasBadge ? InspectorWords::tr("%1, set by a preset").arg(words) : words);
        update();
    }
    bool isShortened() const { return isShortened_; }

protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!hasBadge_) return;
        const Theme& theme = Style::theme();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double left = indent_ + fontMetrics().horizontalAdvance(text()) + space::tight;
        const QRectF badge(left, (height() - 12) / 2.0, 12, 12);
        drawBox(painter, badge, 6, withAlpha(theme.accent, 0.25));
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accent);
        painter.drawPolygon(QPolygonF{{0, -3.5}, {3.5, 0}, {0, 3.5}, {-3.5, 0}}.translated(badge.center()));
    }

private:
    static constexpr int badgeRoom = 18;
    int indent_;
    bool hasBadge_ = false, isShortened_ = false;
};

namespace {

// Whether going back to a fresh document's value is of any use: nobody wants an empty text.
bool canBeReset(const InspectorRow& row) {
    using Control = InspectorRow::Control;
    if (row.keyed || row.control == Control::element || row.control == Control::adder ||
        row.control == Control::note || row.control == Control::presence)
        return false;
    if (row.isOptional) return true;
    return row.control == Control::number || row.control == Control::word || row.control == Control::toggle ||
           row.control == Control::curve;
}

}   // namespace

InspectorSectionView::InspectorSectionView(const InspectorSection& section, RowEdits& edits, QWidget* parent)
    : QWidget(parent), body_(new QWidget(this)), title_(section.title) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(space::tight);
    if (!section.title.empty()) column->addWidget(makeHeading(section.title, edits));
    column->addWidget(body_);
    auto* grid = new QGridLayout(body_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(space::small);
    grid->setVerticalSpacing(space::tight + space::hair);
    grid->setColumnMinimumWidth(0, labelWidth);
    grid->setColumnStretch(1, 1);
    for (const InspectorRow& row : section.rows) addRow(row, edits);
}

QWidget* InspectorSectionView::makeHeading(const std::string& title, RowEdits& edits) {
    auto* heading = new Heading(documentLabel(title), this);
    const bool isFolded = edits.foldedSections().contains(title);
    heading->setChecked(!isFolded);
    body_->setVisible(!isFolded);
    connect(heading, &QAbstractButton::toggled, this, [this, title, &edits](bool isOpen) {
        if (isOpen)
            edits.foldedSections().erase(title);
        else
            edits.foldedSections().insert(title);
        body_->setVisible(isOpen);
    });
    return heading;
}

QToolButton* InspectorSectionView::makeReset(const InspectorRow& row, RowEdits& edits) {
    QToolButton* const reset = makeIconButton(
        Icon::undo, InspectorWords::tr("Reset %1 to its default").arg(documentLabel(row.label)), body_);
    reset->setFixedSize(20, 20);
    reset->setIconSize({12, 12});
    QSizePolicy policy = reset->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    reset->setSizePolicy(policy);
    connect(reset, &QToolButton::clicked, this, [this, index = rows_.size(), &edits] {
        const InspectorRow shown = rows_[index].shown;
        edits.set(shown, shown.rest, false);
    });
    return reset;
}

void InspectorSectionView::addRow(const InspectorRow& row, RowEdits& edits) {
    auto* grid = static_cast<QGridLayout*>(body_->layout());
    auto* label = new RowLabel(row.depth * indent, body_);
    label->setToolTip(documentHelp(row.help));
    label->setMinimumHeight(height::field);
    RowControl control = makeRowControl(row, edits, body_);
    control.widget->setToolTip(documentHelp(row.help));
    label->setBuddy(control.widget);
    QToolButton* const reset = canBeReset(row) ? makeReset(row, edits) : nullptr;
    KeyframeButtons* const keyframes = row.keyed ? new KeyframeButtons(edits, row, body_) : nullptr;
    const int line = grid->rowCount();
    grid->addWidget(label, line, 0, Qt::AlignTop);
    if (row.control == InspectorRow::Control::kinetic || row.control == InspectorRow::Control::adder ||
        (control.isWide && row.label == title_))
        label->hide();   // the heading says it
    if (control.isWide)
        grid->addWidget(control.widget, line + 1, 0, 1, 3);
    else
        grid->addWidget(control.widget, line, 1);
    if (reset) grid->addWidget(reset, line, 2, Qt::AlignTop);
    if (keyframes) grid->addWidget(keyframes, line, 2, Qt::AlignTop);
    rows_.push_back({label, reset, keyframes, std::move(control), row});
}

void InspectorSectionView::showRow(Row& row, const InspectorRow& now) {
    row.label->show(documentLabel(now.label), now.isSetByPreset);
    const QString whole = row.label->isShortened() ? documentLabel(now.label) + QLatin1Char('\n') : QString();
    row.label->setToolTip(
        whole + (now.isSetByPreset
                        ? documentHelp(now.help) + QLatin1Char('\n') +
                              InspectorWords::tr(
                                  "Set by the layer's motion preset; a change here is kept in its place.")
                        : documentHelp(now.help)));
    if (row.keyframes) row.keyframes->show(now);
    if (row.reset) row.reset->setVisible(!now.isAtRest);
    row.control.show(now);
    row.shown = now;
}

void InspectorSectionView::show(const InspectorSection& section) {
    for (std::size_t i = 0; i < rows_.size() && i < section.rows.size(); ++i)
        showRow(rows_[i], section.rows[i]);
}

}   // namespace tavix::editor
