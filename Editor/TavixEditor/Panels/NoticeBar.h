// Shows one notice, or takes no room.
#pragma once

#include "TavixEditor/Panels/Notice.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace tavix::editor {

class NoticeBar final : public QWidget {
public:
    explicit NoticeBar(QWidget* parent = nullptr);
    void setNotice(std::optional<Notice> notice);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<Notice> notice_;
    QLabel* text_;
    QHBoxLayout* actions_;
};

}   // namespace tavix::editor
