// The exports that are under way, wait, or have just ended, a row each; no room where there are none.
#pragma once

#include "TavixLive/Observing/Observable.h"

#include <QWidget>

#include <map>
#include <vector>

namespace tavix::editor {

class ExportRow;
class Studio;

class ExportBar final : public QWidget {
public:
    explicit ExportBar(Studio& studio, QWidget* parent = nullptr);

private:
    void showJobs();
    void noteEnds();

    Studio& studio_;
    std::vector<ExportRow*> rows_;   // in the order of the jobs
    std::map<int, bool> areOver_;    // of the jobs that were seen, by their numbers
    Connections connections_;
};

}   // namespace tavix::editor
