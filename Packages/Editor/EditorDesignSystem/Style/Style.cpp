#include "Editor/EditorDesignSystem/Style/Style.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"

#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolButton>

#include <algorithm>

namespace tavix::design {

namespace {

const Theme* themeInForce = &dark();
bool motionReduced = false;
constexpr int menuIconPx = 16, menuItemPadPx = 8, menuShortcutGapPx = 32;

bool has(const QStyleOption* option, QStyle::StateFlag flag) { return option->state.testFlag(flag); }

// Around a control that the keyboard is on.
void drawFocus(QPainter& painter, const QRectF& rect, double radius, const Theme& theme) {
    drawBox(painter, rect, radius, Qt::transparent, theme.focus, 1.5);
}

void drawSwitch(QPainter& painter, const QStyleOption* option, const Theme& theme) {
    const bool isChecked = has(option, QStyle::State_On), isOn = has(option, QStyle::State_Enabled);
    const QRectF track(option->rect.x(), option->rect.center().y() - 7, 26, 16);
    const QColor ground = isChecked ? theme.accent : theme.pressed;
    drawBox(painter, track, 8, isOn ? ground : withAlpha(ground, 0.5));
    const double x = isChecked ? track.right() - 14 : track.left() + 2;
    drawBox(painter, QRectF(x, track.top() + 2, 12, 12), 6, isOn ? Qt::white : QColor(theme.disabled));
    if (has(option, QStyle::State_HasFocus))
        drawFocus(painter, track.adjusted(-2.5, -2.5, 2.5, 2.5), 10, theme);
}

void drawPushButton(QPainter& painter, const QStyleOption* option, const Theme& theme) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isDefault = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
    const bool isFlat = button && button->features.testFlag(QStyleOptionButton::Flat);
    const bool isOn = has(option, QStyle::State_Enabled);
    QColor fill = isDefault ? theme.accent : isFlat ? QColor(Qt::transparent) : theme.raised;
    if (has(option, QStyle::State_Sunken) || has(option, QStyle::State_On))
        fill = isDefault ? theme.accent.darker(115) : theme.pressed;
    else if (has(option, QStyle::State_MouseOver) && isOn)
        fill = isDefault ? theme.accent.lighter(108) : theme.hover;
    if (!isOn && isDefault) fill = withAlpha(fill, 0.45);
    const bool hasLine = !isDefault && !isFlat && !theme.isDark;
    drawBox(
        painter, option->rect, radius::field + 1, fill, hasLine ? theme.hairline : QColor(Qt::transparent));
}

}   // namespace

QPalette paletteOf(const Theme& theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.panel);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.field);
    palette.setColor(QPalette::AlternateBase, theme.panel);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::BrightText, theme.danger);
    palette.setColor(QPalette::PlaceholderText, theme.secondary);
    palette.setColor(QPalette::Button, theme.raised);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::ToolTipBase, theme.raised);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Link, theme.focus);
    palette.setColor(QPalette::Mid, theme.window);
    palette.setColor(QPalette::Dark, theme.stage);
    palette.setColor(QPalette::Light, theme.raised);
    palette.setColor(QPalette::Midlight, theme.hairline);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.disabled);
    return palette;
}

bool isMotionReduced() { return motionReduced; }
void setMotionReduced(bool isReduced) { motionReduced = isReduced; }

Style::Style(const Theme& theme)
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))), theme_(theme) {}

const Theme& Style::theme() { return *themeInForce; }

void Style::apply(QApplication& application, const Theme& theme) {
    themeInForce = &theme;
    QApplication::setStyle(new Style(theme));   // the application owns it
    QApplication::setPalette(paletteOf(theme));
    QApplication::setFont(fontOf(TextSize::body));
    // Qt lists the fonts of the machine when it first measures text: now, before anyone else changes what is
    // listed.
    QFontMetrics(QApplication::font()).height();
    for (QWidget* widget : application.allWidgets()) widget->update();
}

namespace {

// A list or a slider that is scrolled past keeps its choice, and what it stands in scrolls.
class WheelPass final : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Wheel) return false;
        event->ignore();
        return true;
    }
};

}   // namespace

void Style::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget)) widget->setAttribute(Qt::WA_TranslucentBackground);
    if (qobject_cast<QPushButton*>(widget) || qobject_cast<QToolButton*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (qobject_cast<QComboBox*>(widget) || qobject_cast<QSlider*>(widget)) {
        if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
        static WheelPass pass;
        widget->installEventFilter(&pass);
    }
}

