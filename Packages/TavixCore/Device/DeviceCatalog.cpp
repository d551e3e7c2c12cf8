#include "TavixCore/Device/DeviceCatalog.h"

#include <algorithm>

namespace tavix::DeviceCatalog {
namespace {

constexpr double everyFrameAspect = 0.4982;
constexpr std::string_view defaultID = "iphone-16-pro";

// Phones of one model in the colours whose frame pictures have their screens at the same place.
struct Row {
    std::string_view model;
    int pictureWidthPx, pictureHeightPx;
    std::vector<std::string_view> colours;   // none: the model's own picture
    NormalizedRect screen;
    double cornerRadiusFraction;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> table{
        {"iPhone 16", 1379, 2756, {"Black", "Pink", "Teal", "Ultramarine", "White"},
            {0.072516, 0.036284, 0.854967, 0.927431}, 0.145},
        {"iPhone 16 Plus", 1490, 2996, {"Black", "Pink", "Teal", "Ultramarine", "White"},
            {0.067114, 0.033378, 0.865772, 0.933244}, 0.1364},
        {"iPhone 16 Pro", 1406, 2822, {}, {0.072546, 0.035436, 0.857752, 0.929128}, 0.16},
        {"iPhone 16 Pro", 1406, 2822, {"Desert Titanium"}, {0.073969, 0.03579, 0.853485, 0.927711}, 0.15},
        {"iPhone 16 Pro", 1406, 2822, {"Natural Titanium"}, {0.071124, 0.035436, 0.857752, 0.929128}, 0.1642},
        {"iPhone 16 Pro", 1406, 2822, {"White Titanium"}, {0.072546, 0.035436, 0.857752, 0.929128}, 0.1642},
        {"iPhone 16 Pro Max", 1520, 3068,
            {"Black Titanium", "Desert Titanium", "Natural Titanium", "White Titanium"},
            {0.065789, 0.032595, 0.868421, 0.934811}, 0.147},
        {"iPhone 17 Pro", 1406, 2822, {"Cosmic Orange", "Deep Blue", "Silver"},
            {0.071124, 0.035436, 0.857752, 0.929128}, 0.1592},
        {"iPhone 17 Pro Max", 1520, 3068, {"Cosmic Orange", "Deep Blue", "Silver"},
            {0.065789, 0.032595, 0.868421, 0.934811}, 0.1485},
        {"iPhone Air", 1490, 2996, {"Cloud White", "Light Gold", "Sky Blue", "Space Black"},
            {0.067114, 0.033378, 0.865772, 0.933244}, 0.1558},
    };
    return table;
}

std::string withoutBlanks(std::string_view words) {
    std::string joined(words);
    std::erase(joined, ' ');
    return joined;
}

std::string kebab(std::string_view words) {
    std::string result(words);
    for (char& c : result) c = c == ' ' ? '-' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return result;
}

BundledDevice made(const Row& row, std::string_view colour) {
    const bool isPlain = colour.empty();
    const std::string model(row.model);
    return {.id = kebab(row.model) + (isPlain ? "" : "-" + kebab(colour)),
        .displayName = model + (isPlain ? "" : " – " + std::string(colour)),
        .resourceName = withoutBlanks(row.model) + "-" + (isPlain ? "frame" : withoutBlanks(colour)),
        .screen = row.screen,
        .screenCornerRadiusFraction = row.cornerRadiusFraction,
        .frameAspect = everyFrameAspect,
        .pictureWidthPx = row.pictureWidthPx,
        .pictureHeightPx = row.pictureHeightPx};
}

}   // namespace

const std::vector<BundledDevice>& all() {
    static const std::vector<BundledDevice> devices = [] {
        std::vector<BundledDevice> result;
        for (const Row& row : rows()) {
            if (row.colours.empty()) result.push_back(made(row, {}));
            for (const std::string_view colour : row.colours) result.push_back(made(row, colour));
        }
        return result;
    }();
    return devices;
}

const BundledDevice& iPhone16Pro() { return *device(defaultID); }
const BundledDevice& defaultDevice() { return iPhone16Pro(); }

const BundledDevice* device(std::string_view id) {
    const auto found = std::ranges::find(all(), id, &BundledDevice::id);
    return found == all().end() ? nullptr : &*found;
}

}   // namespace tavix::DeviceCatalog
