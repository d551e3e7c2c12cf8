#include "TavixRecorder/Browser/MessageSplitter.h"

#include "TavixBase/Failure.h"

namespace tavix::recorder {

void MessageSplitter::add(std::string_view bytes) {
    const std::size_t lastEnd = bytes.rfind('\0');
    unfinishedBytes_ = lastEnd == bytes.npos ? unfinishedBytes_ + bytes.size() : bytes.size() - lastEnd - 1;
    bytes_.erase(0, taken_);
    lookedAt_ -= taken_;
    taken_ = 0;
    if (unfinishedBytes_ > mostBytes_) {
        bytes_.clear();
        lookedAt_ = unfinishedBytes_ = 0;
        throw Failure(
            "The browser sent a message of more than " + std::to_string(mostBytes_ >> 20) + " megabytes.");
    }
    bytes_.append(bytes);
}

std::optional<std::string> MessageSplitter::next() {
    const std::size_t end = bytes_.find('\0', lookedAt_);
    if (end == std::string::npos) {
        lookedAt_ = bytes_.size();
        return std::nullopt;
    }
    std::string message = bytes_.substr(taken_, end - taken_);
    taken_ = lookedAt_ = end + 1;
    return message;
}

}   // namespace tavix::recorder
