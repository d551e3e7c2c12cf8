// Reads, writes and describes a record by its field table.
#pragma once

#include "TavixCore/Support/Fields.h"

#include <string>
#include <type_traits>
#include <utility>

namespace tavix {

namespace detail {

// What the schema says of one key: its value's own description, what it means, its default and its limits.
template <class R> Json describeRow(const Field<R>& row, SchemaBook& book) {
    Json description = row.schema(book);
    JsonObject& said = *description.object();
    if (!row.meaning.empty()) said.set("description", row.meaning);
    Json byDefault = row.isRequired ? Json() : row.write(freshRecord<R>());
    if (!byDefault.isNull()) said.set("default", std::move(byDefault));
    if (row.bounds && std::isfinite(row.bounds->least)) said.set("minimum", row.bounds->least);
    if (row.bounds && std::isfinite(row.bounds->most)) said.set("maximum", row.bounds->most);
    return description;
}

template <class R> JsonObject describeList(const Fields<R>& table, SchemaBook& book) {
    JsonArray items;
    for (const Field<R>& row : table.rows) items.push_back(describeRow(row, book));
    return {{"minItems", items.size()}, {"prefixItems", std::move(items)}, {"type", "array"}};
}

template <class R> JsonObject describeObject(const Fields<R>& table, SchemaBook& book) {
    JsonObject properties;
    JsonArray needed, flat;
    for (const Field<R>& row : table.rows) {
        if (row.key.empty())
            flat.push_back(row.schema(book));
        else
            properties.set(row.key, describeRow(row, book));
        if (row.isRequired) needed.emplace_back(row.key);
    }
    JsonObject description{{"type", "object"}};
    if (!properties.empty()) description.set("properties", std::move(properties));
    if (!needed.empty()) description.set("required", std::move(needed));
    if (!flat.empty()) description.set("allOf", std::move(flat));
    return description;
}

template <class R> Json describe(const Fields<R>& table, SchemaBook& book) {
    if (table.form == Fields<R>::Form::list) return describeList(table, book);
    JsonObject object = describeObject(table, book);
    for (const Field<R>& row : table.rows)
        if (!table.bareKey.empty() && row.key == table.bareKey)
            return JsonObject{{"anyOf", JsonArray{row.schema(book), std::move(object)}}};
    return object;
}

}   // namespace detail

template <Record R> struct Codec<R> {
    static void read(const Json& json, R& into, const KeyPath& at) {
        const Fields<R>& table = fieldsOf(std::type_identity<R>{});
        if (table.form == Fields<R>::Form::list)
            readList(json, into, table, at);
        else if (!table.bareKey.empty() && !json.object())
            readBare(json, into, table, at);
        else
            readObject(json, into, table, at);
        if (table.afterRead) table.afterRead(into);
    }

    static Json write(const R& from) {
        const Fields<R>& table = fieldsOf(std::type_identity<R>{});
        if (table.form == Fields<R>::Form::list) return writeList(from, table);
        JsonObject object;
        for (const Field<R>& row : table.rows) {
            if (!row.isWrittenFor(from)) continue;
            Json value = row.write(from);
            if (row.key.empty())
                object.merge(std::move(*value.object()));
            else
                object.set(row.key, std::move(value));
        }
        const bool mayBeBare = !table.bareKey.empty() && object.size() == 1;
        if (const Json* bare = mayBeBare ? object.find(table.bareKey) : nullptr) return *bare;
        return object;
    }

    static Json schema(SchemaBook& book) {
        const Fields<R>& table = fieldsOf(std::type_identity<R>{});
        return book.reference(table.name, [&] { return detail::describe(table, book); });
    }

private:
    static void readObject(const Json& json, R& into, const Fields<R>& table, const KeyPath& at) {
        const JsonObject& object = objectAt(json, at);
        for (const Field<R>& row : table.rows) {
            if (row.key.empty()) {
                row.read(json, into, row, at);
                continue;
            }
            const Json* value = object.find(row.key);
            const KeyPath here(at, row.key);
            if (value && !value->isNull())
                readRow(*value, into, row, here);
            else if (row.isRequired)
                failWithMissing(here, value);
        }
    }

    static void readRow(const Json& value, R& into, const Field<R>& row, const KeyPath& at) {
        try {
            row.read(value, into, row, at);
        } catch (const DecodingError&) {
            if (!row.isTolerant) throw;
        }
    }

    static void readBare(const Json& json, R& into, const Fields<R>& table, const KeyPath& at) {
        for (const Field<R>& row : table.rows)
            if (row.key == table.bareKey) row.read(json, into, row, at);
    }

    static void readList(const Json& json, R& into, const Fields<R>& table, const KeyPath& at) {
        const JsonArray* elements = json.array();
        if (!elements) failWithType(at, "a list of " + std::to_string(table.rows.size()) + " values", json);
        if (elements->size() < table.rows.size())
            failWithData(at, at.subject() + " must be a list of " + std::to_string(table.rows.size()) +
                                 " values, but has only " + std::to_string(elements->size()) + ".");
        for (std::size_t i = 0; i < table.rows.size(); ++i)
            table.rows[i].read((*elements)[i], into, table.rows[i], KeyPath(at, i));
    }

    static Json writeList(const R& from, const Fields<R>& table) {
        JsonArray elements;
        for (const Field<R>& row : table.rows) elements.push_back(row.write(from));
        return elements;
    }
};

// The record with every number that its table clamps moved into its range, as reading would.
template <Record R> R clampedByTable(R record) {
    for (const Field<R>& row : fieldsOf(std::type_identity<R>{}).rows)
        if (row.clamps && row.number(record)) row.read(row.write(record), record, row, KeyPath());
    return record;
}

}   // namespace tavix
