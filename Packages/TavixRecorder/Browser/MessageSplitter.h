// Messages out of a stream of bytes: each ends with a zero byte, and no message holds one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavix::recorder {

class MessageSplitter {
public:
    // A picture of a large screen comes as one message of some tens of megabytes.
    static constexpr std::size_t defaultMostBytes = std::size_t{128} << 20;

    explicit MessageSplitter(std::size_t mostBytes = defaultMostBytes) : mostBytes_(mostBytes) {}

    // Take out what is whole before adding more. Throws a `Failure` once a message without an end is longer
    // than allowed.
    void add(std::string_view bytes);
    // The next whole message, without its end.
    std::optional<std::string> next();

private:
    std::size_t mostBytes_;
    std::string bytes_;
    std::size_t lookedAt_ = 0;          // no end lies before it
    std::size_t taken_ = 0;             // messages before it have been handed out
    std::size_t unfinishedBytes_ = 0;   // of the message whose end has not come
};

}   // namespace tavix::recorder
