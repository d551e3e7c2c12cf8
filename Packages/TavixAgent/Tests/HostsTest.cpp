// Other people's files with our entry in them: everything else stays, and goes back to what it was.
#include "TavixAgent/Hosts/Installation.h"
#include "TavixAgent/Hosts/ServerEntry.h"
#include "TavixAgent/Hosts/Skill.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Support/FileBytes.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* jsonFiles[] = {
    "",
    "{}",
    "{\n  // my servers\n  \"mcpServers\": {\n    \"other\": {\"command\": \"x\", \"args\": []}, // keep\n  },\n}\n",
    "{\"theme\":\"dark\",\"mcpServers\":{}}",
    "{\r\n\t\"servers\" : {\r\n\t\t\"a\" : { \"url\" : \"http://x\" }\r\n\t},\r\n\t\"mcp\": { }\r\n}\r\n",
};
constexpr const char* tomlFiles[] = {
    "",
    "model = \"x\"\n",
    "# mine\nmodel = \"x\"\n\n[mcp_servers.other]\ncommand = \"y\" # keep\nargs = [\n  \"[mcp_servers.tavix]\",\n]\n\n# about the last one\n[profiles.a]\nnote = \"\"\"\n[mcp_servers.tavix]\n\"\"\"\n",
    "[a]\nb = 1",
};

TEST(ServerEntry, IsAddedOnceAndTakenOutWithoutATrace) {
    for (const Host& host : hosts()) {
        const bool isToml = host.form == HostForm::toml;
        for (const char* before :
            isToml ? std::vector<const char*>(std::begin(tomlFiles), std::end(tomlFiles))
                   : std::vector<const char*>(std::begin(jsonFiles), std::end(jsonFiles))) {
            SCOPED_TRACE(std::string(host.id) + ": " + before);
            const std::string with = ServerEntry::withEntry(before, host, "/opt/a \"b\"/tavix");
            EXPECT_EQ(ServerEntry::commandIn(with, host), "/opt/a \"b\"/tavix");
            EXPECT_EQ(ServerEntry::withEntry(with, host, "/opt/a \"b\"/tavix"), with);
            const std::string moved = ServerEntry::withEntry(with, host, "tavix");
            EXPECT_EQ(ServerEntry::commandIn(moved, host), "tavix");
            const std::string without = ServerEntry::withoutEntry(with, host);
            EXPECT_EQ(ServerEntry::commandIn(without, host), std::nullopt);
            EXPECT_EQ(ServerEntry::withoutEntry(without, host), without);
            // Every line that was there is there still.
            for (std::string_view rest = before; !rest.empty();) {
                const std::size_t end = std::min(rest.find('\n'), rest.size());
                const std::string_view line = rest.substr(0, end);
                if (line.size() > 2 && isToml) {
                    EXPECT_THAT(with, HasSubstr(std::string(line)));
                }
                rest.remove_prefix(std::min(end + 1, rest.size()));
            }
            if (isToml && *before) {
                EXPECT_THAT(with, StartsWith(before));
            }
        }
    }
}

TEST(ServerEntry, KeepsCommentsAndOrder) {
    const std::string with = ServerEntry::withEntry(jsonFiles[2], hostNamed("claude"), "tavix");
    EXPECT_EQ(with,
        "{\n  // my servers\n  \"mcpServers\": {\n    \"other\": {\"command\": \"x\", \"args\": []}, // keep\n"
        "    \"tavix\": {\"args\": [\"mcp\", \"serve\"], \"command\": \"tavix\"},\n  },\n}\n");
    const std::string toml = ServerEntry::withEntry(
        "[mcp_servers.tavix]\ncommand = \"old\"   # mine\nstartup_timeout_sec = 20\n\n[z]\n",
        hostNamed("codex"), "tavix");
    EXPECT_EQ(toml,
        "[mcp_servers.tavix]\ncommand = \"tavix\"\nstartup_timeout_sec = 20\nargs = [\"mcp\", \"serve\"]\n\n[z]\n");
}

