// What keys of pieces of every kind of film are made of.
#pragma once

#include "TavixBase/Digest.h"
#include "TavixBase/Hash.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <filesystem>
#include <optional>

namespace tavix::KeyParts {

// Of the whole content of a file; nothing where it cannot be read to its end.
std::optional<Digest> contentOf(const std::filesystem::path& path);

// How the frames are encoded.
void addEncoding(Hash& hash, const FilmFile& file);

}   // namespace tavix::KeyParts
