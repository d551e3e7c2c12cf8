#include "TavixPlatform/Scene3D/ModelFile.h"

#include "TavixPlatform/Scene3D/GltfScene.h"
#include "TavixPlatform/Scene3D/SceneError.h"

#include <cstring>
#include <fstream>
#include <vector>

#include <tiny_gltf.h>

namespace tavix::scene3d {

namespace {

constexpr std::size_t mostFileBytes = std::size_t(256) << 20, mostTextBytes = std::size_t(32) << 20;
constexpr int mostNesting = 64;
constexpr std::size_t headerBytes = 20;   // of the file and of its first chunk

[[noreturn]] void refuse(const std::string& name, const std::string& why) {
    throw SceneError(name + " " + why);
}

std::uint32_t wordAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
    std::uint32_t word;   // little-endian, as is every machine we run on
    std::memcpy(&word, bytes.data() + offset, sizeof word);
    return word;
}

// The parser is handed no text that nests without end.
bool nestsTooDeep(std::span<const std::uint8_t> text) {
    int depth = 0;
    bool isInString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::uint8_t c = text[i];
        if (isInString) {
            if (c == '\\') ++i;
            if (c == '"') isInString = false;
            continue;
        }
        if (c == '"') isInString = true;
        if ((c == '{' || c == '[') && ++depth > mostNesting) return true;
        if (c == '}' || c == ']') --depth;
    }
    return false;
}

void requireContainer(std::span<const std::uint8_t> bytes, const std::string& name) {
    constexpr std::uint32_t magic = 0x46546c67, text = 0x4e4f534a;   // "glTF" and "JSON"
    if (bytes.size() < headerBytes || wordAt(bytes, 0) != magic)
        refuse(name, "is not a binary glTF file; export the model as .glb.");
    if (wordAt(bytes, 4) != 2) refuse(name, "is not of glTF version 2; export the model again.");
    if (bytes.size() > mostFileBytes) refuse(name, "is larger than 256 MB; simplify the model.");
    const std::size_t length = wordAt(bytes, 8), textBytes = wordAt(bytes, 12);
    if (length > bytes.size()) refuse(name, "is cut short; copy or export it again.");
    if (wordAt(bytes, 16) != text || length < headerBytes || textBytes > length - headerBytes ||
        textBytes > mostTextBytes)
        refuse(name, "is damaged: its description is missing or has no sound size.");
    if (nestsTooDeep(bytes.subspan(headerBytes, textBytes)))
        refuse(name, "is damaged: its description nests too deep.");
}

// Pictures are not looked at, and other files not opened.
bool skipImage(
    tinygltf::Image*, int, std::string*, std::string*, int, int, const unsigned char*, int, void*) {
    return true;
}

tinygltf::Model parse(std::span<const std::uint8_t> bytes, const std::string& name) {
    tinygltf::TinyGLTF reader;
    tinygltf::FsCallbacks files{};
    files.FileExists = [](const std::string&, void*) { return false; };
    files.ExpandFilePath = [](const std::string& path, void*) { return path; };
    files.ReadWholeFile = [](std::vector<unsigned char>*, std::string*, const std::string&, void*) {
        return false;
    };
    files.WriteWholeFile = [](std::string*, const std::string&, const std::vector<unsigned char>&, void*) {
        return false;
    };
    reader.SetFsCallbacks(files);
    reader.SetImageLoader(skipImage, nullptr);
    tinygltf::Model model;
    std::string error, warning;
    bool isRead = false;
    try {
        isRead =
            reader.LoadBinaryFromMemory(&model, &error, &warning, bytes.data(), unsigned(bytes.size()), "");
    } catch (const std::exception& failure) {
        error = failure.what();
    }
    if (!isRead) {
        const std::string reason = error.substr(0, error.find('\n'));
        refuse(
            name, "cannot be read as a model" + (reason.empty() ? std::string(".") : " (" + reason + ")."));
    }
    return model;
}

}   // namespace

EntityRef loadModel(std::span<const std::uint8_t> bytes, const std::string& name) {
    requireContainer(bytes, name);
    const tinygltf::Model model = parse(bytes, name);
    return GltfScene(model, name).build();
}

EntityRef loadModel(const std::filesystem::path& path) {
    const std::string name = path.string();
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) refuse(name, "is a folder, not a model.");
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file) refuse(name, "cannot be opened; check that the file is there and may be read.");
    const auto size = std::size_t(std::max<std::streamoff>(file.tellg(), 0));
    if (size > mostFileBytes) refuse(name, "is larger than 256 MB; simplify the model.");
    std::vector<std::uint8_t> bytes(size);
    file.seekg(0);
    if (!file.read(reinterpret_cast<char*>(bytes.data()), std::streamsize(size)))
        refuse(name, "cannot be read.");
    return loadModel(bytes, name);
}

}   // namespace tavix::scene3d
