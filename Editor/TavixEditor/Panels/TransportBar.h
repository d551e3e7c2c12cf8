// Under the stage: the time, play and pause, and the ways through the film.
#pragma once

#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

class QSlider;
class QToolButton;

namespace tavix {
class CompositionEditorModel;
}
namespace tavix::design {
class Timecode;
}

namespace tavix::editor {

struct Actions;

class TransportBar final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(TransportBar)
public:
    TransportBar(CompositionEditorModel& model, const Actions& actions, QWidget* parent = nullptr);

private:
    void showTime();

    CompositionEditorModel& model_;
    design::Timecode *now_, *total_;
    Connections connections_;
};

}   // namespace tavix::editor
