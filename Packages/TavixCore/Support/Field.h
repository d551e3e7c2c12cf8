// One row of a record's table, and the record that the rows make: plain structures, whatever the C++ types.
#pragma once

#include "TavixCore/Support/Role.h"
#include "TavixCore/Support/Type.h"
#include "TavixCore/Support/Unit.h"

#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

namespace tavix {

class KeyPath;

struct Bounds {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();

    double clamp(double value) const;   // NaN becomes the least
    bool operator==(const Bounds&) const = default;
};

struct Field {
    enum class Written { always, unlessDefault, never };
    using Reader = void (*)(const Json&, void* record, const KeyPath&);

    std::string_view key, meaning;   // without a key the member's own keys stand flat in this object
    TypeGetter type = nullptr;
    void* (*reach)(void* record) = nullptr;   // the member; null for a key that no member stands behind
    Reader reader = nullptr;                  // reads the key instead of the type's own way
    Written written = Written::always;
    bool (*condition)(const void* record) = nullptr;
    std::optional<Bounds> bounds = {};
    bool clamps = false;
    bool isRequired = false;
    bool isTolerant = false;
    Role role = Role::none;
    std::string_view partner = {};   // the key of this record that the role speaks of
    Unit unit = Unit::none;          // of a number, or of the numbers that the value holds

    Field required() const;
    Field unlessDefault() const;
    Field readOnly() const;
    // A number outside is moved to the nearer end when it is read.
    Field clamped(double least, double most) const;
    Field atLeast(double least) const;
    // Where the value is meant to lie; reading does not touch it, lint and rendering do.
    Field legal(double least, double most) const;
    // A value that cannot be read counts as missing.
    Field tolerant() const;
    Field measuredIn(Unit ofNumbers) const;
    Field as(Role ofValue, std::string_view partnerKey = {}) const;
    // The key is read by a function of its own.
    Field readBy(Reader read) const;
    // Whether to write it is asked of the record: a lambda over it, without captures.
    template <class Condition> Field writtenIf(Condition isWritten) const {
        return writtenWhen(isWritten, +isWritten);
    }

    const void* in(const void* record) const { return reach(const_cast<void*>(record)); }

private:
    template <class Condition, class R> Field writtenWhen(Condition, bool (*)(const R&)) const {
        static_assert(std::is_empty_v<Condition>, "a lambda without captures");
        Field row = *this;
        row.condition = [](const void* record) { return Condition{}(*static_cast<const R*>(record)); };
        return row;
    }
};

// A record: its rows, and how one is made.
struct RecordType : Type {
    enum class Form { object, list };   // a list holds the values alone, in the order of the table

    using AnyFunction = void (*)();

    // What the C++ type gives.
    struct Making {
        std::size_t size, alignment;
        void (*construct)(void* place);
        void (*destruct)(void* record);
        void (*call)(AnyFunction change, void* record);   // of a function over the C++ type
    };

    RecordType(const Making& ofType, std::string_view nameOfType, std::span<const Field> rowsOfType,
        Form formOfType, std::string_view bare, AnyFunction after);
    ~RecordType();
    RecordType(const RecordType&) = delete;   // its rows are in the table that it is in
    RecordType& operator=(const RecordType&) = delete;

    Making making;
    std::string_view name;
    std::span<const Field> rows;
    Form form;
    std::string_view bareKey;   // a bare value stands for an object with this key alone
    AnyFunction afterRead;      // what reading does once all keys are read; may be null
    const void* fresh;          // a record that no key has changed

    const Field* find(std::string_view key) const;
    bool isWritten(const Field& row, const void* record) const;
    // Made anew in place. Nobody could go on without the memory for a default, so that ends the program.
    void refresh(void* record) const noexcept;

    void* make() const;
    void destroy(void* record) const;
};

// Every number that the table clamps is moved into its range, as reading would.
void clampByTable(const RecordType& type, void* record);
void clampNumber(const Field& row, void* record);

}   // namespace tavix
