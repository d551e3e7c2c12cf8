// Asks which template to start from, and where the new project goes.
#pragma once

#include "TavixPlatform/System/Continuation.h"

#include <QCoreApplication>
#include <QDialog>
#include <QTemporaryDir>

#include <filesystem>
#include <functional>

class QImage;
class QLabel;
class QListWidget;
class QPushButton;

namespace tavix::editor {

class Studio;

class NewProjectSheet final : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(NewProjectSheet)
public:
    NewProjectSheet(Studio& studio, QWidget* parent);

    std::function<void(const std::filesystem::path& bundle)> onMade;

private:
    void list(const QByteArray& json);
    void drawNext();
    void showPicture(int row, const QImage& picture);
    void askWhere();
    void make(const QString& file);

    Studio& studio_;
    QTemporaryDir trials_;   // of projects that are only looked at
    int drawn_ = 0;          // how many templates have their pictures
    system::Lifeline lifeline_;
    QListWidget* templates_;
    QLabel* fault_;
    QPushButton* create_;
};

}   // namespace tavix::editor
