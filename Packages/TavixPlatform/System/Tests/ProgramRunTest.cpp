#include "TavixPlatform/System/ProgramRun.h"

#include <gtest/gtest.h>

#include <stop_token>
#include <string>
#include <system_error>

namespace tavix::system {

namespace {

ProgramRequest shell(const std::string& script) { return {.program = "sh", .arguments = {"-c", script}}; }

TEST(ProgramRun, CarriesMoreThanAPipeHoldsBothWaysAtOnce) {
    ProgramRequest request = shell("cat; echo told >&2; exit 7");
    for (int i = 0; request.input.size() < 3'000'000; ++i) request.input += std::to_string(i) + "\n";
    std::string seen;
    request.onOutput = [&](std::string_view piece) { seen += piece; };
    const ProgramOutcome outcome = runProgram(request);
    EXPECT_TRUE(outcome.out == request.input);
    EXPECT_TRUE(seen == request.input);
    EXPECT_EQ(outcome.err, "told\n");
    EXPECT_EQ(outcome.status, 7);
}

TEST(ProgramRun, ForgetsWhatIsTooMuchAndStillReadsToTheEnd) {
    ProgramRequest request = shell("head -c 1000000 /dev/zero | tr '\\0' x; echo end >&2");
    request.mostOutputBytes = 1000;
    const ProgramOutcome outcome = runProgram(request);
    EXPECT_EQ(outcome.out, std::string(1000, 'x'));
    EXPECT_EQ(outcome.err, "end\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(ProgramRun, EndsWithItsTimeOrWhenItIsStopped) {
    ProgramRequest request = shell("echo begun; exec sleep 100");
    request.mostSec = 0.2;
    const ProgramOutcome late = runProgram(request);
    EXPECT_TRUE(late.ranOutOfTime);
    EXPECT_EQ(late.out, "begun\n");
    EXPECT_EQ(late.status, 128 + 15);
    std::stop_source source;
    request.mostSec = 100;
    request.onOutput = [&](std::string_view) { source.request_stop(); };
    const ProgramOutcome stopped = runProgram(request, source.get_token());
    EXPECT_TRUE(stopped.wasStopped);
    EXPECT_FALSE(stopped.ranOutOfTime);
    EXPECT_THROW(runProgram({.program = "/nowhere/at/all"}), std::system_error);
}

}   // namespace

}   // namespace tavix::system
