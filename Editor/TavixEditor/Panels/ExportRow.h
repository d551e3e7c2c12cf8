// One export: its picture and how far it is, or how it ended, and what can be done about it.
#pragma once

#include "TavixLive/Model/ExportQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>

#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tavix::editor {

class SmallFilm;
class Studio;

class ExportRow final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ExportRow)
public:
    ExportRow(Studio& studio, int id, QWidget* parent = nullptr);
    ~ExportRow() override;

    int id() const { return id_; }
    void showJob(const ExportJob& job);
    // "40 s", "3 min": no more exact than an estimate is.
    static QString timeWords(double sec);

private:
    QString wordsOf(const ExportJob& job) const;
    void drawPicture(const ExportJob& job);

    Studio& studio_;
    int id_;
    QLabel *picture_, *text_;
    QProgressBar* progress_;
    QPushButton *stop_, *reveal_, *dismiss_;
    QElapsedTimer since_, drawnAt_;
    ExportJob::Stand stand_ = ExportJob::Stand::waiting;
    std::shared_ptr<SmallFilm> film_;   // made and drawn on a worker, one frame at a time
    bool isDrawing_ = false;
    system::Lifeline lifeline_;
};

}   // namespace tavix::editor
