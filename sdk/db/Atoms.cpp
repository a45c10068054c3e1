// The program-wide table of short texts.
#include "Atoms.h"

#include <deque>
#include <string>
#include <unordered_map>

#include "OdError.h"

namespace oddb
{

namespace
{

constexpr std::size_t kLongestFileAtom = 63;
// Atoms of files may take only part of the table, so that a hostile file cannot crowd out the program's own.
constexpr std::size_t kFileAtoms = 40000;
constexpr std::size_t kAllAtoms = 65535;

struct Table
{
    std::deque<std::string> texts{std::string()};
    std::unordered_map<std::string_view, std::uint16_t> indexes{{std::string_view(), std::uint16_t(0)}};

    const std::uint16_t* find(std::string_view text) const
    {
        auto found = indexes.find(text);
        return found == indexes.end() ? nullptr : &found->second;
    }

    std::uint16_t add(std::string_view text)
    {
        const auto index = static_cast<std::uint16_t>(texts.size());
        texts.emplace_back(text);
        indexes.emplace(texts.back(), index);
        return index;
    }
};

Table& table()
{
    static Table theTable;
    return theTable;
}

} // namespace

Atom::Atom(std::string_view text)
{
    if (const std::uint16_t* index = table().find(text))
        m_index = *index;
    else if (table().texts.size() < kAllAtoms)
        m_index = table().add(text);
    else
        throw OdError(eOutOfMemory);
}

std::optional<Atom> Atom::intern(std::string_view text)
{
    if (text.size() > kLongestFileAtom)
        return std::nullopt;
    if (const std::uint16_t* index = table().find(text))
        return Atom(*index);
    if (table().texts.size() >= kFileAtoms)
        return std::nullopt;
    return Atom(table().add(text));
}

std::optional<Atom> Atom::lookup(std::string_view text)
{
    const std::uint16_t* index = table().find(text);
    return index ? std::optional<Atom>(*index) : std::nullopt;
}

std::string_view Atom::text() const
{
    return table().texts[m_index];
}

} // namespace oddb
