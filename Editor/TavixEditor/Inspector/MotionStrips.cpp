#include "TavixEditor/Inspector/MotionStrips.h"

#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Stage/Stage.h"
#include "TavixRender/Assets/BundledBackgrounds.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QPointer>
#include <QStandardPaths>

#include <cstdlib>

namespace tavix::editor {

namespace {

// Counted up when strips look different.
constexpr int edition = 2;

// The frame with the most edges in it: what has not come yet, or has gone, has none.
int fullestFrame(const QImage& strip) {
    constexpr int seen = 16;   // levels of a channel
    int best = 0, most = -1;
    for (int frame = 0; frame < MotionStrips::frameCount; ++frame) {
        int edges = 0;
        for (int y = 0; y < strip.height(); y += 2)
            for (int x = frame * MotionStrips::frameWidth; x + 2 < (frame + 1) * MotionStrips::frameWidth;
                 x += 2)
                edges += std::abs(qGreen(strip.pixel(x, y)) - qGreen(strip.pixel(x + 2, y))) > seen;
        if (edges > most) {
            most = edges;
            best = frame;
        }
    }
    return best;
}

QString cacheFile(const PresetGalleryItem& item) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                           QStringLiteral("/Tavix/motion-strips");
    return QStringLiteral("%1/%2-%3.png").arg(folder, words(item.thumbnailAssetName())).arg(edition);
}

}   // namespace

MotionStrips::MotionStrips(QObject* parent)
    : QObject(parent), stage_(std::make_shared<Stage>(Stage::Options{.storeBytes = 0}, RenderLog{})) {
    pool_.setMaxThreadCount(1);
    pool_.setThreadPriority(QThread::LowPriority);
}

MotionStrips::~MotionStrips() {
    *isEnding_ = true;
    pool_.clear();
    pool_.waitForDone();
}

MotionStrips& MotionStrips::ofApplication() {
    const QString name = QStringLiteral("motion-strips");
    if (QObject* const there = qApp->findChild<QObject*>(name, Qt::FindDirectChildrenOnly))
        return static_cast<MotionStrips&>(*there);
    auto* const made = new MotionStrips(qApp);
    made->setObjectName(name);
    return *made;
}

QImage MotionStrips::made(const PresetGalleryItem& item, Stage& stage, const std::atomic<bool>& isEnding) {
    const QString file = cacheFile(item);
    QImage strip(file);
    if (strip.size() == QSize(frameCount * frameWidth, frameHeight)) return strip;
    // Neighbours show different pictures, as in the large gallery.
    const auto& artwork =
        BackgroundCatalog::all[1 + std::size_t(item.accentIndex) % (BackgroundCatalog::all.size() - 1)];
    const auto screen = BundledBackgrounds::url(artwork);
    if (!screen) return {};
    CompositionSpec spec = item.previewSpec(screen->string(), {1080, 1920, 30});
    spec.background = LinearGradient::standard();
    const FrameSourceRef source = stage.source(spec, std::nullopt, {2 * frameWidth, 2 * frameHeight});
    strip = QImage(frameCount * frameWidth, frameHeight, QImage::Format_RGB32);
    strip.fill(Qt::black);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int i = 0; i < frameCount; ++i) {
        if (isEnding) return {};
        const double sec = source->totalSec() * (i + 0.5) / frameCount;
        const auto drawn = source->draw(sec, FrameQuality::full);
        const auto view = drawn.pixels->view();
        const QImage frame(view.pixels, view.size.width, view.size.height, qsizetype(view.strideBytes),
            QImage::Format_RGB32);
        painter.drawImage(QRect(i * frameWidth, 0, frameWidth, frameHeight),
            frame.scaled(frameWidth, frameHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    painter.end();
    QDir().mkpath(QFileInfo(file).path());
    const QString fresh = file + QStringLiteral(".new");
    if (strip.save(fresh, "PNG")) QFile::rename(fresh, file);   // without a cache it is drawn again
    return strip;
}

const MotionStrips::Strip* MotionStrips::strip(const PresetGalleryItem& item) {
    if (const auto found = strips_.find(item.id); found != strips_.end())
        return found->second.frames.isNull() ? nullptr : &found->second;
    if (!ordered_.insert(item.id).second) return nullptr;
    pool_.start([stage = stage_, isEnding = isEnding_, item, guarded = QPointer<MotionStrips>(this)] {
        QImage strip;
        try {
            strip = made(item, *stage, *isEnding);
        } catch (const std::exception&) {
            // A preset that cannot be drawn keeps its name alone.
        }
        QMetaObject::invokeMethod(
            qApp,
            [guarded, strip, rest = fullestFrame(strip), id = item.id] {
                if (!guarded) return;
                guarded->strips_[id] = {strip, rest};
                if (guarded->onReady) guarded->onReady(id);
            },
            Qt::QueuedConnection);
    });
    return nullptr;
}

}   // namespace tavix::editor
