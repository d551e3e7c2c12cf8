#include "TavixAgent/Hosts/ServerEntry.h"

#include "TavixAgent/Hosts/TomlTable.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonText.h"

namespace tavix::ServerEntry {
namespace {

using Kind = PatchOperation::Kind;
constexpr const char* entryName = "tavix";
constexpr auto dialect = JsonDialect::withComments;

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

// As each host has it.
Json entryOf(const Host& host, const std::string& command) {
    if (host.id == "opencode")
        return JsonObject{
            {"type", "local"}, {"command", JsonArray{command, "mcp", "serve"}}, {"enabled", true}};
    JsonObject entry{{"command", command}, {"args", JsonArray{"mcp", "serve"}}};
    if (host.id == "vscode") entry.set("type", "stdio");
    return entry;
}

Json parsedFile(std::string_view text) {
    const Json json = parseJson(text, dialect);
    if (!json.object())
        throw Failure("The file holds " + std::string(json.kindName()) +
                      ", where an object is expected; mend it first.");
    return json;
}

std::string jsonWith(std::string_view text, const Host& host, const std::string& command) {
    const Json entry = entryOf(host, command);
    if (isBlank(text))
        return patchedText(
            "{\n}\n", {{Kind::add, JsonPointer() / host.group, {}, JsonObject{{entryName, entry}}}});
    const Json json = parsedFile(text);
    const JsonPointer groupAt = JsonPointer() / host.group, entryAt = groupAt / entryName;
    const Json* group = find(json, groupAt);
    if (!group) return patchedText(text, {{Kind::add, groupAt, {}, JsonObject{{entryName, entry}}}}, dialect);
    if (!group->object())
        throw Failure("\"" + std::string(host.group) + "\" holds " + std::string(group->kindName()) +
                      ", where an object is expected; mend it first.");
    const Json* old = group->find(entryName);
    if (!old) return patchedText(text, {{Kind::add, entryAt, {}, entry}}, dialect);
    // What a person has added to our entry stays.
    if (!old->object()) return patchedText(text, {{Kind::replace, entryAt, {}, entry}}, dialect);
    JsonPatch patch;
    for (const JsonMember& member : *entry.object())
        if (const Json* value = old->find(member.key); !value || !(*value == member.value))
            patch.push_back({Kind::add, entryAt / member.key, {}, member.value});
    return patchedText(text, patch, dialect);
}

std::string jsonWithout(std::string_view text, const Host& host) {
    if (isBlank(text)) return std::string(text);
    const JsonPointer entryAt = JsonPointer() / host.group / entryName;
    if (!find(parsedFile(text), entryAt)) return std::string(text);
    return patchedText(text, {{Kind::remove, entryAt, {}, {}}}, dialect);
}

std::string tableName(const Host& host) { return std::string(host.group) + "." + entryName; }

std::vector<std::string> tomlLines(const std::string& command) {
    return {"command = " + TomlTable::quoted(command), "args = [\"mcp\", \"serve\"]"};
}

}   // namespace

std::string withEntry(std::string_view text, const Host& host, const std::string& command) {
    return host.form == HostForm::json ? jsonWith(text, host, command)
                                       : TomlTable::with(text, tableName(host), tomlLines(command));
}

std::string withoutEntry(std::string_view text, const Host& host) {
    return host.form == HostForm::json ? jsonWithout(text, host) : TomlTable::without(text, tableName(host));
}

std::optional<std::string> commandIn(std::string_view text, const Host& host) {
    if (isBlank(text)) return std::nullopt;
    if (host.form == HostForm::toml) return TomlTable::valueIn(text, tableName(host), "command");
    const Json json = parsedFile(text);
    const Json* command = find(json, JsonPointer() / host.group / entryName / "command");
    if (command && command->array() && !command->array()->empty()) command = &command->array()->front();
    return command ? command->stringValue() : std::nullopt;
}

}   // namespace tavix::ServerEntry
