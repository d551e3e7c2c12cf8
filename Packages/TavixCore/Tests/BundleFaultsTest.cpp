// A save or a pack that fails, or is cut off, at every single thing that it does to the disk.
#include "TavixCore/Project/BundleReplacement.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Project/FileOperations.h"
#include "TavixCore/Support/Document.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>

namespace tavix {
namespace {

namespace fs = std::filesystem;

struct Killed {};

enum class Fault {
    fails,        // the operation does nothing and says so; those after it work
    isCutOff,     // the program ends before it
    isCutInHalf   // the program ends in the middle of it
};

class FaultyOperations : public FileOperations {
public:
    FaultyOperations(Fault fault, int at) : fault_(fault), left_(at) {}

    bool hasHappened() const { return left_ <= 0; }

    void write(std::string_view bytes, const Path& file) override {
        step(
            [&] { disk_.write(bytes, file); }, [&] { disk_.write(bytes.substr(0, bytes.size() / 2), file); });
    }
    void copy(const Path& source, const Path& file) override {
        step([&] { disk_.copy(source, file); }, [&] { disk_.write(readBytes(source).substr(1), file); });
    }
    void rename(const Path& from, const Path& to) override {
        step([&] { disk_.rename(from, to); });
    }
    // A program's end takes nothing back that it has written, so the test need not wait for the disk.
    void sync(const Path&) override {
        step([] {});
    }
    void makeFolder(const Path& folder) override {
        step([&] { disk_.makeFolder(folder); });
    }
    void remove(const Path& path) override {
        step([&] { disk_.remove(path); },
            [&] {
                if (fs::is_directory(path) && !fs::is_empty(path))
                    fs::remove_all(*fs::directory_iterator(path));
            });
    }

private:
    void step(
        const std::function<void()>& whole, const std::function<void()>& half = [] {}) {
        --left_;
        if (left_ > 0 || (left_ < 0 && fault_ == Fault::fails)) return whole();
        if (fault_ == Fault::fails) throw Failure("The disk is broken.");
        if (left_ == 0 && fault_ == Fault::isCutInHalf) half();
        throw Killed();
    }

    DiskOperations disk_;
    Fault fault_;
    int left_;
};

class SoundOperations : public FaultyOperations {
public:
    SoundOperations() : FaultyOperations(Fault::fails, 0) {}
};

class BundleFaults : public testing::TestWithParam<Fault> {
protected:
    using Work = std::function<void(FileOperations&)>;

    // Two documents whose packed files have the same names, and different bytes.
    static CompositionSpec document(const std::string& from) {
        CompositionSpec spec;
        spec.seed = from == "old" ? 1 : 2;
        spec.scenes = {{.durationSec = 1}};
        for (const char* name : {"/a.png", "/b/a.png", "/rec.mov"}) {
            const std::string path = from + name;
            spec.scenes[0].layers.push_back({.content = ImageContent{.path = path}});
        }
        spec.scenes[0].layers[2].content = DeviceContent{.screen = VideoClip{.path = from + "/rec.mov"}};
        return spec;
    }
    fs::path root() const { return folder_->path(); }
    fs::path bundle() const { return root() / "film.tavixcomp"; }

