// What other programs have changed, the latest first: a click shows where, a button takes it back.
#pragma once

#include "TavixEditor/Panels/Changes.h"

#include <QCoreApplication>
#include <QWidget>

class QLabel;
class QPushButton;

namespace tavix::editor {

class NoteList;

class ChangesPanel final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ChangesPanel)
public:
    explicit ChangesPanel(Changes& changes, QWidget* parent = nullptr);
    static QString countWords(std::size_t changes);   // "3 changes"
    static QString stepName() { return tr("Take Back Changes"); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Chosen {
        std::size_t step, row;
    };
    std::optional<Chosen> chosen() const;
    void showSteps();

    Changes& changes_;
    QLabel* empty_;
    NoteList* list_;
    QPushButton* takeBack_;
    std::vector<std::optional<Chosen>> places_;   // of the rows of the list; nothing for a heading
    Connections connections_;
};

}   // namespace tavix::editor
