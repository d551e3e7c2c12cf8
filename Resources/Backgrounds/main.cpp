// tavix_backgrounds FOLDER [NAME...]: paints the background pictures, or those that are named, into a folder.
#include "Backgrounds/JpegFile.h"
#include "Backgrounds/Recipes.h"
#include "Generator/NamedFiles.h"

namespace {

using namespace tavix;

// Square, so that 9:16 and 16:9 crops are equally sharp: at 1920 lines both are reduced a little.
constexpr int sidePx = 2560;

std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const auto& recipe : backgrounds::recipes()) result.push_back(recipe.resourceName);
    return result;
}

void paintInto(const std::string& name, const std::filesystem::path& folder) {
    writeJpeg(paint(*backgrounds::recipeNamed(name), sidePx), folder / (name + ".jpg"));
}

}   // namespace

int main(int argc, char** argv) {
    return generator::run({"tavix_backgrounds", "background", names(), paintInto}, argc, argv);
}