TEST(ServerEntry, RefusesWhatItWouldBreak) {
    EXPECT_THROW(ServerEntry::withEntry("[1]", hostNamed("claude"), "tavix"), Failure);
    EXPECT_THROW(ServerEntry::withEntry("{\"mcpServers\": 7}", hostNamed("claude"), "tavix"), Failure);
    EXPECT_THROW(ServerEntry::withEntry("{\"mcpServers\": {", hostNamed("claude"), "tavix"), Failure);
    EXPECT_THROW(
        ServerEntry::withEntry("mcp_servers = { tavix = { command = \"x\" } }\n", hostNamed("codex"), "t"),
        Failure);
    EXPECT_THROW(
        ServerEntry::withEntry("[mcp_servers]\ntavix.command = \"x\"\n", hostNamed("codex"), "t"), Failure);
}

class Installing : public ::testing::Test {
protected:
    InstallRequest request(const char* host, bool inProject = false) const {
        InstallRequest wanted{.host = hostNamed(host), .folders = folders_};
        if (inProject) wanted.project = folder_.path() / "project";
        return wanted;
    }
    std::string text(const fs::path& file) const { return readBytes(folder_.path() / file); }

    testsupport::TemporaryFolder folder_;
    UserFolders folders_{folder_.path() / "home", folder_.path() / "home/.config", ""};
};

TEST_F(Installing, ChangesNothingTheSecondTime) {
    fs::create_directories(folder_.path() / "project");
    for (const Host& host : hosts())
        for (const bool inProject : {false, true}) {
            if (inProject && host.projectFile.empty()) {
                EXPECT_THROW(install(request(host.id.data(), true)), Failure);
                continue;
            }
            SCOPED_TRACE(host.id);
            install(request(host.id.data(), inProject));
            EXPECT_TRUE(install(request(host.id.data(), inProject)).written.empty());
        }
    for (const HostStatus& status : hostStatus(folders_, std::nullopt)) {
        EXPECT_EQ(status.command, "tavix") << status.host->id;
        EXPECT_TRUE(status.isFound) << status.host->id;   // its files are there by now
    }
    EXPECT_EQ(parseJson(text("home/.claude.json"), JsonDialect::withComments)
                  .find("mcpServers")
                  ->find("tavix")
                  ->find("command")
                  ->stringValue(),
        "tavix");
    for (const char* skill : {"home/.claude/skills/tavix/SKILL.md", "home/.cursor/skills/tavix/SKILL.md",
             "home/Documents/Cline/Rules/tavix.md"})
        EXPECT_THAT(text(skill), StartsWith("---\nname: tavix\n"));
    EXPECT_THAT(text("project/.cursor/rules/tavix.mdc"), StartsWith("---\ndescription: "));
}

TEST_F(Installing, KeepsAFileBeforeTheFirstChange) {
    const fs::path file = folder_.path() / "home/.claude.json";
    fs::create_directories(file.parent_path());
    const std::string before = "{\"numStartups\": 3}";
    writeBytesAtomically(before, file);
    install(request("claude"));
    InstallRequest other = request("claude");
    other.command = "/elsewhere/tavix";
    install(other);
    EXPECT_EQ(text("home/.claude.json.before-tavix"), before);
    uninstall(request("claude"));
    EXPECT_EQ(
        parseJson(text("home/.claude.json"), JsonDialect::withComments).find("numStartups")->integerValue(),
        3);
    EXPECT_FALSE(fs::exists(folder_.path() / "home/.claude/skills/tavix/SKILL.md"));
    writeBytesAtomically("{", file);
    try {
        install(request("claude"));
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.message(), HasSubstr(file.string()));
    }
    EXPECT_EQ(text("home/.claude.json"), "{");
}

TEST(Skill, IsASectionThatIsReplacedWhole) {
    for (const char* before : {"", "# Mine\n", "# Mine\n\nno line feed",
             "a\n\n<!-- tavix: begin -->\nwhat was\n<!-- tavix: end -->\nb\n"}) {
        const std::string with = Skill::withSection(before);
        EXPECT_EQ(Skill::withSection(with), with);
        EXPECT_EQ(with.find("what was"), std::string::npos);
        EXPECT_THAT(with, HasSubstr("describe"));
    }
    EXPECT_EQ(Skill::withoutSection(Skill::withSection("# Mine\n")), "# Mine\n");
    EXPECT_LT(Skill::file().size(), 3000u);   // an agent reads it whole
}

}   // namespace
}   // namespace tavix
