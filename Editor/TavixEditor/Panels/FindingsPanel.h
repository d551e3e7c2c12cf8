// What is wrong with the document: a click shows where, a button mends it.
#pragma once

#include "TavixEditor/Panels/Findings.h"

#include <QCoreApplication>
#include <QWidget>

class QLabel;
class QPushButton;

namespace tavix::editor {

class NoteList;

class FindingsPanel final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(FindingsPanel)
public:
    explicit FindingsPanel(Findings& findings, QWidget* parent = nullptr);
    // "2 errors, 3 warnings", or that nothing is found.
    static QString summaryOf(const Findings::Told& told);

private:
    QWidget* makeDetail();
    void showRows();
    void showChosen();
    void showFrames();

    Findings& findings_;
    QLabel *summary_, *suggestion_, *empty_;
    NoteList* list_;
    QPushButton *repair_, *repairAll_, *frames_;
    Connections connections_;
};

}   // namespace tavix::editor
