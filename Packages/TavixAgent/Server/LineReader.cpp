#include "TavixAgent/Server/LineReader.h"

namespace tavix {

std::optional<LineReader::Line> LineReader::next() {
    const std::size_t end = buffer_.find('\n');
    if (end == std::string::npos) {
        if (buffer_.size() > mostBytes_) {
            isSkipping_ = true;
            buffer_.clear();
        }
        return std::nullopt;
    }
    Line line{buffer_.substr(0, end), isSkipping_ || end > mostBytes_};
    buffer_.erase(0, end + 1);
    isSkipping_ = false;
    if (line.wasTooLong) line.text.clear();
    return line;
}

}   // namespace tavix
