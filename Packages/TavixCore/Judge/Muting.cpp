#include "TavixCore/Judge/Muting.h"

#include "TavixBase/NearestWord.h"
#include "TavixCore/Findings/LintReport.h"

#include <algorithm>
#include <set>

namespace tavix::CompositionLint {
namespace {

std::vector<std::string_view> allCodes() {
    std::vector<std::string_view> codes;
    for (const RuleEntry& entry : rules()) codes.push_back(entry.code);
    return codes;
}

Finding unknownCode(const MutedCode& muted) {
    return findingOf(Rule::muteUnknown, muted.path,
        worded("There is no rule \"{}\" to mute; `tavix lint --codes` lists them.", {muted.code}),
        didYouMean(muted.code, allCodes()));
}

}   // namespace

std::string Told::mutedNote() const {
    if (muted.empty()) return {};
    std::set<std::string_view> codes;
    for (const Finding& finding : muted) codes.insert(finding.code);
    std::string list;
    for (const std::string_view code : codes) list.append(list.empty() ? "" : ", ").append(code);
    return (muted.size() == 1 ? "1 finding is muted: "
                              : std::to_string(muted.size()) + " findings are muted: ") +
           list + ".";
}

Told told(std::vector<Finding> all, std::span<const MutedCode> mute) {
    Told result;
    for (Finding& finding : all) {
        const bool isMuted = finding.code != codeOf(Rule::unreadable) &&
                             std::ranges::find(mute, finding.code, &MutedCode::code) != mute.end();
        (isMuted ? result.muted : result.findings).push_back(std::move(finding));
    }
    const bool isToldOf = std::ranges::find(mute, codeOf(Rule::muteUnknown), &MutedCode::code) == mute.end();
    for (const MutedCode& muted : mute)
        if (isToldOf && !ruleOf(muted.code)) result.findings.push_back(unknownCode(muted));
    return result;
}

}   // namespace tavix::CompositionLint
