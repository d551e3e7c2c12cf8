#include "DeviceFrames/Phones.h"

#include "Backgrounds/Oklab.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace tavix::deviceframes {

namespace {

Vector linear(std::uint32_t hexRgb) {
    const auto channel = [&](int shift) {
        return backgrounds::linearFromEncoded(static_cast<float>(hexRgb >> shift & 0xff) / 255);
    };
    return {channel(16), channel(8), channel(0)};
}

// An action key and two for the volume on the left, the side key on the right.
constexpr Key usualKeys[] = {
    {true, 0.2155f, 0.0355f}, {true, 0.2990f, 0.0630f}, {true, 0.3840f, 0.0630f}, {false, 0.3405f, 0.1080f}};
constexpr float flushKeyFraction = 0.652f;

constexpr Rim contouredRim{23, 3.0f, 0.42f};   // rolls gently into the glass
constexpr Rim flatRim{25, 2.4f, 0.55f};        // a flat band with a small radius
constexpr Rim polishedRim{21, 2.6f, 0.30f};    // round all over

struct BuildRow {
    std::string_view model;
    Build build;
};
const std::vector<BuildRow>& builds() {
    static const std::vector<BuildRow> table{
        {"iPhone16", {33, flatRim, 33, usualKeys, flushKeyFraction}},
        {"iPhone16Plus", {33, flatRim, 33, usualKeys, flushKeyFraction}},
        {"iPhone16Pro", {22, contouredRim, 42, usualKeys, flushKeyFraction}},
        {"iPhone16ProMax", {22, contouredRim, 42, usualKeys, flushKeyFraction}},
        {"iPhone17Pro", {22, flatRim, 42, usualKeys, flushKeyFraction}},
        {"iPhone17ProMax", {22, flatRim, 42, usualKeys, flushKeyFraction}},
        {"iPhoneAir", {24, polishedRim, 60, usualKeys, flushKeyFraction}},
    };
    return table;
}

Metal aluminium(std::uint32_t tint, std::uint32_t band) {
    return {linear(tint), 0.26f, 0.035f, Grain::blasted, linear(band)};
}
Metal titanium(std::uint32_t tint, std::uint32_t band) {
    return {linear(tint), 0.17f, 0.03f, Grain::brushed, linear(band)};
}
Metal polished(std::uint32_t tint, std::uint32_t band) {
    return {linear(tint), 0.05f, 0.06f, Grain::none, linear(band)};
}

struct MetalRow {
    std::string_view picture;   // its end, after the model
    Metal metal;
};
const std::vector<MetalRow>& metals() {
    static const std::vector<MetalRow> table{
        {"16-Black", aluminium(0x4a4d51, 0x2e3033)},
        {"16-Pink", aluminium(0xf2aecb, 0xe79ebd)},
        {"16-Teal", aluminium(0x9cc4bf, 0x86b0ab)},
        {"16-Ultramarine", aluminium(0x92a4ee, 0x7d90de)},
        {"16-White", aluminium(0xeeefee, 0xd9dad9)},
        {"16Plus-Black", aluminium(0x4a4d51, 0x2e3033)},
        {"16Plus-Pink", aluminium(0xf2aecb, 0xe79ebd)},
        {"16Plus-Teal", aluminium(0x9cc4bf, 0x86b0ab)},
        {"16Plus-Ultramarine", aluminium(0x92a4ee, 0x7d90de)},
        {"16Plus-White", aluminium(0xeeefee, 0xd9dad9)},
        {"16Pro-frame", titanium(0x9b9a98, 0x6d6c6a)},
        {"16Pro-DesertTitanium", titanium(0xd0ad8d, 0xa98a6e)},
        {"16Pro-NaturalTitanium", titanium(0xbdb3a6, 0x928a80)},
        {"16Pro-WhiteTitanium", titanium(0xe6e3dd, 0xc4c1bb)},
        {"16ProMax-BlackTitanium", titanium(0x54524f, 0x343331)},
        {"16ProMax-DesertTitanium", titanium(0xd0ad8d, 0xa98a6e)},
        {"16ProMax-NaturalTitanium", titanium(0xbdb3a6, 0x928a80)},
        {"16ProMax-WhiteTitanium", titanium(0xe6e3dd, 0xc4c1bb)},
        {"17Pro-CosmicOrange", aluminium(0xf2792b, 0xdb6b23)},
        {"17Pro-DeepBlue", aluminium(0x3d5075, 0x2d3c5c)},
        {"17Pro-Silver", aluminium(0xdfe1e3, 0xc4c6c9)},
        {"17ProMax-CosmicOrange", aluminium(0xf2792b, 0xdb6b23)},
        {"17ProMax-DeepBlue", aluminium(0x3d5075, 0x2d3c5c)},
        {"17ProMax-Silver", aluminium(0xdfe1e3, 0xc4c6c9)},
        {"Air-CloudWhite", polished(0xf3f1ec, 0xd6d4cf)},
        {"Air-LightGold", polished(0xf0ddb8, 0xd2bd95)},
        {"Air-SkyBlue", polished(0xcde2f4, 0xaac4d9)},
        {"Air-SpaceBlack", polished(0x454548, 0x29292b)},
    };
    return table;
}

Phone made(const BundledDevice& device) {
    const std::string_view name = device.resourceName;
    const auto build = std::ranges::find(builds(), name.substr(0, name.find('-')), &BuildRow::model);
    const auto metal = std::ranges::find_if(
        metals(), [&](const MetalRow& row) { return name == "iPhone" + std::string(row.picture); });
    if (build == builds().end() || metal == metals().end())
        throw std::logic_error("The catalog's " + device.resourceName + " has no build or no metal.");
    return {&device, build->build, metal->metal};
}

}   // namespace

const std::vector<Phone>& phones() {
    static const std::vector<Phone> all = [] {
        std::vector<Phone> list;
        for (const BundledDevice& device : DeviceCatalog::all()) list.push_back(made(device));
        return list;
    }();
    return all;
}

const Phone* phoneNamed(const std::string& resourceName) {
    const auto found = std::ranges::find_if(
        phones(), [&](const Phone& p) { return p.device->resourceName == resourceName; });
    return found == phones().end() ? nullptr : &*found;
}

}   // namespace tavix::deviceframes
