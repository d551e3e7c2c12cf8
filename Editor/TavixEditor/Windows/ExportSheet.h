// Asks how to export, and where to; then the export runs on its own (see ExportBar).
#pragma once

#include "TavixEditor/Windows/ExportChoice.h"

#include <QCoreApplication>
#include <QDialog>

class QComboBox;
class QLabel;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class ExportSheet final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(ExportSheet)
public:
    ExportSheet(CompositionEditorModel& model, QWidget* parent);

private:
    ExportChoice choice() const;
    void showChoice();
    void askWhere();

    CompositionEditorModel& model_;
    QComboBox *format_, *codec_, *container_, *resolution_;
    QLabel* figures_;
};

}   // namespace tavix::editor
