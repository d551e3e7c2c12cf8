// Asks how to export, and where to; then the export runs on its own (see ExportBar).
#pragma once

#include "TavixEditor/Windows/ExportChoice.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixRender/Export/ExportTrial.h"

#include <QCoreApplication>
#include <QDialog>

#include <optional>
#include <stop_token>

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QSpinBox;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class Studio;

class ExportSheet final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(ExportSheet)
public:
    ExportSheet(Studio& studio, QWidget* parent);
    ~ExportSheet() override;

private:
    void fill();
    QFormLayout* makeForm();
    QWidget* makeRateRow();
    QWidget* makeButtons();
    ExportChoice choice() const;
    void remember(const ExportChoice& choice);
    void showContainers();
    void showKeeps();
    void showEstimate(const ExportTrial::Outcome& outcome, const ExportFigures& figures);
    void showChoice();
    void estimate();
    void askWhere();

    Studio& studio_;
    CompositionEditorModel& model_;
    QComboBox *format_, *codec_, *container_, *resolution_, *effort_, *keep_;
    QSpinBox* quality_;
    QDoubleSpinBox *megabits_, *megabytes_;   // a second; of the whole file
    QLabel *figures_, *estimate_;
    system::Timer estimateTimer_;
    std::stop_source estimating_;
    system::Lifeline lifeline_;
};

}   // namespace tavix::editor
