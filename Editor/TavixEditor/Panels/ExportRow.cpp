#include "TavixEditor/Panels/ExportRow.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "TavixEditor/App/Reveal.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Windows/ExportChoice.h"
#include "TavixEditor/Windows/Thumbnails.h"

#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>

#include <cmath>
#include <utility>

namespace tavix::editor {

using namespace design;
using Stand = ExportJob::Stand;

namespace {

constexpr int pictureHeight = 36, pictureWidth = 56;
constexpr qint64 betweenPicturesMs = 2000;

struct Drawn {
    std::shared_ptr<SmallFilm> film;
    QImage picture;
};

}   // namespace

ExportRow::ExportRow(Studio& studio, int id, QWidget* parent)
    : QWidget(parent), studio_(studio), id_(id), picture_(new QLabel), text_(makeLabel({}, TextSize::body)),
      progress_(new QProgressBar), stop_(new QPushButton(tr("Stop"))),
      reveal_(new QPushButton(tr("Show in Folder"))), dismiss_(new QPushButton(tr("Done"))) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(space::medium, space::tight, space::medium, space::tight);
    row->setSpacing(space::medium);
    picture_->setFixedSize(pictureWidth, pictureHeight);
    picture_->setAlignment(Qt::AlignCenter);
    onGround(picture_, QPalette::Dark);
    row->addWidget(picture_);
    row->addWidget(text_);
    row->addWidget(progress_, 1);
    row->addStretch(0);
    for (QPushButton* button : {stop_, reveal_, dismiss_}) row->addWidget(button);
    progress_->setRange(0, 1000);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(tr("Export"));
    QObject::connect(stop_, &QPushButton::clicked, this, [this] { studio_.model.exports().stop(id_); });
    QObject::connect(dismiss_, &QPushButton::clicked, this, [this] { studio_.model.exports().dismiss(id_); });
}

ExportRow::~ExportRow() = default;

QString ExportRow::timeWords(double sec) {
    constexpr double minute = 60, fewMinutes = 90;
    if (sec < fewMinutes) return tr("%1 s").arg(int(std::ceil(sec)));
    return tr("%1 min").arg(int(std::ceil(sec / minute)));
}

QString ExportRow::wordsOf(const ExportJob& job) const {
    const QString name = pathWords(job.place().filename());
    switch (job.stand) {
    case Stand::waiting: return tr("%1 waits").arg(name);
    case Stand::done: return tr("Exported %1.").arg(name);
    case Stand::failed: return tr("%1 could not be exported.").arg(name);
    case Stand::stopped: return tr("%1 was stopped.").arg(name);
    case Stand::running: break;
    }
    const double left = remainingSec(job.fraction, double(since_.elapsed()) / 1000);
    return std::isfinite(left) ? tr("Exporting %1, about %2 left").arg(name, timeWords(left))
                               : tr("Exporting %1…").arg(name);
}

void ExportRow::showJob(const ExportJob& job) {
    if (job.stand == Stand::running && (stand_ != Stand::running || !since_.isValid())) since_.start();
    stand_ = job.stand;
    text_->setText(wordsOf(job));
    progress_->setVisible(job.stand == Stand::running);
    progress_->setValue(int(std::lround(job.fraction * 1000)));
    stop_->setVisible(!job.isOver());
    reveal_->setVisible(job.stand == Stand::done);
    dismiss_->setVisible(job.isOver());
    reveal_->disconnect();
    QObject::connect(reveal_, &QPushButton::clicked, this, [this, file = job.place()] {
        revealInFolder(file, lifeline_.guard([this](const QString& sentence) {
            studio_.model.state.errorMessage = utf8Of(sentence);
        }));
    });
    if (job.stand == Stand::running) drawPicture(job);
}

// About where the export is, now and then: it must not hold up what it shows.
void ExportRow::drawPicture(const ExportJob& job) {
    if (isDrawing_ || (drawnAt_.isValid() && drawnAt_.elapsed() < betweenPicturesMs)) return;
    isDrawing_ = true;
    const int sidePx = int(pictureWidth * devicePixelRatioF());
    system::runThere(
        studio_.workers(), studio_.main(),
        [film = film_, config = job.config, fraction = job.fraction, sidePx] {
            Drawn drawn{film, {}};
            if (!drawn.film)
                drawn.film =
                    std::make_shared<SmallFilm>(config->spec, config->assetRoot.value_or(""), sidePx);
            drawn.picture = drawn.film->at(fraction);
            return drawn;
        },
        lifeline_.guard([this](system::Outcome<Drawn>& outcome) {
            isDrawing_ = false;
            drawnAt_.start();
            if (outcome.hasFailed()) return;
            film_ = std::move(outcome.value().film);
            QPixmap picture = QPixmap::fromImage(outcome.value().picture);
            const double scale = devicePixelRatioF();
            picture = picture.scaled(
                QSize(pictureWidth, pictureHeight) * scale, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            picture.setDevicePixelRatio(scale);
            picture_->setPixmap(picture);
        }));
}

}   // namespace tavix::editor
