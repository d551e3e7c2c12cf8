// tavix_backgrounds FOLDER [NAME...]: paints the background pictures, or those that are named, into a folder.
#include "Backgrounds/JpegFile.h"
#include "Backgrounds/Recipes.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

// Square, so that 9:16 and 16:9 crops are equally sharp: at 1920 lines both are reduced a little.
constexpr int sidePx = 2560;

void paintInto(const std::filesystem::path& folder, const tavix::backgrounds::Recipe& recipe) {
    writeJpeg(paint(recipe, sidePx), folder / (recipe.resourceName + ".jpg"));
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.empty()) {
        std::fputs("usage: tavix_backgrounds FOLDER [NAME...]\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = arguments.front();
    std::filesystem::create_directories(folder);
    if (arguments.size() == 1)
        for (const auto& recipe : tavix::backgrounds::recipes()) paintInto(folder, recipe);
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const auto* recipe = tavix::backgrounds::recipeNamed(arguments[i]);
        if (!recipe) {
            std::fprintf(stderr, "There is no background named \"%s\".\n", arguments[i].c_str());
            return 2;
        }
        paintInto(folder, *recipe);
    }
    return 0;
}

}   // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_backgrounds: %s\n", failure.what());
        return 3;
    }
}
