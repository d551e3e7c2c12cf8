#include "TavixLive/Files/UserDefaults.h"

#include "TavixCore/Support/Document.h"

#include <system_error>

namespace tavix {

JsonObject UserDefaults::all() const try {
    const Json json = parseJson(readBytes(file_, JsonLimits{}.maxBytes));
    return json.object() ? *json.object() : JsonObject();
} catch (const Failure&) {
    return {};   // not there yet, or damaged: nothing in it is worth an error
}

Json UserDefaults::value(std::string_view name) const {
    const JsonObject values = all();
    const Json* found = values.find(name);
    return found ? *found : Json();
}

void UserDefaults::set(std::string_view name, Json value) const {
    JsonObject values = all();
    values.set(name, std::move(value));
    std::error_code error;
    std::filesystem::create_directories(file_.parent_path(), error);
    if (error)
        throw Failure("Cannot make \"" + file_.parent_path().string() + "\": " + error.message() + ".");
    writeBytesAtomically(writeJson(Json(std::move(values))), file_);
}

}   // namespace tavix
