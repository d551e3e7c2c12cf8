#include "TavixEditor/Panels/ExportBar.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/DesktopNotice.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/ExportRow.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tavix::editor {

using namespace design;

ExportBar::ExportBar(Studio& studio, QWidget* parent) : QWidget(parent), studio_(studio) {
    setObjectName(QStringLiteral("exportBar"));
    onGround(this, QPalette::Window);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    connections_.push_back(tavix::show([this] { showJobs(); }, studio_.model.exports().jobs));
}

void ExportBar::showJobs() {
    const auto& jobs = studio_.model.exports().jobs();
    std::erase_if(rows_, [&](ExportRow* row) {
        if (std::ranges::find(jobs, row->id(), &ExportJob::id) != jobs.end()) return false;
        row->hide();
        row->deleteLater();   // its button may be the one that is being clicked
        return true;
    });
    for (const ExportJob& job : jobs) {
        auto row = std::ranges::find(rows_, job.id, &ExportRow::id);
        if (row == rows_.end()) {
            rows_.push_back(new ExportRow(studio_, job.id));
            layout()->addWidget(rows_.back());
            row = std::prev(rows_.end());
        }
        (*row)->showJob(job);
    }
    setVisible(!jobs.empty());
    noteEnds();
}

// A desktop's notice is for who looks elsewhere.
void ExportBar::noteEnds() {
    for (const ExportJob& job : studio_.model.exports().jobs()) {
        const bool wasOver = std::exchange(areOver_[job.id], job.isOver());
        if (wasOver || !job.isOver() || window()->isActiveWindow()) continue;
        const QString name = pathWords(job.place().filename());
        if (job.stand == ExportJob::Stand::done)
            showDesktopNotice(ExportRow::tr("Export finished"), name, window());
        if (job.stand == ExportJob::Stand::failed)
            showDesktopNotice(
                ExportRow::tr("Export failed"), name + QStringLiteral(": ") + words(job.fault), window());
    }
}

}   // namespace tavix::editor
