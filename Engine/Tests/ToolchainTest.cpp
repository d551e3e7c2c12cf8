// An application's install with the command itself: what it calls is what the command understands.
#include "Editor/EditorToolchain/CLIInstaller.h"
#include "Engine/Tests/EngineTest.h"
#include "TavixCore/Support/TavixVersion.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace tavix::engine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using Reach = CLIInstaller::Reach;

TEST_F(EngineTest, TheCommandWiresItselfAsAnApplicationAsks) {
    write("tree/bin/tavix", "#!/bin/sh\nexec '" + tavixProgram() + "' \"$@\"\n");
    std::filesystem::permissions(at("tree/bin/tavix"), std::filesystem::perms(0755));
    const std::string packing =
        "tar -C '" + at("tree").string() + "' -czf '" + at("engine.tar.gz").string() + "' bin";
    ASSERT_EQ(std::system(packing.c_str()), 0);
    write("home/.claude.json", "{\n  // mine\n  \"numStartups\": 4\n}\n");
    write("work/.gitignore", "out/\n");
    const CLIInstaller installer({.folders = {at("home"), at("home/.config"), std::getenv("PATH")},
                                     .systemPrefix = at("system"),
                                     .engineArchive = at("engine.tar.gz")},
        UserDefaults(at("defaults")));

    std::vector<std::string> ids;
    for (const DetectedAgent& agent : AgentDetect::all({at("home"), at("home/.config"), ""}))
        ids.push_back(agent.id);
    const InstallOutcome global = installer.installGloballyInto(ids, Reach::user);
    EXPECT_THAT(global.text, Not(HasSubstr("Not wired")));
    EXPECT_TRUE(installer.isGloballySetUp());
    EXPECT_EQ(installer.installedEngineVersion(), TavixVersion::current);
    EXPECT_THAT(readBytes(at("home/.claude.json")), HasSubstr("// mine"));
    EXPECT_EQ(installer.detectedAgentIDs(), ids);   // each has a file of its own by now

    const InstallOutcome project = installer.installIntoProject({"claude", "cline", "windsurf"}, at("work"));
    EXPECT_THAT(project.text, HasSubstr("Not wired: Cline, Windsurf."));   // whose files are for all projects
    EXPECT_THAT(readBytes(at("work/.mcp.json")), HasSubstr(at("work/.tavix/bin/tavix").string()));
    EXPECT_EQ(readBytes(at("work/.gitignore")), "out/\n.tavix/\n");
}

}   // namespace
}   // namespace tavix::engine::testing
