#include "TavixPlatform/System/ChildProcess.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace tavix::system {

namespace {

using Direction = ChildPipe::Direction;

ChildSettings shell(const std::string& script, std::vector<ChildPipe> pipes = {}) {
    return {.program = "sh", .arguments = {"-c", script}, .pipes = std::move(pipes), .environment = {}};
}

// Everything up to the end, or what came within ten seconds.
std::string readAll(int descriptor) {
    std::string all;
    for (char bytes[4096];;) {
        pollfd ready{descriptor, POLLIN, 0};
        if (::poll(&ready, 1, 10'000) <= 0) return all + "(and no end)";
        const ssize_t count = ::read(descriptor, bytes, sizeof bytes);
        if (count <= 0) return all;
        all.append(bytes, static_cast<std::size_t>(count));
    }
}

bool lives(pid_t process) { return ::kill(process, 0) == 0 || errno != ESRCH; }

bool diesWithin(pid_t process, int sec) {
    for (int i = 0; i < sec * 100 && lives(process); ++i) {
        ::waitpid(process, nullptr, WNOHANG);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return !lives(process);
}

TEST(ChildProcess, TalksOverTheDescriptorsThatItWasGiven) {
    ChildProcess child(shell("read line <&3; printf '%s!' \"$line\" >&4; printf seen >&2",
        {{3, Direction::toChild}, {4, Direction::fromChild}, {2, Direction::fromChild}}));
    ASSERT_EQ(::write(child.descriptor(3), "hello\n", 6), 6);
    EXPECT_EQ(readAll(child.descriptor(4)), "hello!");
    EXPECT_EQ(readAll(child.descriptor(2)), "seen");
    EXPECT_EQ(child.wait(10), 0);
}

TEST(ChildProcess, CrossedDescriptorsDoNotOverwriteEachOther) {
    // Whatever our ends are numbered, ten pipes in falling order meet some of the numbers asked for.
    std::vector<ChildPipe> pipes;
    std::string script, expected;
    for (int number = 9; number >= 3; --number) {
        pipes.push_back({number, Direction::fromChild});
        script += "printf " + std::to_string(number) + " >&" + std::to_string(number) + ";";
    }
    ChildProcess child(shell(script, pipes));
    for (int number = 3; number <= 9; ++number)
        EXPECT_EQ(readAll(child.descriptor(number)), std::to_string(number));
}

TEST(ChildProcess, ArgumentsAreWordsAndNotAShellsLine) {
    ChildProcess child({.program = "printf",
        .arguments = {"%s|", "a b", "$(id)", "; exit 3", ""},
        .pipes = {{1, Direction::fromChild}},
        .environment = {}});
    EXPECT_EQ(readAll(child.descriptor(1)), "a b|$(id)|; exit 3||");
}

TEST(ChildProcess, SeesNoDescriptorOfOursAndNoSignalThatWeIgnore) {
    const int secret = ::open("/etc/passwd", O_RDONLY | O_CLOEXEC);
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    ChildProcess child(shell("ls /proc/self/fd | sort -n | tr '\\n' ' '; grep SigIgn /proc/self/status",
        {{1, Direction::fromChild}}));
    const std::string seen = readAll(child.descriptor(1));
    std::signal(SIGPIPE, before);
    ::close(secret);
    EXPECT_TRUE(seen.starts_with("0 1 2 3 ")) << seen;   // 3 is the folder that ls reads
    EXPECT_NE(seen.find("SigIgn:\t0000000000000000"), std::string::npos) << seen;
}

TEST(ChildProcess, HandsTheEnvironmentOnWithWhatWasChanged) {
    ::setenv("TAVIX_TEST_KEPT", "kept", 1);
    ::setenv("TAVIX_TEST_SET", "old", 1);
    ChildSettings settings =
        shell("printf '%s %s' $TAVIX_TEST_KEPT $TAVIX_TEST_SET", {{1, Direction::fromChild}});
    settings.environment = {"TAVIX_TEST_SET=new"};
    ChildProcess child(settings);
    EXPECT_EQ(readAll(child.descriptor(1)), "kept new");
}

TEST(ChildProcess, TellsHowItEnded) {
    ChildProcess plain(shell("exit 7"));
    EXPECT_EQ(plain.wait(10), 7);
    ChildProcess shot(shell("kill -SEGV $$"));
    EXPECT_EQ(shot.wait(10), 128 + SIGSEGV);
}

TEST(ChildProcess, WhatItStartedEndsWithIt) {
    pid_t grandchild = 0;
    {
        ChildProcess child(
            shell("trap '' TERM; sleep 600 & echo $!; wait; wait", {{1, Direction::fromChild}}));
        std::string line;
        for (char byte; line.find('\n') == std::string::npos;)
            if (::read(child.descriptor(1), &byte, 1) == 1) line += byte;
        grandchild = std::stoi(line);
        ASSERT_TRUE(lives(grandchild));
        child.end(0.05);   // it does not listen
        EXPECT_EQ(child.exitStatus(), 128 + SIGKILL);
    }
    EXPECT_TRUE(diesWithin(grandchild, 10));
}

TEST(ChildProcess, DoesNotOutliveUs) {
    int told[2];
    ASSERT_EQ(::pipe(told), 0);
    const pid_t middle = ::fork();
    if (middle == 0) {   // a process like ours, which is killed and cleans nothing up
        ChildProcess child(shell("sleep 600"));
        const pid_t id = child.id();
        [[maybe_unused]] const auto written = ::write(told[1], &id, sizeof id);
        ::kill(::getpid(), SIGKILL);
    }
    pid_t child = 0;
    ASSERT_EQ(::read(told[0], &child, sizeof child), ssize_t{sizeof child});
    ::waitpid(middle, nullptr, 0);
    EXPECT_TRUE(diesWithin(child, 10));
    ::close(told[0]);
    ::close(told[1]);
}

TEST(ChildProcess, SaysWhatCannotBeStarted) {
    for (const char* program : {"no-such-program-of-tavix", "/etc/passwd", "/"}) {
        try {
            ChildProcess child({.program = program, .arguments = {}, .pipes = {}, .environment = {}});
            ADD_FAILURE() << program;
        } catch (const std::system_error& error) {
            EXPECT_NE(std::string(error.what()).find(program), std::string::npos) << error.what();
        }
    }
    EXPECT_FALSE(findProgram("no-such-program-of-tavix"));
    EXPECT_TRUE(findProgram("sh"));
}

}   // namespace

}   // namespace tavix::system
