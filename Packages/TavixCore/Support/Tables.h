// What a record's header needs to announce its table: the one description of its JSON form, from which its
// decoder, its encoder and its schema are all read. A record announces `fieldsOf`, an enumeration `namesOf`,
// a union `alternativesOf`; the codec finds them by argument-dependent lookup.
#pragma once

#include <type_traits>

namespace tavix {

template <class R> struct Fields;         // TavixCore/Support/Fields.h
template <class E> struct Names;          // TavixCore/Support/Names.h
template <class U> struct Alternatives;   // TavixCore/Support/Alternatives.h

}   // namespace tavix
