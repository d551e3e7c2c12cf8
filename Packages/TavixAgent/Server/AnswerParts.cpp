#include "TavixAgent/Server/AnswerParts.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixAgent/Server/JsonRpc.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Media/StillImages.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <system_error>

namespace tavix {
namespace {

namespace fs = std::filesystem;

std::string base64(std::string_view bytes) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(bytes.size() - at, 3);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0);
        for (std::size_t i = 0; i < 4; ++i) text += i <= count ? letters[group >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

// The picture as PNG, smaller until it fits.
std::string fittingPng(const fs::path& file) {
    const auto full = std::make_shared<const imaging::Bitmap>(media::loadStillImage(file));
    const imaging::Size fullSize = full->size();
    const int longSide = std::max(fullSize.width, fullSize.height);
    const imaging::Image picture = imaging::Image::bitmap(full);
    std::string pattern = (fs::temp_directory_path() / "tavix-picture-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw Failure("There is no folder for a small picture; make room in it.");
    const fs::path folder = pattern, small = folder / "small.png";
    std::string bytes;
    imaging::Evaluator evaluator;
    for (int side = std::min(mostPictureSidePx, longSide); side >= 64; side = side * 4 / 5) {
        const double scale = double(side) / longSide;
        const imaging::Size size{std::max(int(std::lround(fullSize.width * scale)), 1),
            std::max(int(std::lround(fullSize.height * scale)), 1)};
        const imaging::Image image = picture.placedInto({0, 0, double(size.width), double(size.height)});
        media::writePng(small, evaluator.draw(image, {0, 0, size.width, size.height}).view());
        bytes = readBytes(small);
        if (bytes.size() <= mostPictureBytes) break;
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return bytes;
}

std::size_t offsetOf(const std::string& cursor, std::size_t size) {
    std::size_t offset = 0;
    const auto read = std::from_chars(cursor.data(), cursor.data() + cursor.size(), offset);
    if (read.ec != std::errc() || read.ptr != cursor.data() + cursor.size() || offset >= size)
        throw UsageError("There is no part \"" + cursor + "\" of this answer; begin without a cursor.");
    return offset;
}

bool isWithinCharacter(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

Json textBlock(std::string text) { return JsonObject{{"type", "text"}, {"text", std::move(text)}}; }

}   // namespace

Json answerParts(const ToolAnswer& answer, const std::optional<std::string>& cursor) {
    std::string text = answer.text.empty() ? rpc::inOneLine(answer.structured) : answer.text;
    Json structured = answer.structured;
    if (cursor || text.size() > mostAnswerCharacters) {
        std::size_t from = cursor ? offsetOf(*cursor, text.size()) : 0;
        std::size_t end = std::min(from + mostAnswerCharacters, text.size());
        while (isWithinCharacter(text, from)) ++from;
        while (isWithinCharacter(text, end)) --end;
        JsonObject part{{"text", text.substr(from, end - from)}};
        if (end < text.size()) part.set("nextCursor", std::to_string(end));
        structured = std::move(part);
        text = rpc::inOneLine(structured);
    }
    JsonArray content{textBlock(std::move(text))};
    if (answer.picture) {
        content.emplace_back(JsonObject{
            {"type", "image"}, {"data", base64(fittingPng(*answer.picture))}, {"mimeType", "image/png"}});
        content.push_back(textBlock("The picture is " + answer.picture->string()));
    }
    return JsonObject{
        {"content", std::move(content)}, {"structuredContent", std::move(structured)}, {"isError", false}};
}

Json failedAnswer(const std::string& sentence) {
    return JsonObject{{"content", JsonArray{textBlock(sentence)}}, {"isError", true}};
}

}   // namespace tavix
