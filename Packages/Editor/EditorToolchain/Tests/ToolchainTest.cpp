// Installs in folders of their own, with an engine that notes what it is called with.
#include "Editor/EditorToolchain/CLIInstaller.h"
#include "Editor/EditorToolchain/EngineArchive.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/TavixVersion.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Reach = CLIInstaller::Reach;

class Toolchain : public ::testing::Test {
protected:
    Toolchain() {
        fs::create_directories(folder_ / "home/.config");
        fs::create_directories(folder_ / "work/my film");
    }

    // An engine that prints this as its version, and whose `mcp install` fails for Cline, as ours does in a
    // project.
    void embed(const std::string& version, const std::string& resource = "picture") {
        const fs::path tree = folder_ / "tree";
        fs::remove_all(tree);
        fs::create_directories(tree / "bin");
        fs::create_directories(tree / "share/tavix");
        fs::create_directories(tree / "share/man/man1");
        write(tree / "share/tavix" / resource, "bytes");
        write(tree / "share/man/man1/tavix.1", ".TH TAVIX 1\n");
        write(tree / "bin/tavix", "#!/bin/sh\nif [ \"$1\" = --version ]; then echo '" + version +
                                      "'; exit; fi\necho \"$@\" >>\"$HOME/calls\"\n[ \"$4\" != cline ]\n");
        fs::permissions(tree / "bin/tavix", fs::perms(0755));
        const fs::path packed = folder_ / "packed";
        const std::string command = "tar -C '" + tree.string() + "' -czf '" + packed.string() + "' bin share";
        ASSERT_EQ(std::system(command.c_str()), 0);
        fs::rename(packed, archive());   // whose name would trip a shell
    }

    fs::path archive() const { return folder_ / "it's an \"engine\".tar.gz"; }
    CLIInstaller installer(bool isEmbedded = true) const {
        ToolchainPlaces places{.folders = {folder_ / "home", folder_ / "home/.config", searchPath_},
            .systemPrefix = folder_ / "system",
            .engineArchive = {}};
        if (isEmbedded) places.engineArchive = archive();
        return {places, UserDefaults(folder_ / "defaults")};
    }
    fs::path project() const { return folder_ / "work/my film"; }
    static void write(const fs::path& file, const std::string& text) {
        fs::create_directories(file.parent_path());
        writeBytesAtomically(text, file);
    }
    std::vector<std::string> calls() const {
        std::vector<std::string> lines;
        if (!isFile(folder_ / "home/calls")) return lines;
        const std::string text = readBytes(folder_ / "home/calls");
        for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
            lines.push_back(text.substr(at, text.find('\n', at) - at));
        return lines;
    }
    void forgetCalls() const { fs::remove(folder_ / "home/calls"); }
    std::size_t leftovers(const fs::path& prefix) const {
        return std::size_t(std::ranges::count_if(fs::directory_iterator(prefix),
            [](const auto& entry) { return entry.path().filename().string().starts_with(".tavix-"); }));
    }

    testsupport::TemporaryFolder folder_;
    std::string searchPath_ = std::getenv("PATH");
};

TEST_F(Toolchain, DetectsEveryHostByWhatItLeaves) {
    const UserFolders folders{folder_ / "home", folder_ / "home/.config", (folder_ / "bin").string()};
    for (const DetectedAgent& agent : AgentDetect::all(folders)) EXPECT_FALSE(agent.installed) << agent.id;
    const struct {
        const char *place, *id;
    } signs[] = {{"home/.claude.json", "claude"}, {"home/.cursor/x", "cursor"},
        {"home/.config/Code/User/x", "vscode"}, {"home/.codeium/windsurf/x", "windsurf"},
        {"home/.codex/x", "codex"}, {"bin/gemini", "gemini"}, {"home/.config/opencode/x", "opencode"}};
    std::vector<std::string> expected;
    for (const auto& sign : signs) {
        write(folder_ / sign.place, "x");
        fs::permissions(folder_ / sign.place, fs::perms(0755));
        expected.emplace_back(sign.id);
        EXPECT_EQ(AgentDetect::detectedIDs(folders), expected);
    }
    EXPECT_EQ(AgentDetect::all(folders).size(), 8u);
}

