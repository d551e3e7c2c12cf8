// What the judge of documents finds in the one that is open, kept up to date while it is edited.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixEditor/Panels/WrittenPlace.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixPlatform/System/Continuation.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

struct FindingRow {
    Finding finding;
    WrittenPlace place;
    std::string where;        // in words
    bool hasRepair = false;   // it is certain what is meant
    bool operator==(const FindingRow&) const = default;
};

// The same that the command tells of the document as it would be saved now, the most important first. Judged
// off the main executor, once edits have paused.
class Findings {
public:
    struct Told {
        std::vector<FindingRow> rows;
        std::size_t mutedCount = 0;
        std::size_t count(Finding::Level level) const;
        bool operator==(const Told&) const = default;
    };

    Findings(CompositionEditorModel& model, system::SerialExecutor& main, system::Executor& workers);
    ~Findings() { stop_.request_stop(); }

    Observable<Told> told;
    Observable<bool> isLooking{false};                  // what is told may be of an earlier document
    Observable<std::optional<double>> framesFraction;   // while the frames are drawn and looked at: 0 to 1

    void goTo(std::size_t row) const;
    // As a step of that name. What cannot be mended is told as the model's error.
    void repair(std::size_t row, const std::string& stepName);
    // All that changes no intent.
    void repairAll(const std::string& stepName);
    bool mayRepairAll() const;
    // What the frames show stays told until the next edit.
    void lookAtFrames();
    void stopFrames() { stop_.request_stop(); }

    static constexpr double pauseSec = 0.35;

private:
    void noteEdit();
    void lookSoon();
    void look();
    void mend(const std::string& stepName, std::vector<Finding> findings, bool isAll);

    CompositionEditorModel& model_;
    system::SerialExecutor& main_;
    system::Executor& workers_;
    std::optional<CompositionSpec> judged_;   // what is told is of it, or soon will be
    std::vector<FindingRow> frames_;
    std::stop_source stop_;
    system::Timer timer_;
    system::Lifeline lifeline_, document_;
    Connections connections_;
};

}   // namespace tavix::editor
