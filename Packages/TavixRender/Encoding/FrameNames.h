// The files of a film of pictures: one for each frame, told apart by its number.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tavix {

class FrameNames {
public:
    static constexpr const char* usual = "%05d.png";

    // Of a path whose last part has one place for a number, as in "shots/%05d.png" or "shot-%d.png"; the
    // digit is 1 to 9. Nothing for any other.
    static std::optional<FrameNames> parsed(const std::filesystem::path& pattern);
    // The same; throws a `Failure` for any other.
    static FrameNames required(const std::filesystem::path& pattern);

    // Of a frame counted from 0; numbers begin at 1.
    std::filesystem::path of(std::int64_t frame) const;

private:
    std::filesystem::path folder_;
    std::string before_, after_;
    std::size_t digits_ = 1;
};

}   // namespace tavix
