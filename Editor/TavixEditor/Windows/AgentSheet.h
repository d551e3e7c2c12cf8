// Asks which of the agents on this machine may use the command, for all projects or for one, and installs it.
#pragma once

#include "Editor/EditorToolchain/AgentDetect.h"
#include "Editor/EditorToolchain/CLIInstaller.h"
#include "TavixPlatform/System/Continuation.h"

#include <QCoreApplication>
#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QPushButton;

namespace tavix::editor {

class Studio;

class AgentSheet final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(AgentSheet)
public:
    // What it begins with once it knows the agents of this machine, as if its button had been pressed.
    enum class Begin { nothing, globally, forProject };

    AgentSheet(Studio& studio, const CLIInstaller& installer, QWidget* parent, Begin begin = Begin::nothing);

private:
    std::vector<std::string> chosen() const;
    void list(const std::vector<DetectedAgent>& agents);
    void showChoice();
    void install(
        const std::function<InstallOutcome(const CLIInstaller&, const std::vector<std::string>&)>& job);
    void askProject();

    Studio& studio_;
    CLIInstaller installer_;
    QWidget* agents_;
    std::vector<std::pair<std::string, QCheckBox*>> boxes_;
    QLabel* outcome_;
    QPushButton *global_, *project_;
    Begin begin_;
    bool isBusy_ = false;
    system::Lifeline lifeline_;
};

}   // namespace tavix::editor
