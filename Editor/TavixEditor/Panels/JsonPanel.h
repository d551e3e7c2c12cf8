// The selection, or the whole document, as the text that it is saved as; applied as one step.
#pragma once

#include "TavixEditor/Panels/JsonDraft.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixPlatform/System/Continuation.h"

#include <QCoreApplication>
#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class JsonEdit;

class JsonPanel final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(JsonPanel)
public:
    JsonPanel(CompositionEditorModel& model, system::SerialExecutor& main, system::Executor& workers,
        QWidget* parent = nullptr);

    JsonEdit& edit() { return *edit_; }
    void apply();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeFoot();
    void noteEdit();
    void read();
    void show(JsonPart part, std::string whole);
    void noteTyping();
    void judge();
    void discard();
    JsonPart draft() const;
    bool isDirty() const;
    void tell(const QString& text, std::optional<int> line, bool isFault);
    void showButtons();

    CompositionEditorModel& model_;
    system::SerialExecutor& main_;
    system::Executor& workers_;
    QComboBox* extent_;
    QLabel *place_, *told_;
    JsonEdit* edit_;
    QPushButton *apply_, *discard_;
    JsonPart shown_;
    std::string whole_;   // that the part is of
    std::optional<int> toldLine_;
    bool hasFault_ = false, isStale_ = true;
    system::Timer readTimer_, judgeTimer_;
    system::Lifeline reading_;
    Connections connections_;
};

}   // namespace tavix::editor
