#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Support/Document.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <unistd.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

CompositionLayer layerOf(LayerContent content) { return {.content = std::move(content)}; }
CompositionLayer picture(const std::string& path) { return layerOf(ImageContent{.path = path}); }
CompositionLayer recording(const std::string& path) {
    return layerOf(DeviceContent{.screen = VideoClip{.path = path}});
}
CompositionSpec specOf(std::vector<CompositionLayer> layers) {
    return {.scenes = {{.durationSec = 1, .layers = std::move(layers)}}};
}
const std::string& picturePath(const CompositionSpec& spec, std::size_t layer) {
    return std::get<ImageContent>(spec.scenes[0].layers[layer].content).path;
}

class BundlePack : public testing::Test {
protected:
    fs::path at(const std::string& name) const { return folder_.path() / name; }
    // Every file holds its own name, so that a copy tells where it came from.
    void make(const std::vector<std::string>& names) const {
        for (const std::string& name : names) {
            fs::create_directories(at(name).parent_path());
            writeBytesAtomically(name, at(name));
        }
    }
    CompositionSpec pack(const CompositionSpec& spec, const std::string& name = "out.tavixcomp") const {
        const fs::path bundle = CompositionProjectBundle::write(spec, folder_.path(), at(name));
        return CompositionProjectService::load(bundle).spec;
    }
    std::vector<std::string> namesIn(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(at(folder)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string packed(const std::string& name) const {
        return readBytes(at("out.tavixcomp/assets/" + name));
    }
    std::string failureOf(const std::function<void()>& work) const {
        try {
            work();
        } catch (const Failure& failure) {
            return failure.message();
        }
        return "nothing failed";
    }

private:
    testsupport::TemporaryFolder folder_;
};

TEST_F(BundlePack, NamesFilesInTheOrderOfTheDocument) {
    for (const char* place : {"font", "back", "scene", "layers", "fill", "still", "frame", "music", "cue"})
        make({std::string(place) + "/a"});
    CompositionSpec spec = specOf({picture("layers/a"), layerOf(BackgroundFill(BackgroundImage{"fill/a"})),
        layerOf(DeviceContent{.mockup = {.framePath = "frame/a"}, .screen = StillScreen{"still/a"}})});
    spec.fonts = {{"title", "font/a"}, {"body", "Helvetica Neue"}};
    spec.background = BackgroundImage{"back/a"};
    spec.scenes[0].background = BackgroundImage{"scene/a"};
    spec.audio = CompositionAudio{MusicBed{.path = "music/a"}, {{.sound = "cue/a"}, {.sound = "ding"}}};
    spec.assetRoot = "/nowhere";
    const CompositionSpec out = pack(spec);
    const char* order[] = {"font", "back", "scene", "layers", "fill", "still", "frame", "music", "cue"};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(packed(i == 0 ? "a" : "a-" + std::to_string(i + 1)), std::string(order[i]) + "/a");
    EXPECT_EQ(out.fonts.at("title"), "assets/a");
    EXPECT_EQ(out.fonts.at("body"), "Helvetica Neue");
    EXPECT_EQ(out.audio->music->path, "assets/a-8");
    EXPECT_EQ(out.audio->cues[1].sound, "ding");
    EXPECT_EQ(out.assetRoot, std::nullopt);
    EXPECT_THAT(namesIn("out.tavixcomp"), ElementsAre("assets", "composition.json"));
}

TEST_F(BundlePack, CopiesAFileOnceHoweverItIsWritten) {
    make({"x/a.png", "y/a.png"});
    const CompositionSpec out = pack(
        specOf({picture("x/a.png"), picture(at("x/a.png")), picture("y/../x/./a.png"), picture("y/a.png")}));
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(picturePath(out, i), "assets/a.png");
    EXPECT_EQ(picturePath(out, 3), "assets/a-2.png");
    EXPECT_THAT(namesIn("out.tavixcomp/assets"), ElementsAre("a-2.png", "a.png"));
}

TEST_F(BundlePack, APackedBundlePacksToItself) {
    make({"x/a.png", "y/a.png", "rec.mov", "rec.timeline.json"});
    const CompositionSpec once = pack(specOf({picture("x/a.png"), picture("y/a.png"), recording("rec.mov")}));
    const fs::path bundle = at("out.tavixcomp");
    const std::vector<std::string> names = namesIn("out.tavixcomp/assets");
    CompositionProjectBundle::write(once, bundle, bundle);
    EXPECT_EQ(CompositionProjectBundle::read(bundle), once);
    EXPECT_EQ(namesIn("out.tavixcomp/assets"), names);
    EXPECT_EQ(packed("a-2.png"), "y/a.png");
}

TEST_F(BundlePack, KeepsTheMarksBesideARenamedClip) {
    make({"x/rec.mov", "rec.mov", "rec.timeline.json", "bare.mov"});
    pack(specOf({layerOf(VideoContent{.clip = {.path = "x/rec.mov"}}), recording("rec.mov"),
        recording("rec.mov"), recording("bare.mov"), recording("")}));
    EXPECT_THAT(namesIn("out.tavixcomp/assets"),
        ElementsAre("bare.mov", "rec-2.mov", "rec-2.timeline.json", "rec.mov"));
    EXPECT_EQ(packed("rec-2.timeline.json"), "rec.timeline.json");
}

TEST_F(BundlePack, LeavesFontsThatAreNoFilesAlone) {
    make({"inter.ttf"});
    const char* cases[][2] = {{"Helvetica Neue", "Helvetica Neue"}, {"gone/x.ttf", "gone/x.ttf"},
        {"inter.ttf", "inter.ttf"}, {"./inter.ttf", "assets/inter.ttf"}};
    for (const auto& [font, becomes] : cases) {
        const CompositionSpec out = pack(specOf({layerOf(TextContent{.font = font})}));
        EXPECT_EQ(std::get<TextContent>(out.scenes[0].layers[0].content).font, becomes);
    }
}

TEST_F(BundlePack, CompletesTheNameOfTheBundle) {
    for (const char* name : {"film", "film.tavixcomp", "film.tavixcomp/", "deep/../film"})
        EXPECT_EQ(CompositionProjectBundle::write({}, std::nullopt, at(name)), at("film.tavixcomp")) << name;
}

TEST_F(BundlePack, AMissingFileChangesNothing) {
    make({"a.png", "b.png"});
    const CompositionSpec before = pack(specOf({picture("a.png")}));
    for (const char* missing : {"gone.png", ".", "a.png/"}) {
        const std::string message = failureOf([&] { pack(specOf({picture("b.png"), picture(missing)})); });
        EXPECT_THAT(message, HasSubstr("Missing asset \"" + std::string(missing) + "\" (resolved to "));
        EXPECT_EQ(CompositionProjectBundle::read(at("out.tavixcomp")), before);
        EXPECT_EQ(packed("a.png"), "a.png");
        EXPECT_THAT(namesIn("out.tavixcomp"), ElementsAre(".assets-staging", "assets", "composition.json"));
    }
    EXPECT_EQ(pack(specOf({picture("a.png")})), before);
    EXPECT_THAT(namesIn("out.tavixcomp"), ElementsAre("assets", "composition.json"));
}

TEST_F(BundlePack, FollowsLinksAndPacksTheFilesThemselves) {
    make({"in/real.png", "shared/logo.png", "shared/sub/deep.png", "in/clip.mov", "shared/marks.json"});
    fs::create_symlink("real.png", at("in/link.png"));
    fs::create_symlink(at("shared/logo.png"), at("in/out.png"));
    fs::create_directory_symlink(at("shared"), at("in/folder"));
    fs::create_symlink(at("shared/marks.json"), at("in/clip.timeline.json"));
    fs::create_symlink(at("nowhere.png"), at("in/broken.png"));
    CompositionProjectBundle::write(specOf({picture("link.png"), picture("out.png"),
                                        picture("folder/sub/deep.png"), recording("clip.mov")}),
        at("in"), at("out"));
    const struct {
        const char *name, *content;
    } files[] = {{"link.png", "in/real.png"}, {"out.png", "shared/logo.png"},
        {"deep.png", "shared/sub/deep.png"}, {"clip.timeline.json", "shared/marks.json"}};
    for (const auto& file : files) {
        EXPECT_EQ(packed(file.name), file.content);
        EXPECT_FALSE(fs::is_symlink(at("out.tavixcomp/assets") / file.name)) << "a bundle goes elsewhere";
    }
    EXPECT_THAT(failureOf([&] {
        CompositionProjectBundle::write(specOf({picture("broken.png")}), at("in"), at("out"));
    }),
        HasSubstr("Missing asset \"broken.png\""));
}

TEST_F(BundlePack, WritesThroughNoLinkInTheBundle) {
    make({"a.png", "kept/theirs.png", "kept/composition.json", "out.tavixcomp/x"});
    fs::create_directory_symlink(at("kept"), at("out.tavixcomp/assets"));
    fs::create_directory_symlink(at("kept"), at("out.tavixcomp/.assets-staging"));
    fs::create_symlink(at("kept/composition.json"), at("out.tavixcomp/composition.json"));
    pack(specOf({picture("a.png")}));
    EXPECT_EQ(readBytes(at("kept/composition.json")), "kept/composition.json");
    EXPECT_THAT(namesIn("kept"), ElementsAre("composition.json", "theirs.png"));
    EXPECT_THAT(namesIn("out.tavixcomp"), ElementsAre("assets", "composition.json", "x"));
}

// The document outside goes on finding what it names in the bundle.
TEST_F(BundlePack, KeepsTheFilesThatTheBundleHasAlready) {
    make({"y/a.png", "out.tavixcomp/assets/a.png", "out.tavixcomp/assets/a-2.png"});
    const CompositionSpec loose = specOf(
        {picture("y/a.png"), picture("out.tavixcomp/assets/a.png"), picture("out.tavixcomp/assets/a-2.png")});
    for (int again = 0; again < 2; ++again) {
        const CompositionSpec out = pack(loose);
        EXPECT_EQ(picturePath(out, 0), "assets/a-3.png");
        EXPECT_EQ(picturePath(out, 1), "assets/a.png");
        EXPECT_EQ(picturePath(out, 2), "assets/a-2.png");
        EXPECT_EQ(packed("a.png"), "out.tavixcomp/assets/a.png");
        EXPECT_EQ(packed("a-2.png"), "out.tavixcomp/assets/a-2.png");
        EXPECT_EQ(packed("a-3.png"), "y/a.png");
    }
}

TEST_F(BundlePack, MovesNoFileOfAnotherDocument) {
    make({"out.tavixcomp/assets/deep/a.png"});
    EXPECT_THAT(failureOf([&] { pack(specOf({picture("out.tavixcomp/assets/deep/a.png")})); }),
        HasSubstr("would move it"));
    EXPECT_EQ(packed("deep/a.png"), "out.tavixcomp/assets/deep/a.png");
}

TEST_F(BundlePack, WaitsForNoOtherWriter) {
    pack({});
    const int other = ::open(at("out.tavixcomp").c_str(), O_RDONLY | O_DIRECTORY);
    ::flock(other, LOCK_EX);
    EXPECT_THAT(failureOf([&] { pack({}); }), HasSubstr("is being written by another program"));
    ::close(other);
    EXPECT_EQ(failureOf([&] { pack({}); }), "nothing failed");
}

TEST_F(BundlePack, SavingTouchesTheDocumentAlone) {
    make({"a.png"});
    pack(specOf({picture("a.png")}));
    const fs::path document = at("out.tavixcomp/composition.json");
    fs::permissions(document, fs::perms::owner_read | fs::perms::owner_write);
    const CompositionSpec loose = specOf({picture("/loose/b.png")});
    CompositionProjectService::save(loose, at("out.tavixcomp"));
    EXPECT_EQ(CompositionProjectBundle::read(at("out.tavixcomp")), loose);
    EXPECT_EQ(fs::status(document).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(packed("a.png"), "a.png");
    EXPECT_THAT(namesIn("out.tavixcomp"), ElementsAre("assets", "composition.json"));
}

}   // namespace
}   // namespace tavix
