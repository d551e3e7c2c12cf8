// The music of a document in the inspector: its waveform with its sections, its drop and its beats, and what
// was heard in it, in words.
#pragma once

#include "TavixEditor/Timeline/MusicPicture.h"
#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

#include <filesystem>

class QLabel;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class MusicStrip final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(MusicStrip)
public:
    // The model outlives it.
    MusicStrip(CompositionEditorModel& model, QWidget* parent);
    QString summary() const;   // as it is shown below the picture

private:
    class Wave;
    void read();
    void showHeard();

    CompositionEditorModel& model_;
    Wave* wave_;
    QLabel* heard_;
    std::filesystem::path file_;
    MusicPicture picture_;
    Connections connections_;
};

}   // namespace tavix::editor
