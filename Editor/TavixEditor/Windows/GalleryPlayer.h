// One motion, playing again and again in a size in which it can be judged, with what it is called in
// documents.
#pragma once

#include "TavixLive/Gallery/PresetGalleryModel.h"

#include <QCoreApplication>
#include <QWidget>

class QLabel;
class QToolButton;

namespace tavix::editor {

class GalleryPlayer final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(GalleryPlayer)
public:
    // The model outlives it.
    explicit GalleryPlayer(PresetGalleryModel& model, QWidget* parent = nullptr);
    ~GalleryPlayer() override;

private:
    class Screen;

    QWidget* makeButtons();
    void showItem();
    void showState();

    PresetGalleryModel& model_;
    Screen* screen_;
    QLabel *title_, *about_, *name_, *error_;
    QToolButton *play_, *restart_;
    Connections connections_;
};

}   // namespace tavix::editor
