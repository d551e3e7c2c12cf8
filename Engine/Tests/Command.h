// Runs the built command as whoever uses it does: as a process of its own.
#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tavix::engine::testing {

struct Outcome {
    int status = -1;   // of the exit; 128 and more when a signal ended the process
    std::string out, err;
    long peakKib = 0;   // of memory that it had at once
};

// A command that runs in a folder, with its output kept there out of sight.
class Command {
public:
    Command(const std::filesystem::path& folder, const std::vector<std::string>& words);
    ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    void send(int signal) const;
    Outcome wait();

private:
    std::filesystem::path out_, err_;
    pid_t process_ = -1;
};

// `words` without the program's name; those of `tavix`.
Outcome tavixIn(const std::filesystem::path& folder, std::vector<std::string> words);
Outcome runIn(const std::filesystem::path& folder, const std::vector<std::string>& words);
std::string tavixProgram();

}   // namespace tavix::engine::testing