TEST_F(Toolchain, InstallsForAUserWithoutRights) {
    embed(std::string(TavixVersion::current));
    const CLIInstaller installer = this->installer();
    EXPECT_FALSE(installer.isInstalled());
    EXPECT_FALSE(installer.installGloballyInto({}, Reach::user).isDone);
    EXPECT_FALSE(installer.isInstalled());

    const InstallOutcome outcome =
        installer.installGloballyInto({"windsurf", "cline", "claude"}, Reach::user);
    EXPECT_TRUE(outcome.isDone);
    EXPECT_EQ(outcome.title, "Tavix installed");
    const fs::path binary = folder_ / "home/.local/bin/tavix";
    EXPECT_THAT(outcome.text, HasSubstr("Run /tavix in any project."));
    EXPECT_THAT(outcome.text, HasSubstr(binary.string()));   // it is not along the search path
    EXPECT_THAT(outcome.text, HasSubstr("Not wired: Cline."));
    const std::string tail = " --global --command " + binary.string();
    EXPECT_THAT(calls(), ElementsAre("mcp install --host windsurf" + tail, "mcp install --host cline" + tail,
                             "mcp install --host claude" + tail));
    EXPECT_EQ(installer.installedPath(), binary);
    EXPECT_EQ(installer.installedReach(), Reach::user);
    EXPECT_EQ(installer.installedEngineVersion(), TavixVersion::current);
    EXPECT_FALSE(installer.engineUpdateAvailable());
    EXPECT_TRUE(installer.firstSetupDone());
    EXPECT_TRUE(isFile(folder_ / "home/.local/share/tavix/picture"));
    EXPECT_TRUE(isFile(folder_ / "home/.local/share/man/man1/tavix.1"));
    EXPECT_EQ(leftovers(folder_ / "home/.local"), 0u);

    searchPath_ += ":" + binary.parent_path().string();
    forgetCalls();
    EXPECT_EQ(this->installer().installGloballyInto({"claude"}, Reach::user).text,
        "Set up for all projects.\nRun /tavix in any project.");
    EXPECT_THAT(calls(), ElementsAre("mcp install --host claude --global --command tavix"));
}

TEST_F(Toolchain, SaysWhenThereIsNothingToInstallOrItFails) {
    EXPECT_EQ(installer(false).installGloballyInto({"claude"}, Reach::user).text,
        "The engine isn’t embedded in this build.");
    EXPECT_EQ(installer(false).installIntoProject({"claude"}, project()).text,
        "The engine isn’t embedded in this build.");
    embed("1");
    installer().installGloballyInto({"claude"}, Reach::user);
    installer().installIntoProject({"claude"}, project());
    forgetCalls();
    write(archive(), "no archive");
    EXPECT_EQ(installer().installGloballyInto({"claude"}, Reach::user).text,
        "CLI install was cancelled or failed.");
    EXPECT_EQ(installer().installIntoProject({"claude"}, project()).text,
        "Couldn’t unpack the engine into the project.");
    EXPECT_THAT(calls(), IsEmpty());
    // What was there before is there still, and whole.
    EXPECT_EQ(installer().installedEngineVersion(), "1");
    EXPECT_EQ(CLIInstaller::engineVersion(CLIInstaller::binaryIn(project())), "1");
    EXPECT_EQ(leftovers(folder_ / "home/.local") + leftovers(project() / ".tavix"), 0u);
}

TEST_F(Toolchain, ReplacesAllThatIsOursAndNothingElse) {
    embed("1", "old");
    const fs::path prefix = folder_ / "prefix";
    write(prefix / "bin/other", "theirs");
    write(prefix / "share/other/file", "theirs");
    ASSERT_TRUE(EngineArchive::unpack(archive(), prefix));
    embed("2", "new");
    ASSERT_TRUE(EngineArchive::unpack(archive(), prefix));
    EXPECT_EQ(CLIInstaller::engineVersion(prefix / "bin/tavix"), "2");
    EXPECT_TRUE(isFile(prefix / "share/tavix/new"));
    EXPECT_FALSE(isFile(prefix / "share/tavix/old"));
    EXPECT_EQ(readBytes(prefix / "bin/other") + readBytes(prefix / "share/other/file"), "theirstheirs");
    EXPECT_EQ(fs::status(prefix / "share/tavix/new").permissions() & fs::perms::others_read,
        fs::perms::others_read);
}

TEST_F(Toolchain, WiresAProjectAndRemembersIt) {
    embed("1");
    const InstallOutcome outcome = installer().installIntoProject({"claude", "cline"}, project());
    EXPECT_EQ(outcome.text, "Installed inside “my film” (.tavix/bin) and wired into Claude Code there.\n\n"
                            "Run /tavix in that project.\n\nNot wired: Cline. tavix mcp install tells why.");
    const std::string binary = CLIInstaller::binaryIn(project()).string();
    EXPECT_EQ(
        calls().front(), "mcp install --host claude --repo " + project().string() + " --command " + binary);
    EXPECT_THAT(installer().registeredProjects(), ElementsAre(project()));
    EXPECT_FALSE(installer().isInstalled());

    const struct {
        const char *before, *after;
    } ignored[] = {{"out/", "out/\n.tavix/\n"}, {"out/\n", "out/\n.tavix/\n"},
        {"# mine\r\n/.tavix/", "# mine\r\n/.tavix/"}, {"", ".tavix/\n"}};
    EXPECT_EQ(readBytes(project() / ".gitignore"), ".tavix/\n");
    for (const auto& each : ignored) {
        write(project() / ".gitignore", each.before);
        installer().installIntoProject({"claude"}, project());
        EXPECT_EQ(readBytes(project() / ".gitignore"), each.after);
    }
    EXPECT_THAT(installer().registeredProjects(), ElementsAre(project()));
}

