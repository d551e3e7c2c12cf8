#include "Engine/Tests/Command.h"

#include "TavixCore/Support/FileBytes.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavix::engine::testing {

namespace {

std::filesystem::path freshFile() {
    std::string name = (std::filesystem::temp_directory_path() / "tavix-said-XXXXXX").string();
    const int descriptor = ::mkstemp(name.data());
    if (descriptor < 0) throw std::runtime_error("cannot make a temporary file");
    ::close(descriptor);
    return name;
}

void redirect(const std::filesystem::path& file, int descriptor) {
    ::dup2(::open(file.c_str(), O_WRONLY | O_TRUNC), descriptor);
}

}   // namespace

Command::Command(const std::filesystem::path& folder, const std::vector<std::string>& words)
    : out_(freshFile()), err_(freshFile()) {
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    process_ = ::fork();
    if (process_ != 0) return;
    redirect(out_, STDOUT_FILENO);
    redirect(err_, STDERR_FILENO);
    if (::chdir(folder.c_str()) == 0) ::execvp(arguments.front(), arguments.data());
    ::_exit(127);
}

Command::~Command() {
    if (process_ > 0) {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    std::filesystem::remove(out_);
    std::filesystem::remove(err_);
}

void Command::send(int signal) const { ::kill(process_, signal); }

Outcome Command::wait() {
    int status = 0;
    rusage used{};
    ::wait4(process_, &status, 0, &used);
    process_ = -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), readBytes(out_),
        readBytes(err_), used.ru_maxrss};
}

Outcome runIn(const std::filesystem::path& folder, const std::vector<std::string>& words) {
    return Command(folder, words).wait();
}

Outcome tavixIn(const std::filesystem::path& folder, std::vector<std::string> words) {
    words.insert(words.begin(), tavixProgram());
    return runIn(folder, words);
}

std::string tavixProgram() { return TAVIX_PROGRAM; }

}   // namespace tavix::engine::testing
