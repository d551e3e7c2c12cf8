// What a widget draws by itself and a screen reader is told of: each thing is a child of the widget, with a
// name, a place and what a press does.
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QWidget;

namespace tavix::editor {

struct AccessiblePart {
    struct Value {
        double now = 0, most = 1;   // from 0
        std::function<void(double)> set;
    };

    QAccessible::Role role = QAccessible::ListItem;
    QString name, about;
    QRect box;   // in the widget
    bool isSelected = false;
    std::function<void()> press = {};
    std::optional<Value> value = {};   // of what can be moved
};

// In an order that does not hang on what is selected. The function is asked anew at every question.
void tellParts(QWidget* widget, QAccessible::Role role, std::function<std::vector<AccessiblePart>()> parts);

// The selected part has become another one.
void tellSelectedPart(QWidget* widget);

}   // namespace tavix::editor