void Style::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const bool hasFocus = has(option, State_HasFocus), isOn = has(option, State_Enabled);
    switch (element) {
    case PE_PanelLineEdit:
        if (widget && qobject_cast<const QComboBox*>(widget->parentWidget()))
            return;   // it has a box already
        drawBox(*painter, option->rect, radius::field,
            has(option, State_MouseOver) && isOn && !hasFocus ? theme_.hover : theme_.field);
        if (hasFocus) drawFocus(*painter, option->rect, radius::field, theme_);
        return;
    case PE_FrameLineEdit: return;
    case PE_FrameFocusRect: return drawFocus(*painter, option->rect, radius::field, theme_);
    case PE_PanelButtonCommand: return drawPushButton(*painter, option, theme_);
    case PE_PanelButtonTool: {
        const bool isDown = has(option, State_Sunken) || has(option, State_On);
        if (isDown || (has(option, State_MouseOver) && isOn))
            drawBox(*painter, option->rect, radius::field, isDown ? theme_.pressed : theme_.hover);
        if (hasFocus && has(option, State_KeyboardFocusChange))
            drawFocus(*painter, option->rect, radius::field, theme_);
        return;
    }
    case PE_IndicatorCheckBox: return drawSwitch(*painter, option, theme_);
    case PE_PanelMenu:
    case PE_FrameMenu:
        if (element == PE_PanelMenu)
            drawBox(*painter, option->rect, radius::card, theme_.raised, theme_.hairline);
        return;
    case PE_PanelTipLabel:
        return drawBox(*painter, option->rect, radius::field, theme_.raised, theme_.hairline);
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawMenuItem(const QStyleOption* option, QPainter& painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item) return;
    const QRect rect = item->rect;
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(
            QRect(rect.left() + menuItemPadPx, rect.center().y(), rect.width() - 2 * menuItemPadPx, 1),
            theme_.hairline);
        return;
    }
    const bool isOn = has(option, State_Enabled), isChosen = has(option, State_Selected) && isOn;
    if (isChosen) drawBox(painter, rect.adjusted(4, 0, -4, 0), radius::field, theme_.accent);
    const QColor ink = !isOn ? theme_.disabled : isChosen ? theme_.onAccent : theme_.text;
    const QRect text = rect.adjusted(menuItemPadPx * 2 + menuIconPx + 4, 0, -menuItemPadPx * 2, 0);
    painter.setFont(item->font);
    painter.setPen(ink);
    const QStringList parts = item->text.split(QLatin1Char('\t'));
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic;
    painter.drawText(text, flags | Qt::AlignLeft, parts.value(0));
    if (parts.size() > 1) {
        painter.setPen(isChosen || !isOn ? ink : theme_.secondary);
        painter.drawText(text, (flags & ~Qt::TextShowMnemonic) | Qt::AlignRight, parts[1]);
    }
    const QPointF mark(rect.left() + menuItemPadPx + 4 + menuIconPx / 2.0, rect.center().y() + 0.5);
    if (item->checkType != QStyleOptionMenuItem::NotCheckable && item->checked) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {mark + QPointF(-4, 0), mark + QPointF(-1, 3), mark + QPointF(4, -3.5)};
        painter.drawPolyline(tick, 3);
    } else if (!item->icon.isNull()) {
        item->icon.paint(&painter, QRect(int(mark.x()) - 8, int(mark.y()) - 8, menuIconPx, menuIconPx),
            Qt::AlignCenter,
            !isOn      ? QIcon::Disabled
            : isChosen ? QIcon::Selected
                       : QIcon::Normal);
    }
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
        painter.save();
        painter.translate(rect.right() - menuItemPadPx * 2, rect.center().y() + 0.5);
        painter.rotate(-90);
        drawChevron(painter, {0, 0}, ink);
        painter.restore();
    }
    Q_UNUSED(widget);
}

