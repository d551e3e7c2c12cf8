// A project that was open lately: its name, where it lies and when it was open.
#pragma once

#include "TavixLive/Files/RecentProjects.h"

#include <QAbstractButton>
#include <QImage>

namespace tavix::editor {

class RecentCard final : public QAbstractButton {
public:
    explicit RecentCard(RecentProjects::Item item, QWidget* parent = nullptr);

    const RecentProjects::Item& item() const { return item_; }
    void setThumbnail(QImage picture);
    QSize sizeHint() const override;
    static constexpr int thumbnailPx = 48;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    RecentProjects::Item item_;
    QString where_;
    QImage thumbnail_;
};

}   // namespace tavix::editor
