// Laws of digests: two structures share one only when they are the same.
#include "TavixPlatform/Imaging/Hash.h"

#include "TavixPlatform/Imaging/Node.h"
#include "TavixPlatform/Imaging/RenderContext.h"
#include "TavixPlatform/Imaging/Tests/Pictures.h"

#include <bit>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace tavix::imaging::tests {
namespace {

using Key = std::pair<std::uint64_t, std::uint64_t>;
Key keyOf(const Digest& digest) { return {digest.low, digest.high}; }

// Fields whose values, and whose very bytes, meet as often as can be.
using Field = std::function<void(Hash&)>;
std::vector<Field> fields() {
    std::vector<Field> all;
    for (const std::uint64_t word : {0u, 1u, 2u, 3u, 7u, unsigned('w'), unsigned('n')}) {
        all.push_back([=](Hash& h) { h.add(word); });
        all.push_back([=](Hash& h) { h.add(std::bit_cast<double>(word)); });
        all.push_back([=](Hash& h) { h.kind(word); });
        all.push_back([=](Hash& h) { h.add(Digest{word, 0}); });
        all.push_back([=](Hash& h) { h.add(PixelRegion{int(word), 0, 0, 0}); });
        all.push_back([=](Hash& h) { h.add(Rect{double(word), 0, 0, 0}); });
        all.push_back([=](Hash& h) { h.add(Affine::translation(double(word), 1)); });
    }
    all.push_back([](Hash& h) { h.add(false); });
    all.push_back([](Hash& h) { h.add(true); });
    return all;
}

TEST(Hash, TellsApartFieldsThatAreSwappedShiftedRepeatedOrOfOtherTypes) {
    const std::vector<Field> all = fields();
    std::map<Key, std::string> known;
    std::size_t sequences = 0;
    const auto note = [&](const std::vector<std::size_t>& order) {
        Hash hash;
        std::string name;
        for (const std::size_t i : order) {
            all[i](hash);
            name += std::to_string(i) + " ";
        }
        const auto [at, isNew] = known.emplace(keyOf(hash.digest()), name);
        ASSERT_TRUE(isNew) << name << "is " << at->second;
        ++sequences;
    };
    note({});
    for (std::size_t a = 0; a < all.size(); ++a) {
        note({a});
        for (std::size_t b = 0; b < all.size(); ++b) {
            note({a, b});
            for (std::size_t c = 0; c < all.size(); c += 5) note({a, b, c});
        }
    }
    std::vector<std::size_t> longer{0, 0, 0};   // over all lengths at which the fields are folded
    for (int i = 0; i < 300; ++i) {
        longer.push_back(0);
        note(longer);
    }
    EXPECT_EQ(known.size(), sequences);
}

TEST(Hash, OfTheSameFieldsIsTheSame) {
    const auto made = [](std::string* record) {
        Hash hash(record);
        for (int i = 0; i < 60; ++i) hash.kind(i).add(double(i) / 7).add(Rect{0, 1, 2, double(i)});
        return hash.digest();
    };
    std::string record;
    EXPECT_EQ(made(nullptr), made(&record));
    EXPECT_EQ(record.size(), 60u * (9 + 9 + 33));
}

// What is halved is known by the bitmap and the number of halvings, and either counts.
TEST(Hash, GivesEveryHalvingOfEveryBitmapAKeyOfItsOwn) {
    std::set<Key> keys;
    for (std::uint64_t id = 0; id < 300; ++id)
        for (int halvings = 0; halvings < 300; ++halvings)
            keys.insert(keyOf(
                ResultCache::Subject{.kind = ResultCache::Kind::halved, .bitmapId = id, .halvings = halvings}
                    .key()));
    EXPECT_EQ(keys.size(), 90000u);
}

void gather(const NodeRef& node, std::vector<NodeRef>& nodes) {
    nodes.push_back(node);
    Structure structure(Structure::Keeping::everything);
    node->describe(structure);
    for (const NodeRef& input : structure.inputs()) gather(input, nodes);
}

TEST(Hash, OfTwoNodesIsTheSameExactlyWhereTheirStructureIs) {
    std::mt19937 random(41);
    std::vector<NodeRef> nodes;
    for (int round = 0; round < 300; ++round) {
        const unsigned seed = unsigned(random() % 200);   // so that some come twice, up to their bitmaps
        std::mt19937 again(seed);
        gather(randomImage(again, round % 4).node(), nodes);
    }
    std::map<Key, NodeRef> known;
    std::map<std::pair<std::string, std::vector<Key>>, Key> byFields;
    for (const NodeRef& node : nodes) {
        const auto [at, isNew] = known.emplace(keyOf(node->hash()), node);
        if (!isNew) {
            EXPECT_TRUE(haveSameStructure(at->second, node));
        }
        Structure structure(Structure::Keeping::everything);
        node->describe(structure);
        std::vector<Key> inputs;
        for (const NodeRef& input : structure.inputs()) inputs.push_back(keyOf(input->hash()));
        const auto found = byFields.emplace(std::pair(structure.fields(), inputs), keyOf(node->hash()));
        EXPECT_EQ(found.first->second, keyOf(node->hash()));
    }
    EXPECT_EQ(byFields.size(), known.size());
    EXPECT_GT(known.size(), 500u);
    EXPECT_LT(known.size(), nodes.size());
}

// The order of inputs and how deep they lie are part of the structure.
TEST(Hash, TellsApartInputsThatChangePlaces) {
    const Image a = Image::bitmap(noiseBitmap({9, 9}, 1)), b = Image::bitmap(noiseBitmap({9, 9}, 2)),
                c = Image::bitmap(noiseBitmap({9, 9}, 3));
    const std::vector<Image> all{a, b, a.over(b), b.over(a), a.over(a), a.adding(b), b.adding(a),
        a.blendedWithMask(b, c), b.blendedWithMask(a, c), a.blendedWithMask(c, b), a.over(b).over(c),
        a.over(b.over(c)), Image::stacked({a, b, c}), Image::stacked({a, b, b, c}), a.gaussianBlurred(2),
        a.gaussianBlurred(3), a.gaussianBlurred(2).gaussianBlurred(2), a.motionBlurred(2, 3),
        a.motionBlurred(3, 2), a.bloomed(2, 3), a.bloomed(3, 2), a.pixellated({2, 3}, 4),
        a.pixellated({3, 2}, 4), a.pixellated({4, 3}, 2)};
    std::set<Key> keys;
    for (const Image& image : all) keys.insert(keyOf(image.hash()));
    EXPECT_EQ(keys.size(), all.size());
}

}   // namespace
}   // namespace tavix::imaging::tests
