// Asks which template to start from, and where the new project goes.
#pragma once

#include <QCoreApplication>
#include <QDialog>

#include <filesystem>
#include <functional>

class QLabel;
class QListWidget;
class QPushButton;

namespace tavix::editor {

class NewProjectSheet final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(NewProjectSheet)
public:
    explicit NewProjectSheet(QWidget* parent);

    std::function<void(const std::filesystem::path& bundle)> onMade;

private:
    void list(const QByteArray& json);
    void askWhere();
    void make(const QString& file);

    QListWidget* templates_;
    QLabel* fault_;
    QPushButton* create_;
};

}   // namespace tavix::editor