    void reset() {
        folder_ = std::make_unique<testsupport::TemporaryFolder>();
        for (const std::string from : {"old", "new"}) {
            fs::create_directories(root() / from / "b");
            for (const char* name : {"a.png", "b/a.png", "rec.mov", "rec.timeline.json"})
                std::ofstream(root() / from / name) << from << " " << name;
        }
        packSoundly("old");
    }
    void packSoundly(const std::string& from) const {
        SoundOperations files;
        CompositionProjectBundle::write(document(from), root(), bundle(), files);
    }
    // What a reader finds: the old or the new document, and the files that belong to it.
    std::string opened() const {
        const CompositionSpec spec = CompositionProjectService::load(bundle()).spec;
        const std::string from = spec.seed == 1 ? "old" : "new";
        const char* files[][2] = {{"assets/a.png", " a.png"}, {"assets/a-2.png", " b/a.png"},
            {"assets/rec.mov", " rec.mov"}, {"assets/rec.timeline.json", " rec.timeline.json"}};
        for (const auto& [name, bytes] : files) EXPECT_EQ(readBytes(bundle() / name), from + bytes);
        EXPECT_EQ(spec.scenes[0].layers.size(), 3u);
        return from;
    }
    // Every operation in turn, until one run goes through untouched.
    void tryAll(const Work& work, const std::function<void(bool isDone)>& check) {
        for (int n = 1;; ++n) {
            SCOPED_TRACE("operation " + std::to_string(n));
            reset();
            FaultyOperations files(GetParam(), n);
            bool isDone = false;
            try {
                work(files);
                isDone = true;
            } catch (const Killed&) {
            } catch (const Failure& failure) {
                EXPECT_EQ(failure.message(), "The disk is broken.");
            }
            check(isDone);
            for (const char* source : {"old/a.png", "new/rec.mov", "new/rec.timeline.json"})
                EXPECT_TRUE(fs::exists(root() / source)) << source;
            if (HasFailure() || !files.hasHappened()) break;
        }
    }
    Work packNew() const {
        return [this](FileOperations& files) {
            CompositionProjectBundle::write(document("new"), root(), bundle(), files);
        };
    }

private:
    std::unique_ptr<testsupport::TemporaryFolder> folder_;
};

TEST_P(BundleFaults, APackIsWholeOrHasNotHappened) {
    tryAll(packNew(), [&](bool isDone) {
        const std::string found = opened();
        EXPECT_EQ(opened(), found);
        const bool mayBeOld = !isDone, mayBeNew = isDone || GetParam() != Fault::fails;
        EXPECT_TRUE(found == "old" ? mayBeOld : mayBeNew);
        packSoundly("new");
        EXPECT_EQ(opened(), "new");
        EXPECT_EQ(std::distance(fs::directory_iterator(bundle()), {}), 2) << "nothing is left over";
    });
}

TEST_P(BundleFaults, SoIsASave) {
    CompositionSpec saved;
    const auto save = [&](FileOperations& files) { CompositionProjectBundle::save(saved, bundle(), files); };
    reset();
    saved = CompositionProjectBundle::read(bundle());
    const CompositionSpec old = saved;
    saved.output.fps = 25;
    tryAll(save, [&](bool isDone) {
        opened();
        const CompositionSpec found = CompositionProjectBundle::read(bundle());
        EXPECT_TRUE(found == saved || (!isDone && found == old));
        SoundOperations files;
        CompositionProjectBundle::save(old, bundle(), files);
        EXPECT_EQ(std::distance(fs::directory_iterator(bundle()), {}), 2) << "nothing is left over";
    });
}

// The repair of a cut-off pack may itself be cut off.
TEST_P(BundleFaults, RepairsCanBeCutOffToo) {
    const auto packed = [&](Fault fault, int at) {
        FaultyOperations files(fault, at);
        try {
            packNew()(files);
        } catch (const Killed&) {
        } catch (const Failure&) {}
    };
    constexpr int mostOfARepair = 8;
    int countRepairs = 0;
    for (int first = 1; first < 40; ++first)
        for (int second = 1; second <= mostOfARepair; ++second) {
            SCOPED_TRACE("cut off at " + std::to_string(first) + ", then at " + std::to_string(second));
            reset();
            packed(Fault::isCutInHalf, first);
            if (!BundleReplacement::isUnfinished(bundle())) break;
            packed(GetParam(), second);
            opened();
            ++countRepairs;
        }
    EXPECT_GE(countRepairs, 3 * mostOfARepair);
}

INSTANTIATE_TEST_SUITE_P(EveryFault, BundleFaults,
    testing::Values(Fault::fails, Fault::isCutOff, Fault::isCutInHalf), [](const auto& fault) {
        return std::string(fault.param == Fault::fails      ? "fails"
                           : fault.param == Fault::isCutOff ? "isCutOff"
                                                            : "isCutInHalf");
    });

}   // namespace
}   // namespace tavix
