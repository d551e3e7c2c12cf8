#include "TavixEditor/Panels/NoticeBar.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include <utility>

namespace tavix::editor {

using namespace design;

NoticeBar::NoticeBar(QWidget* parent)
    : QWidget(parent), text_(makeLabel({}, TextSize::body)), actions_(new QHBoxLayout) {
    setObjectName(QStringLiteral("notice"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(space::large + 16 + space::small, space::tight, space::medium, space::tight);
    row->setSpacing(space::medium);
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    row->addWidget(text_, 1);
    actions_->setSpacing(space::small);
    row->addLayout(actions_);
    setVisible(false);
}

void NoticeBar::setNotice(std::optional<Notice> notice) {
    notice_ = std::move(notice);
    while (QLayoutItem* item = actions_->takeAt(0)) {
        item->widget()->deleteLater();   // it may be the one that is being clicked
        item->widget()->hide();
        delete item;
    }
    setVisible(notice_.has_value());
    if (!notice_) return;
    text_->setText(notice_->text);
    setAccessibleName(notice_->text);
    for (const NoticeAction& action : notice_->actions) {
        auto* button = new QPushButton(action.words);
        QObject::connect(button, &QPushButton::clicked, this, action.run);
        actions_->addWidget(button);
    }
    QAccessibleEvent told(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
    update();
}

void NoticeBar::paintEvent(QPaintEvent*) {
    if (!notice_) return;
    const Theme& theme = Style::theme();
    const bool isError = notice_->weight == Notice::Weight::error;
    const bool isNews = notice_->weight == Notice::Weight::news;
    const QColor ink = isError ? theme.danger : isNews ? theme.focus : theme.warning;
    QPainter painter(this);
    painter.fillRect(rect(), theme.panel);
    painter.fillRect(rect(), withAlpha(ink, 0.10));
    painter.fillRect(QRect(0, height() - 1, width(), 1), theme.hairline);
    painter.fillRect(QRect(0, 0, 3, height()), ink);
    drawIcon(painter, QRectF(space::large - 2, height() / 2.0 - 8, 16, 16),
        isError  ? Icon::error
        : isNews ? Icon::info
                 : Icon::warning,
        ink);
}

}   // namespace tavix::editor
