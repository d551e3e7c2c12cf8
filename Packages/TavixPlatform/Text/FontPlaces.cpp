#include "TavixPlatform/Text/FontPlaces.h"

#include <new>
#include <set>
#include <string_view>

namespace tavix::text {
namespace {

std::string escaped(std::string_view path) {
    std::string text;
    for (const char letter : path) {
        switch (letter) {
        case '&': text += "&amp;"; break;
        case '<': text += "&lt;"; break;
        case '>': text += "&gt;"; break;
        default: text += letter;
        }
    }
    return text;
}

std::string element(std::string_view tag, std::string_view content) {
    return std::string("<").append(tag).append(">").append(content).append("</").append(tag).append(">");
}

std::string elements(std::string_view tag, FcStrList* list) {
    std::string text;
    while (const FcChar8* entry = FcStrListNext(list))
        text += element(tag, escaped(reinterpret_cast<const char*>(entry)));
    FcStrListDone(list);
    return text;
}

// Pictures of a fixed size (colour emoji) are scaled to the size of the text.
constexpr std::string_view scalingRule = R"(<match target="font">
<test name="outline" compare="eq"><bool>false</bool></test>
<edit name="tavixscale" mode="assign"><divide>
<name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide></edit>
<edit name="matrix" mode="assign"><times><name>matrix</name><matrix>
<name>tavixscale</name><double>0</double><double>0</double><name>tavixscale</name></matrix></times></edit>
<edit name="size" mode="assign"><divide><name>size</name><name>tavixscale</name></divide></edit></match>)";

// Both are elements of fontconfig's XML; the choice may be empty.
Owned<FcConfig> makeConfig(const FontPlaces& places, std::string_view choice) {
    std::string xml = "<?xml version=\"1.0\"?><fontconfig>";
    xml.append(places.caches)
        .append(places.folders)
        .append(choice)
        .append(scalingRule)
        .append("</fontconfig>");
    Owned<FcConfig> config(FcConfigCreate());
    if (!config) throw std::bad_alloc();
    FcConfigParseAndLoadFromMemory(config.get(), reinterpret_cast<const FcChar8*>(xml.c_str()), FcTrue);
    FcConfigBuildFonts(config.get());
    return config;
}

}   // namespace

// Of the machine's configuration only where fonts lie, and where what was read of them is kept.
const FontPlaces& FontPlaces::ofThisMachine() {
    static const FontPlaces places = [] {
        const auto placesOf = [](FcConfig* machine) {
            return FontPlaces{elements("dir", FcConfigGetFontDirs(machine)),
                elements("cachedir", FcConfigGetCacheDirs(machine))};
        };
        // The usual way of loading also reads the files that are installed and not in use.
        const Owned<FcConfig> inUse(FcConfigCreate());
        if (inUse && FcConfigParseAndLoad(inUse.get(), nullptr, FcTrue))
            if (FontPlaces told = placesOf(inUse.get()); !told.folders.empty() && !told.caches.empty())
                return told;
        // It knows what to do where a configuration tells too little.
        const Owned<FcConfig> machine(FcInitLoadConfig());
        return machine ? placesOf(machine.get()) : FontPlaces();
    }();
    return places;
}

FontPlaces FontPlaces::of(const std::vector<std::filesystem::path>& folders) {
    FontPlaces places{{}, ofThisMachine().caches};
    for (const auto& folder : folders) places.folders += element("dir", escaped(folder.string()));
    return places;
}

Owned<FcConfig> FontPlaces::config() const { return makeConfig(*this, {}); }

Owned<FcConfig> FontPlaces::configOf(std::span<const std::string> files) const {
    std::set<std::string> around, globs;
    for (const std::string& file : files) {
        around.insert(element("dir", escaped(std::filesystem::path(file).parent_path().string())));
        globs.insert(element("glob", escaped(file)));
    }
    FontPlaces places{{}, caches};
    for (const std::string& folder : around) places.folders += folder;
    std::string accepted;
    for (const std::string& glob : globs) accepted += glob;
    return makeConfig(places,
        element("selectfont", element("rejectfont", "<glob>*</glob>") + element("acceptfont", accepted)));
}

}   // namespace tavix::text
