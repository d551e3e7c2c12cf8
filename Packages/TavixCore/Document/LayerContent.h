// What a layer shows. The tag stands in the key `kind`, the payload in the key of the same name.
#pragma once

#include "TavixCore/Device/DeviceContent.h"
#include "TavixCore/Document/ImageContent.h"
#include "TavixCore/Document/ShapeContent.h"
#include "TavixCore/Document/VideoContent.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixCore/Typography/TextContent.h"

#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace tavix {

using LayerContent =
    std::variant<TextContent, DeviceContent, ImageContent, VideoContent, ShapeContent, BackgroundFill>;

const std::vector<std::string_view>& layerKinds();   // text, device, image, video, shape, fill
std::string_view kindName(const LayerContent& content);

const Alternatives<LayerContent>& alternativesOf(std::type_identity<LayerContent>);

}   // namespace tavix
