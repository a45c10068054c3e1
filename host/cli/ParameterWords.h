// Parameters as people write them: NAME=VALUE. A value is JSON, as docs/commands.md has it; what cannot be read as
// JSON, and a number with a fraction or an exponent, is a text: NAME=E12, HANDLE=1E2. Some names know what they want:
//
//   OBJECTID=2A                    an object, by its handle
//   OBJECTIDARRAY=2A,2B            several; so do all names that end in ARRAY
//   SELECTIONSET=2A,2B             a selection set; so do SOURCE and DESTINATION
//   VECTOR=10,0,0                  a point
//   JSON={"AreaValid": false}      a text, as it stands
#pragma once

#include <string>
#include <vector>

#include <rapidjson/document.h>

namespace cli
{

// True for "NAME=..." with a name of letters.
bool isParameterWord(const std::string& word);

// The member "parameters" of a request. Throws session::RequestError for a word without "=" or a name.
rapidjson::Value parametersOf(const std::vector<std::string>& words, rapidjson::Document::AllocatorType& allocator);

} // namespace cli
