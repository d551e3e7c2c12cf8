// A text field for JSON: coloured, completed, and with the line that is wrong marked.
#pragma once

#include "TavixEditor/Panels/JsonCompletion.h"

#include <QPlainTextEdit>

#include <functional>
#include <optional>

class QCompleter;
class QStandardItemModel;

namespace tavix::editor {

class JsonEdit final : public QPlainTextEdit {
public:
    explicit JsonEdit(QWidget* parent = nullptr);

    // What may stand at a byte of the text.
    std::function<std::vector<JsonCandidate>(const JsonScan& scan)> candidates;
    // The meaning of the candidate that is chosen, or nothing.
    std::function<void(const QString& meaning)> onMeaning;

    void setFaultLine(std::optional<int> line);   // counted from 0
    void goToLine(int line);
    bool isCompleting() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void complete(bool isAsked);
    void insert(const QString& candidate);
    void markFault();

    QCompleter* completer_;
    QStandardItemModel* found_;
    int wordFrom_ = 0, wordTo_ = 0;   // positions in the text that a candidate replaces
    bool isKey_ = false;
    std::optional<int> faultLine_;
};

}   // namespace tavix::editor
