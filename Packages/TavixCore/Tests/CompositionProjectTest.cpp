#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Support/Document.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>

namespace tavix {
namespace {

namespace fs = std::filesystem;

class CompositionProject : public testing::Test {
protected:
    fs::path bundle(const std::string& name, const std::string& document) const {
        const fs::path made = folder_.path() / name;
        fs::create_directory(made);
        if (!document.empty()) writeBytesAtomically(document, made / "composition.json");
        return made;
    }

private:
    testsupport::TemporaryFolder folder_;
};

TEST_F(CompositionProject, LoadsABundle) {
    const fs::path made = bundle("a.tavixcomp", R"({"seed": 3})");
    EXPECT_TRUE(CompositionProjectBundle::isBundle(made));
    EXPECT_TRUE(CompositionProjectBundle::isBundle(made / ""));   // as a shell completes it
    const LoadedCompositionProject loaded = CompositionProjectService::load(made);
    EXPECT_EQ(loaded.bundlePath, made);
    EXPECT_EQ(loaded.spec.seed, 3);
}

TEST_F(CompositionProject, KeepsTheOldDocumentWhenANewOneCannotBeWritten) {
    const fs::path file = CompositionProjectBundle::specFile(bundle("a.tavixcomp", ""));
    const CompositionSpec good{.seed = 4};
    writeFile(good, file);
    const CompositionSpec bad{
        .scenes = {{.durationSec = std::numeric_limits<double>::quiet_NaN()}}, .seed = 5};
    EXPECT_THROW(writeFile(bad, file), Failure);
    EXPECT_EQ(decodeFile<CompositionSpec>(file), good);
}

TEST_F(CompositionProject, SaysWhatIsNoBundle) {
    const fs::path cases[] = {bundle("plain", "{}"), bundle("empty.tavixcomp", ""),
        bundle("loud.TAVIXCOMP", "{}"), bundle("there.tavixcomp", "{}") / ".." / "gone.tavixcomp",
        "x.tavixcomp/"};
    const char* names[] = {"plain", "empty.tavixcomp", "loud.TAVIXCOMP", "gone.tavixcomp", "x.tavixcomp"};
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        SCOPED_TRACE(cases[i]);
        EXPECT_FALSE(CompositionProjectBundle::isBundle(cases[i]));
        try {
            CompositionProjectService::load(cases[i]);
            ADD_FAILURE() << "nothing failed";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.message(),
                "\"" + std::string(names[i]) + "\" is not a .tavixcomp bundle with a composition.json.");
        }
    }
}

TEST_F(CompositionProject, PassesOnWhatReadingThrows) {
    EXPECT_THROW(CompositionProjectService::load(bundle("bad.tavixcomp", "{")), DecodingError);
    const fs::path folderAsDocument = bundle("odd.tavixcomp", "");
    fs::create_directory(folderAsDocument / "composition.json");
    EXPECT_THROW(CompositionProjectService::load(folderAsDocument), Failure);
}

}   // namespace
}   // namespace tavix
