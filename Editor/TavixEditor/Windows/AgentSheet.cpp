#include "TavixEditor/Windows/AgentSheet.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <exception>

namespace tavix::editor {

using namespace design;

AgentSheet::AgentSheet(Studio& studio, const CLIInstaller& installer, QWidget* parent, Begin begin)
    : QDialog(parent), studio_(studio), installer_(installer), agents_(new QWidget),
      outcome_(makeLabel({}, TextSize::body)), global_(new QPushButton(tr("Install Globally"))),
      project_(new QPushButton(tr("Install for a Project…"))), begin_(begin) {
    setObjectName(QStringLiteral("agentSheet"));
    setWindowTitle(tr("Set up Agents"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(460);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(space::section, space::section, space::section, space::large);
    column->setSpacing(space::medium);
    column->addWidget(makeLabel(tr("Set up Agents"), TextSize::title));
    auto* about = makeLabel(
        tr("Agents write and mend compositions with the command tavix. Choose those that may use it."),
        TextSize::body, Tone::secondary);
    about->setWordWrap(true);
    column->addWidget(about);
    new QVBoxLayout(agents_);
    agents_->layout()->setContentsMargins(0, 0, 0, 0);
    agents_->layout()->setSpacing(space::small);
    column->addWidget(agents_);
    outcome_->setObjectName(QStringLiteral("agentOutcome"));
    outcome_->setWordWrap(true);
    outcome_->setVisible(false);
    column->addWidget(outcome_);
    column->addStretch();
    auto* buttons = new QHBoxLayout;
    auto* close = new QPushButton(tr("Close"));
    buttons->addWidget(close);
    buttons->addStretch();
    buttons->addWidget(project_);
    buttons->addWidget(global_);
    global_->setDefault(true);
    column->addLayout(buttons);
    QObject::connect(close, &QPushButton::clicked, this, &QDialog::reject);
    QObject::connect(project_, &QPushButton::clicked, this, [this] { askProject(); });
    QObject::connect(global_, &QPushButton::clicked, this, [this] {
        install([](const CLIInstaller& on, const std::vector<std::string>& ids) {
            return on.installGloballyInto(ids, on.installedReach().value_or(CLIInstaller::Reach::user));
        });
    });
    showChoice();
    system::runThere(
        studio_.workers(), studio_.main(),
        [] { return AgentDetect::all(ToolchainPlaces::ofThisMachine().folders); },
        lifeline_.guard([this](system::Outcome<std::vector<DetectedAgent>>& outcome) {
            if (!outcome.hasFailed()) list(outcome.value());
        }));
}

// Those that are here come first and are chosen.
void AgentSheet::list(const std::vector<DetectedAgent>& agents) {
    for (const bool isHere : {true, false})
        for (const DetectedAgent& agent : agents) {
            if (agent.installed != isHere) continue;
            auto* box =
                new QCheckBox(isHere ? words(agent.label) : tr("%1 (not found)").arg(words(agent.label)));
            box->setChecked(isHere);
            agents_->layout()->addWidget(box);
            boxes_.push_back({agent.id, box});
            QObject::connect(box, &QCheckBox::toggled, this, [this] { showChoice(); });
        }
    showChoice();
    if (begin_ == Begin::globally) global_->click();
    if (begin_ == Begin::forProject) project_->click();
}

std::vector<std::string> AgentSheet::chosen() const {
    std::vector<std::string> ids;
    for (const auto& [id, box] : boxes_)
        if (box->isChecked()) ids.push_back(id);
    return ids;
}

void AgentSheet::showChoice() {
    const bool mayInstall = !isBusy_ && !chosen().empty();
    global_->setEnabled(mayInstall);
    project_->setEnabled(mayInstall);
    agents_->setEnabled(!isBusy_);
}

void AgentSheet::install(
    const std::function<InstallOutcome(const CLIInstaller&, const std::vector<std::string>&)>& job) {
    isBusy_ = true;
    outcome_->setText(tr("Installing…"));
    outcome_->setVisible(true);
    showChoice();
    system::runThere(
        studio_.workers(), studio_.main(),
        [job, installer = installer_, ids = chosen()] { return job(installer, ids); },
        lifeline_.guard([this](system::Outcome<InstallOutcome>& outcome) {
            isBusy_ = false;
            showChoice();
            try {
                const InstallOutcome& ended = outcome.value();
                if (ended.isDone) installer_.setFirstSetupDone(true);
                outcome_->setText(words(ended.text));
            } catch (const std::exception& error) {
                outcome_->setText(words(error.what()));
            }
        }));
}

void AgentSheet::askProject() {
    auto* dialog = new QFileDialog(this, tr("Install for a Project"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    QObject::connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& folder) {
        install([project = pathOf(folder)](const CLIInstaller& on, const std::vector<std::string>& ids) {
            return on.installIntoProject(ids, project);
        });
    });
    dialog->open();
}

}   // namespace tavix::editor
