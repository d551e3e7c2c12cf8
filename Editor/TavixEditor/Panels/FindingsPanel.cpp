#include "TavixEditor/Panels/FindingsPanel.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/FindingText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Panels/NoteList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace tavix::editor {

using namespace design;

namespace {

NoteRow noteOf(const FindingRow& row) {
    const bool isError = row.finding.level == Finding::Level::error;
    return {isError ? Icon::error : Icon::warning, isError ? &Theme::danger : &Theme::warning,
        isError ? FindingsPanel::tr("Error") : FindingsPanel::tr("Warning"),
        findingWords(row.finding.message), words(row.where), row.hasRepair};
}

}   // namespace

FindingsPanel::FindingsPanel(Findings& findings, QWidget* parent)
    : QWidget(parent), findings_(findings), summary_(makeLabel({}, TextSize::caption, Tone::secondary)),
      suggestion_(makeLabel({}, TextSize::body)),
      empty_(makeLabel(tr("Nothing is found."), TextSize::body, Tone::secondary)), list_(new NoteList),
      repair_(new QPushButton(tr("Repair"))), repairAll_(new QPushButton(tr("Repair All"))),
      frames_(new QPushButton) {
    setObjectName(QStringLiteral("findingsPanel"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    summary_->setContentsMargins(space::large, 0, space::large, space::small);
    column->addWidget(summary_);
    empty_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    empty_->setContentsMargins(space::large, space::page, space::large, 0);
    column->addWidget(empty_, 1);
    list_->setAccessibleName(tr("Findings"));
    column->addWidget(list_, 1);
    column->addWidget(makeRule(Qt::Horizontal));
    column->addWidget(makeDetail());
    QObject::connect(list_, &QListWidget::currentRowChanged, this, [this] { showChosen(); });
    QObject::connect(
        list_, &QListWidget::itemClicked, this, [this] { findings_.goTo(std::size_t(list_->currentRow())); });
    QObject::connect(list_, &QListWidget::itemActivated, this,
        [this] { findings_.goTo(std::size_t(list_->currentRow())); });
    connections_.push_back(tavix::show([this] { showRows(); }, findings_.told, findings_.isLooking));
    connections_.push_back(tavix::show([this] { showFrames(); }, findings_.framesFraction));
}

QWidget* FindingsPanel::makeDetail() {
    auto* detail = new QWidget;
    auto* column = new QVBoxLayout(detail);
    column->setContentsMargins(space::large, space::medium, space::large, space::medium);
    column->setSpacing(space::small);
    suggestion_->setWordWrap(true);
    column->addWidget(suggestion_);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(space::small);
    buttons->addWidget(repair_);
    buttons->addWidget(repairAll_);
    buttons->addStretch();
    buttons->addWidget(frames_);
    column->addLayout(buttons);
    repairAll_->setToolTip(tr("Mends all that is certain and changes nothing that was meant."));
    frames_->setToolTip(
        tr("Draws every frame small and looks for flashes, black or frozen stretches and unreadable text."));
    QObject::connect(repair_, &QPushButton::clicked, this, [this] {
        const int row = list_->currentRow();
        if (row >= 0) findings_.repair(std::size_t(row), utf8Of(tr("Repair Finding")));
    });
    QObject::connect(
        repairAll_, &QPushButton::clicked, this, [this] { findings_.repairAll(utf8Of(tr("Repair All"))); });
    QObject::connect(frames_, &QPushButton::clicked, this,
        [this] { findings_.framesFraction() ? findings_.stopFrames() : findings_.lookAtFrames(); });
    return detail;
}

QString FindingsPanel::summaryOf(const Findings::Told& told) {
    const int errors = int(told.count(Finding::Level::error));
    const int warnings = int(told.count(Finding::Level::warning));
    QStringList parts;
    if (errors > 0) parts << (errors == 1 ? tr("1 error") : tr("%1 errors").arg(errors));
    if (warnings > 0) parts << (warnings == 1 ? tr("1 warning") : tr("%1 warnings").arg(warnings));
    if (told.mutedCount > 0) parts << tr("%1 muted").arg(told.mutedCount);
    return parts.isEmpty() ? tr("Nothing is found.") : parts.join(QStringLiteral(", "));
}

void FindingsPanel::showRows() {
    const Findings::Told& told = findings_.told();
    const bool isAny = !told.rows.empty();
    summary_->setText(findings_.isLooking() ? tr("Looking…") : isAny ? summaryOf(told) : QString());
    empty_->setVisible(!isAny);
    list_->setVisible(isAny);
    QList<NoteRow> rows;
    for (const FindingRow& row : told.rows) rows << noteOf(row);
    list_->setRows(rows);
    repairAll_->setVisible(findings_.mayRepairAll());
    showChosen();
}

void FindingsPanel::showChosen() {
    const int row = list_->currentRow();
    const auto& rows = findings_.told().rows;
    const bool isChosen = row >= 0 && std::size_t(row) < rows.size();
    const Finding finding = isChosen ? rows[std::size_t(row)].finding : Finding();
    const QString what = findingWords(finding.suggestion.value_or(""));
    const QString code = words(finding.code);
    suggestion_->setText(what.isEmpty() ? code : code.isEmpty() ? what : what + QStringLiteral(" — ") + code);
    suggestion_->setVisible(isChosen && !suggestion_->text().isEmpty());
    repair_->setVisible(!rows.empty());
    repair_->setEnabled(isChosen && rows[std::size_t(row)].hasRepair);
}

void FindingsPanel::showFrames() {
    const auto fraction = findings_.framesFraction();
    frames_->setText(fraction ? tr("Stop (%1 %)").arg(int(std::floor(*fraction * 100))) : tr("Check Frames"));
}

}   // namespace tavix::editor
