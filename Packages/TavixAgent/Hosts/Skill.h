// What an agent should know before it makes a film: what to call when, and ten lines of taste.
#pragma once

#include <string>
#include <string_view>

namespace tavix::Skill {

// As a file of its own, with the lines at its head by which a host finds it.
std::string file();
std::string ruleFile();   // of Cursor

// As a section of a file that is somebody else's, between two marker lines: put in, or in the place of the
// one that is there.
std::string withSection(std::string_view text);
std::string withoutSection(std::string_view text);

}   // namespace tavix::Skill
