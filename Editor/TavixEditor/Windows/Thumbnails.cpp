#include "TavixEditor/Windows/Thumbnails.h"

#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Saving/DocumentOnDisk.h"
#include "TavixLive/Stage/Stage.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <exception>

namespace tavix::editor {

namespace {

QString cachedName(const std::filesystem::path& bundle, int sidePx) {
    const QFileInfo document(pathWords(CompositionProjectBundle::specFile(bundle)));
    const QString key = document.absoluteFilePath() +
                        QString::number(document.lastModified().toMSecsSinceEpoch()) + QLatin1Char(':') +
                        QString::number(sidePx);
    return QString::fromLatin1(
               QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256).toHex().left(32)) +
           QStringLiteral(".png");
}

}   // namespace

SmallFilm::SmallFilm(const CompositionSpec& spec, const std::filesystem::path& assetRoot, int sidePx)
    : stage_(std::make_unique<Stage>(Stage::Options{.storeBytes = 0}, RenderLog{})),
      source_(stage_->source(spec, assetRoot, {sidePx, sidePx})) {}

SmallFilm::~SmallFilm() = default;

QImage SmallFilm::at(double fraction) { return atSec(source_->totalSec() * fraction); }

QImage SmallFilm::atSec(double sec) {
    const auto frame = source_->draw(sec, FrameQuality::full);
    const imaging::ConstBitmapView view = frame.pixels->view();
    return QImage(
        view.pixels, view.size.width, view.size.height, qsizetype(view.strideBytes), QImage::Format_RGB32)
        .copy();
}

QImage thumbnailOf(
    const std::filesystem::path& bundle, const std::filesystem::path& cacheFolder, int sidePx) {
    const QDir folder(pathWords(cacheFolder / "thumbnails"));
    const QString file = folder.filePath(cachedName(bundle, sidePx));
    QImage picture(file);
    if (!picture.isNull()) return picture;
    try {
        const CompositionSpec spec = DocumentOnDisk::read(bundle).spec;
        picture = SmallFilm(spec, bundle, sidePx).atSec(tellingSec(spec));
    } catch (const std::exception&) {
        return {};   // a project without a picture still has its name
    }
    if (folder.mkpath(QStringLiteral("."))) picture.save(file);
    return picture;
}

}   // namespace tavix::editor
