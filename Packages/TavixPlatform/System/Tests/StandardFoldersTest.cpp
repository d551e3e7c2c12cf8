#include "TavixPlatform/System/StandardFolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace tavix::system {
namespace {

class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~Variable() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(StandardFolders, FollowTheVariablesOfTheDesktopWhenTheyAreAbsolute) {
    const Variable home("HOME", "/home/jo");
    const struct {
        const char *told, *config, *state;
    } cases[] = {{nullptr, "/home/jo/.config/tavix", "/home/jo/.local/state/tavix"},
        {"", "/home/jo/.config/tavix", "/home/jo/.local/state/tavix"},
        {"here", "/home/jo/.config/tavix", "/home/jo/.local/state/tavix"},
        {"/else", "/else/tavix", "/else/tavix"}};
    for (const auto& c : cases) {
        const Variable config("XDG_CONFIG_HOME", c.told), state("XDG_STATE_HOME", c.told);
        const StandardFolders folders = StandardFolders::ofUser();
        EXPECT_EQ(folders.config, c.config);
        EXPECT_EQ(folders.state, c.state);
    }
}

}   // namespace
}   // namespace tavix::system
