#include "TavixAgent/Edit/LineDifference.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tavix {
namespace {

constexpr std::size_t mostShownLines = 60;
constexpr std::size_t mostCompared = 4'000'000;   // pairs of lines; beyond it a stretch is told as a whole

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

class Differ {
public:
    Differ(std::vector<std::string_view> before, std::vector<std::string_view> after)
        : before_(std::move(before)), after_(std::move(after)) {}

    std::string text() {
        std::size_t begin = 0, beforeEnd = before_.size(), afterEnd = after_.size();
        while (begin < std::min(beforeEnd, afterEnd) && before_[begin] == after_[begin]) ++begin;
        while (std::min(beforeEnd, afterEnd) > begin && before_[beforeEnd - 1] == after_[afterEnd - 1])
            --beforeEnd, --afterEnd;
        between(begin, beforeEnd, afterEnd);
        if (left_ > 0) out_ += "and " + std::to_string(left_) + " more lines\n";
        return std::move(out_);
    }

private:
    // The lines in common are a longest common subsequence, by its table of lengths.
    void between(std::size_t begin, std::size_t beforeEnd, std::size_t afterEnd) {
        const std::size_t rows = beforeEnd - begin, columns = afterEnd - begin;
        if (rows * columns > mostCompared) {
            tell(begin, begin, beforeEnd, begin, afterEnd);
            return;
        }
        std::vector<std::size_t> lengths((rows + 1) * (columns + 1), 0);
        const auto length = [&](std::size_t i, std::size_t j) -> std::size_t& {
            return lengths[i * (columns + 1) + j];
        };
        for (std::size_t i = rows; i-- > 0;)
            for (std::size_t j = columns; j-- > 0;)
                length(i, j) = before_[begin + i] == after_[begin + j]
                                   ? length(i + 1, j + 1) + 1
                                   : std::max(length(i + 1, j), length(i, j + 1));
        std::size_t i = 0, j = 0;
        while (i < rows || j < columns) {
            const std::size_t fromI = i, fromJ = j;
            while ((i < rows || j < columns) &&
                   !(i < rows && j < columns && before_[begin + i] == after_[begin + j]))
                i < rows && (j == columns || length(i + 1, j) >= length(i, j + 1)) ? ++i : ++j;
            if (i > fromI || j > fromJ)
                tell(begin + fromJ, begin + fromI, begin + i, begin + fromJ, begin + j);
            while (i < rows && j < columns && before_[begin + i] == after_[begin + j]) ++i, ++j;
        }
    }

    void tell(std::size_t line, std::size_t beforeBegin, std::size_t beforeEnd, std::size_t afterBegin,
        std::size_t afterEnd) {
        if (shown_ < mostShownLines) out_ += "@@ line " + std::to_string(line + 1) + "\n";
        for (std::size_t i = beforeBegin; i < beforeEnd; ++i) show('-', before_[i]);
        for (std::size_t i = afterBegin; i < afterEnd; ++i) show('+', after_[i]);
    }

    void show(char mark, std::string_view line) {
        constexpr std::size_t mostCharacters = 160;
        if (shown_++ >= mostShownLines) {
            ++left_;
            return;
        }
        out_ += mark;
        out_ += line.substr(0, mostCharacters);
        out_ += line.size() > mostCharacters ? "…\n" : "\n";
    }

    std::vector<std::string_view> before_, after_;
    std::string out_;
    std::size_t shown_ = 0, left_ = 0;
};

}   // namespace

std::string lineDifference(std::string_view before, std::string_view after) {
    return Differ(linesOf(before), linesOf(after)).text();
}

}   // namespace tavix
