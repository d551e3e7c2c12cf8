// Notes when the system refuses memory or a thread, whoever asked: some libraries go on without and leave
// something out of the picture, so nothing that was made after that can be trusted.
//
// One for the whole program, since what it has of the system is; any thread may ask.
#pragma once

#include <string>
#include <string_view>

namespace tavix::engine::SystemWatch {

bool hasRefused() noexcept;

// "There is not enough memory …": what was refused, for what, and what to do.
std::string sentence();
// The same at the end of what can be done, without memory of its own.
void writeSentence(int descriptor) noexcept;

// Throws `Failure` with the sentence when something was refused.
void require();

// What the program is at, for the sentence: "to draw the frame at 1.20 s". Ends with the scope, unless an
// exception ends it; then it is what could not be done. Used by the main thread.
class Task {
public:
    explicit Task(std::string_view what) noexcept;
    ~Task();
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;

    void is(std::string_view what) noexcept;

private:
    char before_[96];
    int exceptions_;
};

}   // namespace tavix::engine::SystemWatch
