// Makes the document of a reel from a recording.
#pragma once

#include "Engine/Console/Verb.h"
#include "Engine/Reel/BrandArguments.h"
#include "TavixReel/Cards/TypographyDirectives.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {
struct FlowSpec;
}

namespace tavix::engine {

struct ReelRecording;

class ReelAuthorVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

private:
    struct Words {
        std::vector<std::string> notes, errors;   // of authoring, for people
    };

    std::optional<FlowSpec> flow(const ReelRecording& recording, Terminal& terminal) const;
    Background background(const std::filesystem::path& target) const;
    EffectsSpec author(const ReelRecording& recording, const FlowSpec* flow,
        const std::filesystem::path& target, Words& words) const;
    void theme(EffectsSpec& spec) const;
    void addCaptions(
        EffectsSpec& spec, const ReelRecording& recording, const FlowSpec* flow, Words& words) const;
    void addTypography(
        EffectsSpec& spec, const ReelRecording& recording, const FlowSpec* flow, Words& words) const;

    std::string recording_;
    std::optional<std::string> flow_, background_, typography_, output_;
    BrandArguments brand_;
    std::optional<ReelFormat> format_;
    bool captions_ = false, replaces_ = false;
};

}   // namespace tavix::engine
