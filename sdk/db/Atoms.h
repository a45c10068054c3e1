// Short texts that occur over and over in drawings, above all subclass markers, each stored once and named by
// a small number. The table is one for the whole program and is never emptied.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace oddb
{

/// The number of an interned text. Two atoms are equal exactly when their texts are.
class Atom
{
public:
    constexpr Atom() = default;
    explicit constexpr Atom(std::uint16_t index) : m_index(index) {}

    /// The atom of the text. Throws OdError eOutOfMemory when the table is full; meant for the program's own constants.
    explicit Atom(std::string_view text);

    /// The atom of a text that comes from a file: none when the text is too long or the table has no room left for it.
    static std::optional<Atom> intern(std::string_view text);

    /// The atom of the text when it has one already.
    static std::optional<Atom> lookup(std::string_view text);

    std::string_view text() const;
    constexpr std::uint16_t index() const { return m_index; }
    constexpr bool empty() const { return m_index == 0; }
    constexpr bool operator==(const Atom&) const = default;

private:
    std::uint16_t m_index = 0; // 0 is the empty text
};

} // namespace oddb