TEST_F(Toolchain, KeepsARegistryThatNothingCanBreak) {
    const fs::path file = folder_ / "home/.tavix/projects.json";
    for (const char* text : {"", "{", "{\"a\": 1}", "[1]", "[\"/a\", null]"}) {
        write(file, text);
        EXPECT_THAT(installer().registeredProjects(), IsEmpty()) << text;
    }
    installer().writeProjectRegistry({"/b/c", "/a", "/b/c"});
    EXPECT_THAT(installer().registeredProjects(), ElementsAre("/a", "/b/c"));
    fs::remove_all(file.parent_path());
    write(file.parent_path(), "a file where the folder would be");
    installer().writeProjectRegistry({"/a"});
    EXPECT_THAT(installer().registeredProjects(), IsEmpty());
}

TEST_F(Toolchain, ReadsAVersionOnlyWhereThereIsOne) {
    const struct {
        const char* version;
        std::optional<std::string> read;
    } cases[] = {{"0.5.4", "0.5.4"}, {"  1.2-beta ", "1.2-beta"}, {"error: something", {}}, {"", {}}};
    for (const auto& each : cases) {
        embed(each.version);
        installer().installGloballyInto({"claude"}, Reach::user);
        EXPECT_EQ(installer().installedEngineVersion(), each.read) << each.version;
        EXPECT_TRUE(each.read == TavixVersion::current || installer().engineUpdateAvailable());
    }
    EXPECT_EQ(CLIInstaller::engineVersion(folder_ / "none"), std::nullopt);
}

TEST_F(Toolchain, RefreshesAnInstallThatAPersonMade) {
    embed("0.0.1");
    installer().installGloballyInto({"claude"}, Reach::user);
    installer().installIntoProject({"claude"}, project());
    installer().installIntoProject({"claude"}, folder_ / "work");
    fs::remove_all(folder_ / "work/.tavix");
    embed(std::string(TavixVersion::current));
    forgetCalls();

    // No agent is detected, so the project's engine is replaced and none wired; one that is gone is
    // forgotten.
    installer().autoUpdateIfNeeded();
    EXPECT_EQ(CLIInstaller::engineVersion(CLIInstaller::binaryIn(project())), TavixVersion::current);
    EXPECT_THAT(installer().registeredProjects(), ElementsAre(project()));
    // Claude Code has no entry of ours: whoever took it out wants no refresh.
    for (const char* text : {"", "{}", "{\"mcpServers\": 3}", "{\"mcpServers\": {\"other\": {}}}"}) {
        write(folder_ / "home/.claude.json", text);
        EXPECT_FALSE(installer().isGloballySetUp());
        installer().autoUpdateIfNeeded();
        EXPECT_EQ(installer().installedEngineVersion(), "0.0.1");
    }
    EXPECT_THAT(calls(), IsEmpty());

    write(folder_ / "home/.claude.json", "{\"mcpServers\": {\"tavix\": {}}}");
    EXPECT_TRUE(installer().isGloballySetUp());
    installer().autoUpdateIfNeeded();
    EXPECT_EQ(installer().installedEngineVersion(), TavixVersion::current);
    const std::string wiring =
        "mcp install --host claude --global --command " + (folder_ / "home/.local/bin/tavix").string();
    EXPECT_THAT(calls(), ElementsAre(wiring, wiring));   // by the new engine before and after it is in place
    forgetCalls();
    installer().autoUpdateIfNeeded();
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(Toolchain, AsksForRightsToInstallForEveryone) {
    embed("1");
    // In place of the one that asks for a password: one that grants everything, and one that grants nothing.
    const std::string before = std::getenv("PATH");
    for (const bool isGranted : {false, true}) {
        write(folder_ / "asking/pkexec", isGranted ? "#!/bin/sh\nexec \"$@\"\n" : "#!/bin/sh\nexit 126\n");
        fs::permissions(folder_ / "asking/pkexec", fs::perms(0755));
        ::setenv("PATH", ((folder_ / "asking").string() + ":" + before).c_str(), 1);
        const InstallOutcome outcome = installer().installGloballyInto({"claude"}, Reach::everyone);
        ::setenv("PATH", before.c_str(), 1);
        EXPECT_EQ(outcome.isDone, isGranted);
        EXPECT_EQ(installer().isInstalled(), isGranted);
        if (!isGranted) {
            EXPECT_EQ(outcome.text, "CLI install was cancelled or failed.");
            EXPECT_FALSE(installer().firstSetupDone());
        }
    }
    EXPECT_EQ(installer().installedPath(), folder_ / "system/bin/tavix");
    ::setenv("PATH", (folder_ / "asking/none").c_str(), 1);
    const InstallOutcome outcome = installer().installGloballyInto({"claude"}, Reach::everyone);
    ::setenv("PATH", before.c_str(), 1);
    EXPECT_FALSE(outcome.isDone);
    EXPECT_THAT(outcome.text, HasSubstr("pkexec"));
}

}   // namespace
}   // namespace tavix
