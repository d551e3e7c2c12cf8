// The content of a layer that is made when it is first drawn, and given up when it is out of sight: a film
// has in memory what it shows, and not what it will show or has shown.
#pragma once

#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"

#include <functional>
#include <memory>
#include <utility>

namespace tavix {

class LayerWhenShown final : public CompositionLayerContentRenderer {
public:
    using Make = std::function<std::unique_ptr<CompositionLayerContentRenderer>()>;

    // What `make` needs must outlive this; it gives the same content every time.
    LayerWhenShown(Make make, bool isDeviceInSpace)
        : make_(std::move(make)), isDeviceInSpace_(isDeviceInSpace) {}

    std::optional<imaging::Image> contentImage(double localSec) override {
        if (!content_) {
            content_ = make_();
            content_->setScrubQuality(isScrubbed_);
            content_->setRough(isRough_);
        }
        return content_->contentImage(localSec);
    }
    void rest() override {
        if (content_) content_->rest();   // what is shared stays with others
        content_.reset();
    }
    bool hasDevicesInSpace() const override { return isDeviceInSpace_; }
    void setScrubQuality(bool isOn) override {
        isScrubbed_ = isOn;
        if (content_) content_->setScrubQuality(isOn);
    }
    void setRough(bool isOn) override {
        isRough_ = isOn;
        if (content_) content_->setRough(isOn);
    }

private:
    Make make_;
    std::unique_ptr<CompositionLayerContentRenderer> content_;
    bool isDeviceInSpace_, isScrubbed_ = false, isRough_ = false;
};

}   // namespace tavix