void Style::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonLabel:   // the default button's text lies on the accent
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            button && button->features.testFlag(QStyleOptionButton::DefaultButton)) {
            QStyleOptionButton copy(*button);
            copy.palette.setColor(QPalette::ButtonText, theme_.onAccent);
            if (has(option, State_Enabled) && !copy.icon.isNull())
                copy.icon = QIcon(copy.icon.pixmap(
                    copy.iconSize, widget ? widget->devicePixelRatioF() : 1, QIcon::Selected));
            return QProxyStyle::drawControl(element, &copy, painter, widget);
        }
        break;
    case CE_MenuItem: return drawMenuItem(option, *painter, widget);
    case CE_MenuEmptyArea:
    case CE_MenuBarEmptyArea: return;
    case CE_MenuBarItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            const bool isDown = has(option, State_Sunken), isOver = has(option, State_Selected);
            if (isDown || isOver)
                drawBox(*painter, item->rect.adjusted(1, 2, -1, -2), radius::field,
                    isDown ? theme_.pressed : theme_.hover);
            painter->setPen(has(option, State_Enabled) ? theme_.text : theme_.disabled);
            painter->drawText(
                item->rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item->text);
        }
        return;
    case CE_ProgressBarGroove:
        return drawBox(*painter,
            QRectF(option->rect.x(), option->rect.center().y() - 2, option->rect.width(), 4), 2,
            theme_.pressed);
    case CE_ProgressBarContents:
        if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
            const double part =
                double(bar->progress - bar->minimum) / std::max(bar->maximum - bar->minimum, 1);
            drawBox(*painter, QRectF(bar->rect.x(), bar->rect.center().y() - 2, bar->rect.width() * part, 4),
                2, theme_.accent);
        }
        return;
    case CE_ProgressBarLabel: return;
    default: break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
    const QWidget* widget) const {
    const bool hasFocus = has(option, State_HasFocus), isOver = has(option, State_MouseOver);
    const QColor none = Qt::transparent;
    if (control == CC_Slider) {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        const QRect handle = subControlRect(CC_Slider, slider, SC_SliderHandle, widget);
        const QRectF groove(option->rect.left(), option->rect.center().y() - 1, option->rect.width(), 3);
        drawBox(*painter, groove, 1.5, theme_.pressed);
        drawBox(*painter, QRectF(groove.topLeft(), QPointF(handle.center().x(), groove.bottom())), 1.5,
            theme_.accent);
        const QRectF knob(handle.center().x() - 5.5, handle.center().y() - 5.5, 12, 12);
        drawBox(*painter, knob, 6, theme_.isDark ? theme_.text : QColor(Qt::white),
            theme_.isDark ? none : QColor(0xb9bcc4));
        if (hasFocus) drawFocus(*painter, knob.adjusted(-2.5, -2.5, 2.5, 2.5), 8.5, theme_);
        return;
    }
    if (control == CC_ComboBox) {
        const QColor line = hasFocus ? theme_.focus : theme_.isDark ? none : theme_.hairline;
        drawBox(*painter, option->rect, radius::field, isOver ? theme_.hover : theme_.raised, line,
            hasFocus ? 1.5 : 1);
        drawChevron(
            *painter, QPointF(option->rect.right() - 11, option->rect.center().y() + 1), theme_.secondary);
        return;
    }
    if (control == CC_ScrollBar) {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        const QRectF knob = subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget);
        painter->fillRect(option->rect, option->palette.window());
        const bool isWide = bar->orientation == Qt::Horizontal;
        drawBox(*painter, knob.adjusted(isWide ? 2 : 3, isWide ? 3 : 2, -2, -2), 3,
            withAlpha(theme_.text, isOver ? 0.35 : 0.18));
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent: return 10;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength: return 14;
    case PM_IndicatorWidth: return 26;
    case PM_IndicatorHeight: return 16;
    case PM_DefaultFrameWidth: return 1;
    case PM_MenuVMargin: return 5;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuHMargin:
    case PM_MenuPanelWidth:
    case PM_MenuBarItemSpacing:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin: return 0;
    case PM_SplitterWidth: return 5;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* result) const {
    switch (hint) {
    case SH_Slider_AbsoluteSetButtons: return Qt::LeftButton;   // a click goes there
    case SH_ComboBox_Popup:
    case SH_DialogButtonBox_ButtonsHaveIcons: return 0;
    case SH_MenuBar_MouseTracking: return 1;
    case SH_Menu_Mask:
        if (auto* const mask = qstyleoption_cast<QStyleHintReturnMask*>(result))
            mask->region = boxRegion(option->rect, radius::card);
        return 1;
    case SH_Widget_Animate: return motionReduced ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    default: return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QSize Style::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const {
    QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_LineEdit:
    case CT_ComboBox: wanted.setHeight(height::field); break;
    case CT_PushButton: wanted = QSize(std::max(wanted.width(), 72), height::button); break;
    case CT_MenuBarItem: wanted = QSize(size.width() + 16, height::button); break;
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            if (item->menuItemType == QStyleOptionMenuItem::Separator) return {size.width(), 9};
            // The size told holds the words before the tab; the shortcut comes on top of it.
            wanted = QSize(size.width() + 2 * menuItemPadPx + menuIconPx + 4 + 2 * menuItemPadPx +
                               (item->text.contains(QLatin1Char('\t')) ? menuShortcutGapPx : 0),
                height::row);
        }
        break;
    case CT_ItemViewItem:
        if (widget && widget->inherits("QComboBoxListView"))
            wanted.setHeight(std::max(wanted.height(), height::field));
        break;
    default: break;
    }
    return wanted;
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    if (element == SE_LineEditContents)   // Qt keeps two points more on either side
        return option->rect.adjusted(space::tight, 0, -space::tight, 0);
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect Style::subControlRect(
    ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return option->rect.adjusted(space::tight + 1, 1, -height::field, -1);
    if (control != CC_ScrollBar) return QProxyStyle::subControlRect(control, option, part, widget);
    const auto* bar =
        qstyleoption_cast<const QStyleOptionSlider*>(option);   // no arrows: the groove is all of it
    if (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine) return {};
    if (part == SC_ScrollBarGroove) return option->rect;
    if (part != SC_ScrollBarSlider) return QProxyStyle::subControlRect(control, option, part, widget);
    const bool isWide = bar->orientation == Qt::Horizontal;
    const int span = isWide ? option->rect.width() : option->rect.height();
    const int range = bar->maximum - bar->minimum;
    const auto share = range > 0 ? qint64(span) * bar->pageStep / (range + bar->pageStep) : qint64(span);
    const int length = std::min(std::max(28, int(share)), span);
    const int at = sliderPositionFromValue(
        bar->minimum, bar->maximum, bar->sliderPosition, span - length, bar->upsideDown);
    return isWide ? QRect(at, 0, length, option->rect.height()) : QRect(0, at, option->rect.width(), length);
}

}   // namespace tavix::design
