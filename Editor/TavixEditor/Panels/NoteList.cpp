#include "TavixEditor/Panels/NoteList.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <iterator>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int iconPx = 16;

class Delegate final : public QStyledItemDelegate {
public:
    explicit Delegate(NoteList* list) : QStyledItemDelegate(list), list_(*list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const NoteRow& row = list_.rows()[index.row()];
        const int width = list_.viewport()->width();
        if (row.isHeading) return {width, height::row};
        const int text = wordsBox(QRect(0, 0, width, 0), row).height();
        const int place =
            row.place.isEmpty() ? 0 : QFontMetrics(fontOf(TextSize::caption)).height() + space::hair;
        return {width, text + place + 2 * space::small};
    }

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const NoteRow& row = list_.rows()[index.row()];
        const Theme& theme = Style::theme();
        painter->save();
        if (row.isHeading) {
            painter->setFont(fontOf(TextSize::caption));
            painter->setPen(theme.secondary);
            painter->drawText(option.rect.adjusted(space::medium, 0, -space::small, -space::tight),
                Qt::AlignLeft | Qt::AlignBottom, row.words);
            painter->restore();
            return;
        }
        const QRectF ground = QRectF(option.rect).adjusted(space::tight, 1, -space::tight, -1);
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        if (isChosen || option.state.testFlag(QStyle::State_MouseOver))
            drawBox(*painter, ground, radius::field, isChosen ? withAlpha(theme.accent, 0.22) : theme.hover);
        if (isChosen && list_.hasFocus())
            drawBox(*painter, ground, radius::field, Qt::transparent, theme.focus, 1.5);
        const QRect words = wordsBox(option.rect, row);
        drawIcon(*painter, QRectF(option.rect.left() + space::medium, words.top(), iconPx, iconPx), row.icon,
            theme.*row.ink);
        painter->setFont(fontOf(TextSize::body));
        painter->setPen(theme.text);
        painter->drawText(words, Qt::TextWordWrap, row.words);
        painter->setFont(fontOf(TextSize::caption));
        painter->setPen(theme.secondary);
        const QRect place(words.left(), words.bottom() + 1 + space::hair, words.width(), words.height());
        painter->drawText(place, Qt::AlignLeft | Qt::AlignTop,
            painter->fontMetrics().elidedText(row.place, Qt::ElideMiddle, place.width()));
        if (row.isMarked)
            drawIcon(*painter, QRectF(words.right() + space::small, words.top(), iconPx, iconPx),
                Icon::wrench, theme.focus);
        painter->restore();
    }

private:
    static QRect wordsBox(const QRect& in, const NoteRow& row) {
        const int end = space::medium + (row.isMarked ? iconPx + space::small : 0);
        const QRect room = in.adjusted(space::medium + iconPx + space::small, space::small, -end, 0);
        const QRect box =
            QFontMetrics(fontOf(TextSize::body))
                .boundingRect(QRect(0, 0, std::max(room.width(), 40), 10'000), Qt::TextWordWrap, row.words);
        return {room.left(), room.top(), room.width(), std::max(box.height(), iconPx)};
    }

    const NoteList& list_;
};

}   // namespace

NoteList::NoteList(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new Delegate(this));
    setFrameShape(QFrame::NoFrame);
    setResizeMode(QListView::Adjust);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
}

bool NoteList::event(QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) return QListWidget::event(event);
    const auto* key = static_cast<QKeyEvent*>(event);
    constexpr int moving[] = {Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp,
        Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter};
    if (key->modifiers() == Qt::NoModifier && std::ranges::find(moving, key->key()) != std::end(moving))
        event->accept();
    return true;
}

void NoteList::setRows(const QList<NoteRow>& rows) {
    const QString chosen = currentItem() ? currentItem()->text() : QString();
    const QSignalBlocker blocked(this);
    clear();
    rows_ = rows;
    for (const NoteRow& row : rows) {
        auto* item = new QListWidgetItem(row.words, this);
        if (row.isHeading) item->setFlags(Qt::NoItemFlags);
        item->setData(Qt::AccessibleTextRole,
            row.isHeading ? row.words : QStringLiteral("%1: %2 %3").arg(row.kind, row.words, row.place));
        if (!row.isHeading && row.words == chosen && !currentItem()) setCurrentItem(item);
    }
}

}   // namespace tavix::editor
