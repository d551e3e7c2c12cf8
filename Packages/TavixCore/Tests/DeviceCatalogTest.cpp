#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Device/DeviceMockup.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace tavix {
namespace {

TEST(DeviceCatalog, FindsEveryDeviceByAnIdOfItsOwn) {
    ASSERT_EQ(DeviceCatalog::all().size(), 28u);
    std::set<std::string> files;
    for (const BundledDevice& device : DeviceCatalog::all()) {
        EXPECT_EQ(DeviceCatalog::device(device.id), &device);
        EXPECT_TRUE(files.insert(device.resourceName).second) << device.resourceName;
    }
    for (const char* id : {"", "iphone-16-pro-", "iPhone-16-Pro", "iphone-99"})
        EXPECT_EQ(DeviceCatalog::device(id), nullptr) << id;
}

TEST(DeviceCatalog, NamesDevicesAfterModelAndColour) {
    const struct {
        std::size_t place;
        const char *id, *displayName, *resourceName;
    } cases[] = {
        {0, "iphone-16-black", "iPhone 16 – Black", "iPhone16-Black"},
        {10, "iphone-16-pro", "iPhone 16 Pro", "iPhone16Pro-frame"},
        {14, "iphone-16-pro-max-black-titanium", "iPhone 16 Pro Max – Black Titanium",
            "iPhone16ProMax-BlackTitanium"},
        {27, "iphone-air-space-black", "iPhone Air – Space Black", "iPhoneAir-SpaceBlack"},
    };
    for (const auto& c : cases) {
        const BundledDevice& device = DeviceCatalog::all()[c.place];
        EXPECT_EQ(device.id, c.id);
        EXPECT_EQ(device.displayName, c.displayName);
        EXPECT_EQ(device.resourceName, c.resourceName);
    }
    EXPECT_EQ(&DeviceCatalog::defaultDevice(), &DeviceCatalog::all()[10]);
}

// Rows were measured; one with a slip of the pen lies off its picture's middle or has another shape.
TEST(DeviceCatalog, HoldsScreensInTheMiddleOfTheirFrames) {
    for (const BundledDevice& device : DeviceCatalog::all()) {
        SCOPED_TRACE(device.id);
        EXPECT_NEAR(device.screen.x + device.screen.width / 2, 0.5, 0.002);
        EXPECT_NEAR(device.screen.y + device.screen.height / 2, 0.5, 0.001);
        // The pictures have the screens' own pixels, so the fractions are of whole ones.
        const double left = device.screen.x * device.pictureWidthPx,
                     height = device.screen.height * device.pictureHeightPx;
        EXPECT_NEAR(left, std::round(left), 0.01);
        EXPECT_NEAR(height, std::round(height), 0.01);
        EXPECT_NEAR(device.frameAspect, double(device.pictureWidthPx) / device.pictureHeightPx, 0.006);
        EXPECT_NEAR(device.screenCornerRadiusFraction, 0.15, 0.02);
    }
}

TEST(DeviceMockup, IsMadeFromACatalogDevice) {
    const BundledDevice& device = *DeviceCatalog::device("iphone-air-sky-blue");
    const DeviceMockup mockup = DeviceMockup::bundled(device);
    EXPECT_EQ(mockup.bundledID, device.id);
    EXPECT_EQ(mockup.screen, device.screen);
    EXPECT_EQ(mockup.screenCornerRadiusFraction, device.screenCornerRadiusFraction);
    EXPECT_FALSE(mockup.framePath);
    // A document that names no device means the default one, whose numbers stand in both places.
    DeviceMockup unnamed = DeviceMockup::bundled(DeviceCatalog::defaultDevice());
    unnamed.bundledID.reset();
    EXPECT_EQ(unnamed, DeviceMockup::iPhone16Pro);
}

}   // namespace
}   // namespace tavix
