// The standard library's matcher goes deeper with each character that it takes, and some patterns make it try every way
// to cut up a text. It sees a text only through iterators, so these count what it does and how deep it is, and throw.
#if defined(__GNUC__) && !defined(__clang__)
// Under sanitizers gcc 12 takes a member of the library's own states for uninitialised.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include "userio/Pattern.h"

#include <cstddef>
#include <iterator>
#include <unordered_map>

namespace
{

// Compiling goes deeper with each part of a pattern too.
constexpr int kMostPatternCharacters = 2'000;

constexpr std::ptrdiff_t kDeepestStack = 2 << 20; ///< bytes
constexpr std::size_t kFewestSteps = 5'000'000;
constexpr std::size_t kStepsPerCharacter = 200;

constexpr std::size_t kMostPatternsKept = 64;

/// How much of a search is left.
class SearchBudget
{
public:
    explicit SearchBudget(std::size_t numCharacters)
        : m_stepsLeft(kFewestSteps + kStepsPerCharacter * numCharacters), m_pTop(Here())
    {
    }

    void Spend()
    {
        if (m_stepsLeft == 0)
            throw std::regex_error(std::regex_constants::error_complexity);
        --m_stepsLeft;
        const std::ptrdiff_t iDepth = m_pTop - Here();
        if (iDepth > kDeepestStack || iDepth < -kDeepestStack)
            throw std::regex_error(std::regex_constants::error_stack);
    }

private:
    static const char* Here() { return static_cast<const char*>(__builtin_frame_address(0)); }

    std::size_t m_stepsLeft;
    const char* m_pTop;
};

/// A place in a text whose use is counted.
class CountingIterator
{
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = wchar_t;
    using difference_type = std::ptrdiff_t;
    using pointer = const wchar_t*;
    using reference = const wchar_t&;

    CountingIterator() = default;
    CountingIterator(const wchar_t* pAt, SearchBudget& budget) : m_pAt(pAt), m_pBudget(&budget) {}

    reference operator*() const
    {
        m_pBudget->Spend();
        return *m_pAt;
    }
    CountingIterator& operator++()
    {
        ++m_pAt;
        return *this;
    }
    CountingIterator operator++(int) { return std::exchange(*this, CountingIterator(m_pAt + 1, *m_pBudget)); }
    CountingIterator& operator--()
    {
        --m_pAt;
        return *this;
    }
    CountingIterator operator--(int) { return std::exchange(*this, CountingIterator(m_pAt - 1, *m_pBudget)); }
    bool operator==(const CountingIterator& other) const
    {
        if (m_pBudget)
            m_pBudget->Spend();
        return m_pAt == other.m_pAt;
    }

private:
    const wchar_t* m_pAt = nullptr;
    SearchBudget* m_pBudget = nullptr;
};

std::wregex Compile(const OdString& strPattern)
{
    if (strPattern.getLength() > kMostPatternCharacters)
        throw CPatternError(std::regex_constants::error_space, strPattern.left(40) + L"...", "it is too long");
    try
    {
        return std::wregex(strPattern.c_str(), static_cast<std::size_t>(strPattern.getLength()));
    }
    catch (const std::regex_error& error)
    {
        throw CPatternError(error.code(), strPattern, error.what());
    }
}

} // namespace

CPatternError::CPatternError(std::regex_constants::error_type eCode, const OdString& strPattern,
                             const std::string& strFault)
    : std::regex_error(eCode), m_strText("Regular expression \"" + odStringToUtf8(strPattern) + "\": " + strFault)
{
}

CPattern::CPattern(const OdString& strPattern) : m_strPattern(strPattern), m_regex(Compile(strPattern)) {}

bool CPattern::IsIn(const OdString& strText) const
{
    const std::wstring_view text = strText.view();
    SearchBudget budget(text.size());
    try
    {
        return std::regex_search(CountingIterator(text.data(), budget),
                                 CountingIterator(text.data() + text.size(), budget), m_regex);
    }
    catch (const std::regex_error& error)
    {
        const bool bIsDeep = error.code() == std::regex_constants::error_stack;
        throw CPatternError(error.code(), m_strPattern,
                            bIsDeep ? "the search in a text goes too deep" : "the search in a text takes too long");
    }
}

std::shared_ptr<const CPattern> FindPattern(const OdString& strPattern)
{
    static std::unordered_map<std::wstring, std::shared_ptr<const CPattern>> patterns;
    const std::wstring key(strPattern.view());
    const auto found = patterns.find(key);
    if (found != patterns.end())
        return found->second;
    auto pPattern = std::make_shared<const CPattern>(strPattern);
    if (patterns.size() >= kMostPatternsKept)
        patterns.clear();
    patterns.emplace(key, pPattern);
    return pPattern;
}
