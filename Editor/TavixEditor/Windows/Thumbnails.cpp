#include "TavixEditor/Windows/Thumbnails.h"

#include "TavixCore/Project/CompositionProjectBundle.h"
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

QImage drawn(const std::filesystem::path& bundle, int sidePx) {
    const DocumentOnDisk document = DocumentOnDisk::read(bundle);
    Stage::Options options;
    options.storeBytes = 0;
    Stage stage(options, RenderLog{});
    const FrameSourceRef source = stage.source(document.spec, bundle, {sidePx, sidePx});
    const auto frame = source->draw(source->totalSec() / 2, FrameQuality::full);
    const imaging::ConstBitmapView view = frame.pixels->view();
    return QImage(
        view.pixels, view.size.width, view.size.height, qsizetype(view.strideBytes), QImage::Format_RGB32)
        .copy();
}

}   // namespace

QImage thumbnailOf(
    const std::filesystem::path& bundle, const std::filesystem::path& cacheFolder, int sidePx) {
    const QDir folder(pathWords(cacheFolder / "thumbnails"));
    const QString file = folder.filePath(cachedName(bundle, sidePx));
    QImage picture(file);
    if (!picture.isNull()) return picture;
    try {
        picture = drawn(bundle, sidePx);
    } catch (const std::exception&) {
        return {};   // a project without a picture still has its name
    }
    if (folder.mkpath(QStringLiteral("."))) picture.save(file);
    return picture;
}

}   // namespace tavix::editor
