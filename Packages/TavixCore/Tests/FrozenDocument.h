// Documents frozen as files: written by hand once, so that a key that is renamed no longer reads them.
#pragma once

#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/FrozenTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tavix::frozen {

// The bytes of one of the files in Tests/Data.
std::string document(std::string_view name);

// Every key that a schema tells stands in one of these.
void expectEveryKey(const Json& schema, const std::vector<Json>& documents);

// The file reads as that value, is written back byte by byte, and has every key that the record knows.
template <class T> void expectHolds(std::string_view name, const T& value) {
    const std::string text = document(name);
    EXPECT_THAT(departures(parseJson(text), Codec<T>::write(value)), testing::IsEmpty());
    EXPECT_EQ(decodeJson<T>(text), value);
    EXPECT_EQ(encodedJson(decodeJson<T>(text)) + "\n", text);
    expectEveryKey(schemaOf<T>(name), {parseJson(text)});
}

}   // namespace tavix::frozen
