// What every verb of the command is: its arguments and its work.
#pragma once

#include <memory>
#include <string_view>

namespace tavix::engine {

class Arguments;
class Terminal;

class Verb {
public:
    virtual ~Verb() = default;
    virtual void declare(Arguments& arguments, Terminal& terminal) = 0;
    // Once the arguments are read. Throws what Errors.h tells.
    virtual void run(Terminal& terminal) = 0;
};

struct VerbEntry {
    std::string_view name, summary, example;
    std::unique_ptr<Verb> (*make)();
};

}   // namespace tavix::engine
