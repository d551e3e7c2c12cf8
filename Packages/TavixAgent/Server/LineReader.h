// Lines from a stream, however it is cut into pieces.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavix {

class LineReader {
public:
    explicit LineReader(std::size_t mostBytes) : mostBytes_(mostBytes) {}

    struct Line {
        std::string text;          // without its line feed
        bool wasTooLong = false;   // then its text is gone
    };
    void take(std::string_view piece) { buffer_ += piece; }
    // The next whole line; nothing until more has come. No more than a longest line is kept.
    std::optional<Line> next();

private:
    std::size_t mostBytes_;
    std::string buffer_;
    bool isSkipping_ = false;
};

}   // namespace tavix
