#include "Engine/Console/ProgressLines.h"

#include "Engine/System/Errors.h"
#include "TavixCore/Paths/JsonTextStyle.h"

#include <cstdio>
#include <utility>

namespace tavix::engine {

void ProgressLines::stage(std::string name) {
    stage_ = std::move(name);
    told_ = -1;
    progress(0);
}

void ProgressLines::progress(double fraction) {
    constexpr double step = 0.01;
    if (!isOn_ || !(fraction >= told_ + step)) return;
    told_ = fraction;
    write({{"event", "progress"}, {"stage", stage_}, {"fraction", fraction}});
}

void ProgressLines::done(JsonObject result) {
    result.set("event", "done");
    write(std::move(result));
}

void ProgressLines::failed(const std::exception& error) {
    write({{"event", "failed"}, {"stage", stage_}, {"message", sentenceOf(error)}});
}

void ProgressLines::write(JsonObject line) {
    if (!isOn_) return;
    const std::string text = styledJson(std::move(line), {}, "", 0) + "\n";
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

}   // namespace tavix::engine
