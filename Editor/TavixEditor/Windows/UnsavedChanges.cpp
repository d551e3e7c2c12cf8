#include "TavixEditor/Windows/UnsavedChanges.h"

#include "TavixEditor/App/Words.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace tavix::editor {

void UnsavedChanges::resolve(std::function<void()> goOn, std::function<void()> stay) {
    if (!stay) stay = [] {};
    if (isAsking_) return stay();
    if (!model_.state.isLoaded() || !model_.state.hasUnsavedChanges()) return goOn();
    isAsking_ = true;
    const auto& bundle = model_.state.bundle();
    const QString name = bundle ? pathWords(bundle->stem()) : QStringLiteral("composition");
    auto* question = new QMessageBox(window_);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setObjectName(QStringLiteral("unsavedChanges"));
    question->setWindowTitle(QStringLiteral("Tavix"));
    question->setText(tr("Do you want to save the changes you made to “%1”?").arg(name));
    question->setInformativeText(tr("Your changes will be lost if you don’t save them."));
    QPushButton* save = question->addButton(tr("Save"), QMessageBox::AcceptRole);
    QPushButton* cancel = question->addButton(tr("Cancel"), QMessageBox::RejectRole);
    QPushButton* lose = question->addButton(tr("Don’t Save"), QMessageBox::DestructiveRole);
    lose->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    question->setDefaultButton(save);
    question->setEscapeButton(cancel);
    QObject::connect(
        question, &QMessageBox::finished, window_, [=, this, goOn = std::move(goOn), stay = std::move(stay)] {
            isAsking_ = false;
            if (question->clickedButton() == lose) return goOn();
            if (question->clickedButton() != save) return stay();
            model_.save([this, goOn, stay] { model_.state.hasUnsavedChanges() ? stay() : goOn(); });
        });
    question->open();
}

}   // namespace tavix::editor
