// Finds the moment that a mark reference names: which device's clip it means, and when in the clip it was.
#pragma once

#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Support/KeyPath.h"
#include "TavixCore/Time/CompositionMarks.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix::CompositionMarks {

// The labelled events of a recording, by label, each in the order of the recording.
using Marks = std::map<std::string, std::vector<Timeline::Event>>;

// The recordings that a composition plays. Each sidecar is read once, when it is first needed.
class Sidecars {
public:
    Sidecars(const std::filesystem::path& assetRoot, const TimelineLoader& load)
        : assetRoot_(assetRoot), load_(load) {}

    std::filesystem::path fileOf(const std::string& clipPath) const {
        return sidecarFile(assetRoot_ / clipPath);
    }
    const Marks* marksOf(const std::string& clipPath);   // nothing without a sidecar

private:
    const std::filesystem::path& assetRoot_;
    const TimelineLoader& load_;
    std::map<std::string, std::optional<Marks>> read_;
};

// A device layer as mark references see it.
struct DeviceEntry {
    std::size_t layerIndex = 0;
    std::optional<std::string> id;
    double fromSec = 0;
    std::optional<std::string> clipPath;   // absent: a still, which has no marks
    double trimStartSec = 0;
    const Marks* marks = nullptr;   // once needed
    bool sidecarMissing = false;    // has been reported, once for all references
};

// Of one scene.
class MarkFinder {
public:
    struct Moment {
        const DeviceEntry* entry = nullptr;
        double clipSec = 0;   // on the clip's clock
    };

    MarkFinder(const KeyPath& scene, std::vector<DeviceEntry> entries, Sidecars& sidecars,
        CompositionLint::LintReport& report)
        : scene_(scene.text()), entries_(std::move(entries)), sidecars_(sidecars), report_(report) {}

    std::vector<DeviceEntry>& entries() { return entries_; }
    // `clip`: the device that is meant; without one, the only one. What hinders is reported.
    std::optional<Moment> find(const MarkRef& ref, const std::optional<std::string>& clip, const KeyPath& at);

private:
    DeviceEntry* entryOf(const MarkRef& ref, const std::optional<std::string>& clip, const KeyPath& at);
    std::string idsInBrackets() const;
    bool hasMarks(DeviceEntry& entry, const KeyPath& at);
    const Timeline::Event* eventOf(const DeviceEntry& entry, const std::string& label, const KeyPath& at);

    std::string scene_;   // its path
    std::vector<DeviceEntry> entries_;
    Sidecars& sidecars_;
    CompositionLint::LintReport& report_;
};

}   // namespace tavix::CompositionMarks
