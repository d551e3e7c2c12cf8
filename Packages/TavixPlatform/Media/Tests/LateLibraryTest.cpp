#include "TavixPlatform/Media/LateLibrary.h"

#include "TavixPlatform/Media/MediaFault.h"

#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix::media::tests {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr LateLibrary mathematics("libm.so.6", "libc6"), missing("libtavixmissing.so.7", "libtavixmissing7");

template <class Action> std::string faultOf(Action action) {
    try {
        action();
    } catch (const MediaFault& fault) {
        return fault.what();
    }
    return {};
}

TEST(LateLibrary, CallsTheFunctionOfTheLibraryFromManyThreads) {
    static constinit const LateFunction<double(double, double)> power(mathematics, "pow");
    std::vector<double> results(8);
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < results.size(); ++i)
            threads.emplace_back([&results, i] { results[i] = power(2, static_cast<double>(i)); });
    }
    for (std::size_t i = 0; i < results.size(); ++i) EXPECT_EQ(results[i], 1 << i);
}

TEST(LateLibrary, TellsWhatIsMissingAndWhatToInstall) {
    static constinit const LateFunction<void()> nowhere(missing, "anything"),
        unknown(mathematics, "tavix_unknown");
    EXPECT_FALSE(missing.load());
    EXPECT_TRUE(mathematics.load());
    EXPECT_THAT(
        faultOf([] { nowhere(); }), AllOf(HasSubstr("The library libtavixmissing.so.7 cannot be used"),
                                        HasSubstr("package libtavixmissing7")));
    EXPECT_THAT(faultOf([] { unknown(); }), AllOf(HasSubstr("libm.so.6"), HasSubstr("tavix_unknown")));
    EXPECT_THAT(faultOf([] { nowhere(); }), HasSubstr("libtavixmissing7"));   // as clear the second time
}

}   // namespace
}   // namespace tavix::media::tests
