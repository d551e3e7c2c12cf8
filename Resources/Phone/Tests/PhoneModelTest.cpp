#include "Phone/Dimensions.h"
#include "Phone/GltfFile.h"
#include "Phone/Model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace tavix::phone {

namespace {

const Model& phone() {
    static const Model model = phoneModel();
    return model;
}

const Part& partNamed(const std::string& name) {
    const auto& parts = phone().parts();
    return *std::find_if(parts.begin(), parts.end(), [&](const Part& part) { return part.name == name; });
}

// What is drawn when the studio has done its work.
bool isSeen(const Part& part) { return part.name != "cover_glass" && part.name != "chassis_1111"; }

using Corners = std::array<Vertex, 3>;

Corners cornersOf(const Surface& surface, const Triangle& triangle) {
    return {surface.vertices[triangle[0]], surface.vertices[triangle[1]], surface.vertices[triangle[2]]};
}

Vec3 areaVector(const Corners& c) { return cross(c[1].at - c[0].at, c[2].at - c[0].at) * 0.5; }

// The studio's box for stray geometry, 6 by 30 mm at the foot.
bool isStray(const Part& part, const Corners& corners) {
    return part.name == "bezel_black2" && std::all_of(corners.begin(), corners.end(), [](const Vertex& v) {
        return v.at.y < 6 && std::abs(v.at.x) < 15;
    });
}

// All that is seen, the stray slivers left out.
std::vector<Corners> skin() {
    std::vector<Corners> triangles;
    for (const Part& part : phone().parts()) {
        if (!isSeen(part)) continue;
        for (const Triangle& triangle : part.surface.triangles) {
            const Corners corners = cornersOf(part.surface, triangle);
            if (!isStray(part, corners)) triangles.push_back(corners);
        }
    }
    return triangles;
}

using FilePoint = std::array<float, 3>;   // as it is written
FilePoint filePoint(Vec3 at) { return {float(at.x * 0.001), float(at.y * 0.001), float(at.z * 0.001)}; }

TEST(PhoneModel, IsOneClosedSkinWithoutCracks) {
    std::map<std::pair<FilePoint, FilePoint>, int> edges;
    for (const Corners& corners : skin())
        for (std::size_t i = 0; i < 3; ++i)
            ++edges[{filePoint(corners[i].at), filePoint(corners[(i + 1) % 3].at)}];
    int faults = 0;
    for (const auto& [edge, count] : edges) {
        const auto opposite = edges.find({edge.second, edge.first});
        if (count == 1 && opposite != edges.end() && opposite->second == 1) continue;
        if (++faults <= 5)
            ADD_FAILURE() << "An edge at " << edge.first[0] << ", " << edge.first[1] << ", " << edge.first[2]
                          << " to " << edge.second[0] << ", " << edge.second[1] << ", " << edge.second[2]
                          << " is used " << count << " times and its opposite "
                          << (opposite == edges.end() ? 0 : opposite->second);
    }
    EXPECT_EQ(faults, 0);
}

// How often the skin goes around a point: 1 inside, 0 outside, by the solid angles of its triangles (Van
// Oosterom and Strackee, 1983).
double windingAround(Vec3 point, const std::vector<Corners>& triangles) {
    double angle = 0;
    for (const Corners& corners : triangles) {
        const Vec3 a = corners[0].at - point, b = corners[1].at - point, c = corners[2].at - point;
        const double la = length(a), lb = length(b), lc = length(c);
        angle +=
            std::atan2(dot(a, cross(b, c)), la * lb * lc + dot(a, b) * lc + dot(b, c) * la + dot(c, a) * lb);
    }
    return angle / (2 * 3.14159265358979);
}

// A step out of any surface leads into the open, and a step in leads into the solid: no thing is pushed into
// another, and no two surfaces share a place, which would flicker.
TEST(PhoneModel, KeepsItsThingsApart) {
    const std::vector<Corners> triangles = skin();
    constexpr double stepMm = 0.01;
    for (std::size_t i = 0; i < triangles.size(); i += 251) {
        const Corners& corners = triangles[i];
        const Vec3 middle = (corners[0].at + corners[1].at + corners[2].at) * (1.0 / 3);
        const Vec3 out = normalized(areaVector(corners)) * stepMm;
        EXPECT_NEAR(windingAround(middle + out, triangles), 0, 1e-3)
            << middle.x << " " << middle.y << " " << middle.z;
        EXPECT_NEAR(windingAround(middle - out, triangles), 1, 1e-3)
            << middle.x << " " << middle.y << " " << middle.z;
    }
}

TEST(PhoneModel, FacesTheWayItsNormalsSay) {
    for (const Part& part : phone().parts()) {
        int turned = 0, thin = 0;
        for (const Triangle& triangle : part.surface.triangles) {
            const Corners corners = cornersOf(part.surface, triangle);
            const Vec3 area = areaVector(corners);
            thin += length(area) < 1e-7;
            // A smooth surface leans from its triangles by less than 30 degrees.
            for (const Vertex& vertex : corners) {
                EXPECT_NEAR(length(vertex.normal), 1, 1e-9);
                turned += dot(area, vertex.normal) < std::cos(30 * 3.14159265 / 180) * length(area);
            }
        }
        EXPECT_EQ(turned, 0) << part.name;
        EXPECT_EQ(thin, 0) << part.name << " has triangles without area";
    }
}

TEST(PhoneModel, EnclosesTheVolumeOfAPhone) {
    double volume = 0, triangles = 0;
    for (const Part& part : phone().parts()) triangles += double(part.surface.triangles.size());
    Vec3 least{1e9, 1e9, 1e9}, most{-1e9, -1e9, -1e9};
    for (const Corners& corners : skin()) {
        volume += dot(corners[0].at, areaVector(corners)) / 3;
        for (const Vertex& vertex : corners) {
            least = {std::min(least.x, vertex.at.x), std::min(least.y, vertex.at.y),
                std::min(least.z, vertex.at.z)};
            most = {
                std::max(most.x, vertex.at.x), std::max(most.y, vertex.at.y), std::max(most.z, vertex.at.z)};
        }
    }
    // Of a box of the phone's measures, corners and bevels take a little away; inside out it would be
    // negative.
    EXPECT_NEAR(volume / (widthMm * heightMm * 2 * halfDepthMm), 1.0, 0.05);
    EXPECT_GE(triangles, 40000);
    EXPECT_LE(triangles, 60000);
    EXPECT_EQ(least.y, 0);
    EXPECT_EQ(most.y, heightMm);
    EXPECT_EQ(least.x, -most.x);   // keys stand out equally on both sides
    EXPECT_GT(most.x, widthMm / 2);
    EXPECT_LT(most.x, widthMm / 2 + 1);
    EXPECT_EQ(least.z, -halfDepthMm);
}

TEST(PhoneModel, ShowsAPictureUprightAndWholeOnItsScreen) {
    const Surface& screen = partNamed("screen").surface;
    double left = -1e9, right = 1e9, bottom = 1e9, top = -1e9;
    for (const Vertex& vertex : screen.vertices) {
        EXPECT_EQ(vertex.at.z, -halfDepthMm);
        EXPECT_EQ(vertex.normal, (Vec3{0, 0, -1}));
        left = std::max(left, vertex.at.x);   // who looks along +z sees +x to the left
        right = std::min(right, vertex.at.x);
        bottom = std::min(bottom, vertex.at.y);
        top = std::max(top, vertex.at.y);
    }
    EXPECT_NEAR((left - right) / (top - bottom), screenAspect, 1e-9);
    EXPECT_GT((top - bottom) / heightMm, 0.96);
    for (const Vertex& vertex : screen.vertices) {
        EXPECT_NEAR(vertex.picture.x, (left - vertex.at.x) / (left - right), 1e-12);
        EXPECT_NEAR(vertex.picture.y, (top - vertex.at.y) / (top - bottom), 1e-12);
    }
    // Rounded: nothing of it lies near the corner of its box.
    for (const Vertex& vertex : screen.vertices)
        EXPECT_GT(std::hypot(vertex.at.x - left, vertex.at.y - top), 3);
}

TEST(PhoneModel, HasTheFlawsThatTheStudioMends) {
    const Part& bezel = partNamed("bezel_black2");
    int stray = 0, rear = 0, front = 0;
    for (const Triangle& triangle : bezel.surface.triangles) {
        const Corners corners = cornersOf(bezel.surface, triangle);
        const double z = (corners[0].at.z + corners[1].at.z + corners[2].at.z) / 3;
        (isStray(bezel, corners) ? stray : z > 3 ? rear : front)++;
        EXPECT_TRUE(z > 3 || z < -3) << "neither front nor rear";
    }
    EXPECT_GT(stray, 0);
    EXPECT_GT(rear, 100);
    EXPECT_GT(front, 100);
}

// Screen and bezel are drawn over the body: nothing may stand before them, and from behind they show nothing.
TEST(PhoneModel, HidesNothingOfItsScreenAndShowsNothingOfItFromBehind) {
    for (const Part& part : phone().parts()) {
        if (!isSeen(part)) continue;
        const bool isDrawnOver =
            part.name == "screen" || part.name == "bezel_black2" || part.name.ends_with("_2112");
        for (const Triangle& triangle : part.surface.triangles) {
            const Corners corners = cornersOf(part.surface, triangle);
            if (isStray(part, corners)) continue;
            for (const Vertex& vertex : corners) {
                EXPECT_GE(vertex.at.z, -halfDepthMm) << part.name;
                if (isDrawnOver && vertex.at.z < 3) {
                    EXPECT_EQ(vertex.normal, (Vec3{0, 0, -1})) << part.name;
                }
            }
        }
    }
}

std::uint32_t wordAt(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    return bytes[at] | std::uint32_t(bytes[at + 1]) << 8 | std::uint32_t(bytes[at + 2]) << 16 |
           std::uint32_t(bytes[at + 3]) << 24;
}

TEST(PhoneModel, IsWrittenWithTrueLengths) {
    const auto bytes = binaryGltf(phone());
    ASSERT_GT(bytes.size(), 28u);
    EXPECT_EQ(wordAt(bytes, 8), bytes.size());
    const std::size_t document = wordAt(bytes, 12);
    EXPECT_EQ(document % 4, 0u);
    ASSERT_LT(20 + document + 8, bytes.size());
    EXPECT_EQ(20 + document + 8 + wordAt(bytes, 20 + document), bytes.size());
    EXPECT_EQ(bytes, binaryGltf(phoneModel()));   // the same model, the same file
}

}   // namespace

}   // namespace tavix::phone
