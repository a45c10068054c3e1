// Completing words.
#include "cli/console/Completion.h"

#include <algorithm>
#include <cctype>

namespace cli
{

namespace
{

bool isSameLetter(unsigned char first, unsigned char second)
{
    return std::toupper(first) == std::toupper(second);
}

bool beginsWith(const std::string& text, const std::string& beginning)
{
    return text.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), text.begin(), isSameLetter);
}

} // namespace

Completion complete(const std::string& word, const std::vector<std::string>& candidates)
{
    Completion completion;
    for (const std::string& candidate : candidates)
    {
        if (!beginsWith(candidate, word))
            continue;
        if (completion.fitting.empty())
            completion.common = candidate;
        const auto [end, other] = std::mismatch(completion.common.begin(), completion.common.end(), candidate.begin(),
                                                candidate.end(), isSameLetter);
        completion.common.erase(end, completion.common.end());
        completion.fitting.push_back(candidate);
    }
    return completion;
}

std::vector<std::string> keywordsOf(const std::string& prompt)
{
    std::vector<std::string> keywords;
    const std::size_t begin = prompt.rfind('[');
    const std::size_t end = prompt.find(']', begin == std::string::npos ? 0 : begin);
    if (begin == std::string::npos || end == std::string::npos)
        return keywords;
    for (std::size_t at = begin + 1; at < end;)
    {
        const std::size_t slash = std::min(prompt.find('/', at), end);
        if (slash > at)
            keywords.push_back(prompt.substr(at, slash - at));
        at = slash + 1;
    }
    return keywords;
}

} // namespace cli
