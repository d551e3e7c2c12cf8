#include "Editor/EditorDomain/Inspector/ColorsInUse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(ColorsInUse, AreThoseOfLayersAndGroundsEachOnceTheFrequentFirst) {
    const RGBAColor red{1, 0, 0, 1}, green{0, 1, 0, 0.5}, blue{0, 0, 1, 1}, clearBlue{0, 0, 1, 0.25};
    CompositionSpec spec;
    spec.background = LinearGradient{{{blue, 0}, {green, 1}}, 30};
    CompositionScene scene;
    for (const RGBAColor& color : {red, green, green, clearBlue, red, red}) {
        CompositionLayer layer;
        ShapeContent shape;
        shape.fill = color;
        layer.content = shape;
        scene.layers.push_back(layer);
    }
    spec.scenes = {scene};
    const std::vector<RGBAColor> colors = colorsInUse(spec);
    ASSERT_EQ(colors.size(), 4u) << "opacity tells them apart";
    EXPECT_THAT((std::vector{colors[0], colors[1]}), ::testing::UnorderedElementsAre(red, green));
    EXPECT_THAT((std::vector{colors[2], colors[3]}), ::testing::UnorderedElementsAre(blue, clearBlue));
}

}   // namespace
}   // namespace tavix
