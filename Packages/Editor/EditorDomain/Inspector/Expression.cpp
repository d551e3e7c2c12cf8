#include "Editor/EditorDomain/Inspector/Expression.h"

#include <charconv>
#include <cmath>
#include <string>

namespace tavix {

namespace {

constexpr int deepest = 32;

// A reader of sums by descent; each part leaves the place behind what it took.
class Sum {
public:
    explicit Sum(std::string_view text) : rest_(text) {}

    std::optional<double> whole() {
        const auto value = sum();
        return rest_.empty() ? value : std::nullopt;
    }

private:
    bool take(char sign) {
        if (!rest_.starts_with(sign)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::optional<double> sum() {
        auto value = product();
        while (value && !rest_.empty()) {
            const bool isPlus = rest_.front() == '+';
            if (!isPlus && rest_.front() != '-') break;
            rest_.remove_prefix(1);
            const auto more = product();
            value = more ? std::optional(*value + (isPlus ? *more : -*more)) : std::nullopt;
        }
        return value;
    }

    std::optional<double> product() {
        auto value = factor();
        while (value && !rest_.empty()) {
            const bool isTimes = rest_.front() == '*';
            if (!isTimes && rest_.front() != '/') break;
            rest_.remove_prefix(1);
            const auto more = factor();
            value = more ? std::optional(isTimes ? *value * *more : *value / *more) : std::nullopt;
        }
        return value;
    }

    std::optional<double> factor() {
        if (++depth_ > deepest) return std::nullopt;
        std::optional<double> value;
        if (take('-')) {
            value = factor();
            if (value) *value = -*value;
        } else if (take('+')) {
            value = factor();
        } else if (take('(')) {
            value = sum();
            if (!take(')')) value.reset();
        } else {
            value = number();
        }
        --depth_;
        return value;
    }

    std::optional<double> number() {
        double value = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        if (error != std::errc()) return std::nullopt;
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        if (take('%')) return value / 100;
        while (!rest_.empty() && isUnit(rest_.front())) rest_.remove_prefix(1);
        return value;
    }

    static bool isUnit(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c & 0x80) != 0; }

    std::string_view rest_;
    int depth_ = 0;
};

std::string withoutSpace(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (text.substr(i).starts_with("−"))
            plain += '-', i += 2;
        else if (text.substr(i).starts_with("×"))
            plain += '*', i += 1;
        else if (c == ',')
            plain += '.';
        else if (c != ' ' && c != '\t')
            plain += c;
    }
    return plain;
}

}   // namespace

std::optional<double> evaluated(std::string_view text, double current) {
    const std::string plain = withoutSpace(text);
    std::string_view sum = plain;
    char goesOn = 0;
    if (sum.starts_with('*') || sum.starts_with('/')) {
        goesOn = sum.front();
    } else if (sum.starts_with("++") || sum.starts_with("--")) {
        goesOn = sum.front();
        sum.remove_prefix(1);
    }
    if (goesOn) sum.remove_prefix(1);
    auto value = Sum(sum).whole();
    if (!value) return std::nullopt;
    switch (goesOn) {
    case '*': value = current * *value; break;
    case '/': value = current / *value; break;
    case '+': value = current + *value; break;
    case '-': value = current - *value; break;
    default: break;
    }
    return std::isfinite(*value) ? value : std::nullopt;
}

}   // namespace tavix
