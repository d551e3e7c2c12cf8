#include "TavixEditor/Inspector/InspectorSectionView.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "TavixEditor/App/Words.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int labelWidth = 92, indent = 10;

QString told(const char* text) { return QCoreApplication::translate("Inspector", text); }

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

// Whether going back to a fresh document's value is of any use: nobody wants an empty text.
bool canBeReset(const InspectorRow& row) {
    using Control = InspectorRow::Control;
    if (row.control == Control::element || row.control == Control::note || row.control == Control::presence)
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
    auto* heading = new Heading(words(title), this);
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

void InspectorSectionView::addRow(const InspectorRow& row, RowEdits& edits) {
    auto* grid = static_cast<QGridLayout*>(body_->layout());
    auto* label = makeLabel({}, TextSize::body, Tone::secondary, body_);
    label->setContentsMargins(row.depth * indent, 0, 0, 0);
    label->setToolTip(words(row.help));
    label->setMinimumHeight(height::field);
    RowControl control = makeRowControl(row, edits, body_);
    control.widget->setToolTip(words(row.help));
    label->setBuddy(control.widget);
    QToolButton* reset = nullptr;
    if (canBeReset(row)) {
        reset = makeIconButton(Icon::undo, told("Reset %1 to its default").arg(words(row.label)), body_);
        reset->setFixedSize(20, 20);
        reset->setIconSize({12, 12});
        QSizePolicy policy = reset->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        reset->setSizePolicy(policy);
        const std::size_t index = rows_.size();
        connect(reset, &QToolButton::clicked, this, [this, index, &edits] {
            const InspectorRow shown = rows_[index].shown;
            edits.set(shown, shown.rest, false);
        });
    }
    const int line = grid->rowCount();
    grid->addWidget(label, line, 0, Qt::AlignTop);
    if (row.control == InspectorRow::Control::kinetic || (control.isWide && row.label == title_))
        label->hide();   // the heading says it
    if (control.isWide)
        grid->addWidget(control.widget, line + 1, 0, 1, 3);
    else
        grid->addWidget(control.widget, line, 1);
    if (reset) grid->addWidget(reset, line, 2, Qt::AlignTop);
    rows_.push_back({label, reset, std::move(control), row});
}

void InspectorSectionView::showRow(Row& row, const InspectorRow& now) {
    QString label = words(now.label);
    if (now.isSetByPreset) label += QStringLiteral(" ◇");
    row.label->setText(QFontMetrics(row.label->font())
                           .elidedText(label, Qt::ElideRight, labelWidth + 8 - now.depth * indent));
    if (now.isSetByPreset)
        row.label->setToolTip(words(now.help) + QLatin1Char('\n') +
                              told("Set by the layer's motion preset; a change here is kept in its place."));
    if (row.reset) row.reset->setVisible(!now.isAtRest);
    row.control.show(now);
    row.shown = now;
}

void InspectorSectionView::show(const InspectorSection& section) {
    for (std::size_t i = 0; i < rows_.size() && i < section.rows.size(); ++i)
        showRow(rows_[i], section.rows[i]);
}

}   // namespace tavix::editor
