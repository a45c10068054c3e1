// Completing words.
#pragma once

#include <string>
#include <vector>

namespace cli
{

struct Completion
{
    std::string common;               // what all candidates begin with, in the case of the candidates
    std::vector<std::string> fitting; // the candidates that begin with the word, in their order
};

// The words that begin with this one, in any case.
Completion complete(const std::string& word, const std::vector<std::string>& candidates);

// The keywords that a prompt offers: those of its last "[First/Second/]", without the slashes; none without brackets.
std::vector<std::string> keywordsOf(const std::string& prompt);

} // namespace cli
