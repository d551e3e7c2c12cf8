// A JSON text taken apart only where it is changed; everything else stays the bytes that it was.
#pragma once

#include "TavixCore/Paths/JsonComments.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Paths/JsonTextStyle.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

// Of a valid text, which outlives the tree. Pointers lead to what is there: whoever calls has made sure of
// it.
class JsonTextTree {
public:
    JsonTextTree(std::string_view text, JsonDialect dialect);
    ~JsonTextTree();

    void replace(const JsonPointer& path, const Json& value);
    void add(const JsonPointer& path, const Json& value);   // as the `add` of a patch: or a key's new value
    void remove(const JsonPointer& path);                   // of what is not the root
    void move(const JsonPointer& from, const JsonPointer& path);
    void copy(const JsonPointer& from, const JsonPointer& path);

    std::string text() const;

private:
    struct Node;
    struct Entry;
    struct List;
    // A value and the indentation of the line in which it begins.
    struct Found {
        Node* node;
        std::string indent;
    };

    Found find(const std::vector<std::string>& tokens, std::size_t count);
    static List& listOf(Node& node);
    Node fresh(std::string text);
    // A value as text for a line that is indented so and already holds so many characters.
    using Laid = std::function<std::string(const std::string& indent, std::size_t columns)>;
    void insert(const JsonPointer& path, const Laid& laid);
    void makeRoom(List& list, std::size_t index, const std::string& indent) const;
    void takeOut(List& list, std::size_t index) const;
    std::string_view keep(std::string text);
    static std::size_t indexOf(const List& list, const std::string& token);
    static void write(const Node& node, std::string& into);

    JsonDialect dialect_;
    std::string_view before_, after_;   // the space round the document
    std::unique_ptr<Node> root_;
    JsonTextStyle style_;
    std::deque<std::string> kept_;   // texts that patches brought
};

}   // namespace tavix
