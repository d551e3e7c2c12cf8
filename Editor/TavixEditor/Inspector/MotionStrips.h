// Small moving pictures of device motions and formations: a strip of frames each, drawn once on a thread of
// their own and kept in the user's cache.
#pragma once

#include "TavixLive/Gallery/PresetGallery.h"

#include <QImage>
#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace tavix {
class Stage;
}

namespace tavix::editor {

class MotionStrips final : public QObject {
public:
    static constexpr int frameCount = 16, frameWidth = 90, frameHeight = 160;

    explicit MotionStrips(QObject* parent = nullptr);
    ~MotionStrips() override;               // waits for a frame that is being drawn
    static MotionStrips& ofApplication();   // made when it is first asked for

    struct Strip {
        QImage frames;       // beside each other
        int restFrame = 0;   // that shows the most
    };
    // Null as long as it is not there. Asking for one orders it.
    const Strip* strip(const PresetGalleryItem& item);
    std::function<void(const std::string& id)> onReady;

    // Draws or reads one; takes a while. Null when its artwork is missing, or when it ends.
    static QImage made(const PresetGalleryItem& item, Stage& stage, const std::atomic<bool>& isEnding);

private:
    std::shared_ptr<std::atomic<bool>> isEnding_ = std::make_shared<std::atomic<bool>>(false);
    QThreadPool pool_;               // of one thread
    std::shared_ptr<Stage> stage_;   // used on it alone: the phone's model is read once
    std::map<std::string, Strip> strips_;
    std::set<std::string> ordered_;
};

}   // namespace tavix::editor
