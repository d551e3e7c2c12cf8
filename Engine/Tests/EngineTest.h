// What the tests of the command share: a folder with small documents in it.
#pragma once

#include "Engine/Tests/Command.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/JsonParser.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace tavix::engine::testing {

// Ten frames of 64 × 96: a disc that grows on a gradient.
inline constexpr const char* tinyDocument = R"({
  "output": {"widthPx": 64, "heightPx": 96, "fps": 10},
  "background": {"kind": "gradient", "gradient": {"angleDegrees": 30, "stops": [
    {"location": 0, "color": {"r": 0.1, "g": 0.2, "b": 0.5, "a": 1}},
    {"location": 1, "color": {"r": 0.8, "g": 0.3, "b": 0.4, "a": 1}}]}},
  "scenes": [{"id": "only", "durationSec": 1, "layers": [
    {"kind": "shape", "position": {"x": 32, "y": 48}, "shape": {"shape": "ellipse"}, "tracks": [
      {"property": "scale", "keyframes": [{"t": 0, "value": 0.5}, {"t": 1, "value": 1.5}]}]}]}]})";

class EngineTest : public ::testing::Test {
protected:
    EngineTest() {
        write("tiny.json", tinyDocument);
        ::setenv("XDG_CACHE_HOME", cache_.path().c_str(), 1);   // of the commands that are run
    }

    void write(const std::string& name, const std::string& content) {
        std::filesystem::create_directories(at(name).parent_path());
        writeBytesAtomically(content, at(name));
    }
    std::filesystem::path at(const std::string& name) const { return folder_.path() / name; }
    // Films of tests are smaller than lint lets pass, so that they are quick.
    Outcome tavix(std::vector<std::string> words) const {
        if (!words.empty() && words.front() == "render") words.insert(words.begin() + 1, "--no-lint");
        return tavixIn(folder_.path(), words);
    }
    Json json(const std::vector<std::string>& words) const {
        const Outcome outcome = tavix(words);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return parseJson(outcome.out);
    }
    // Of a finding that a verb gives.
    static std::string messageOf(const Json& finding) {
        return finding.find("message")->stringValue().value();
    }
    // The names of everything in the folder, hidden files too.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            found.push_back(entry.path().filename().string());
        return found;
    }
    const std::filesystem::path& folder() const { return folder_.path(); }
    std::filesystem::path cache() const { return cache_.path() / "tavix"; }

private:
    testsupport::TemporaryFolder folder_, cache_;
};

}   // namespace tavix::engine::testing
