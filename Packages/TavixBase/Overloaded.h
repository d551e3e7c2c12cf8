// Visits a variant with a function for each of its alternatives: one without a function does not compile.
#pragma once

namespace tavix {

template <class... Functions> struct Overloaded : Functions... { using Functions::operator()...; };
template <class... Functions> Overloaded(Functions...) -> Overloaded<Functions...>;

}   // namespace tavix
