// Prints the groups that objects keep into a drawing file.
#pragma once

#include "TagPrinter.h"
#include "TextCoding.h"
#include "db/DxfClassTable.h"
#include "db/Groups.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dxf
{

/// Puts groups into the coding, form and version of one file.
class GroupPrinter
{
public:
    GroupPrinter(TagPrinter& tags, TextEncoder encoder) : m_tags(tags), m_encoder(std::move(encoder)) {}
    /// A printer that puts groups into the same coding and version, but elsewhere.
    GroupPrinter(TagPrinter& tags, const GroupPrinter& like)
        : m_tags(tags), m_encoder(like.m_encoder), m_drops(like.m_drops), m_version(like.m_version)
    {
    }

    /// Leaves out from now on what the class tables know to be newer than the version.
    void dropNewerThan(OdDb::DwgVersion version)
    {
        m_drops = true;
        m_version = version;
    }

    void text(int code, std::string_view utf8) { m_tags.text(code, m_encoder.encode(utf8)); }
    void handle(int code, std::uint64_t value) { m_tags.handle(code, value); }
    void integer(int code, std::int64_t value) { m_tags.integer(code, value); }
    void real(int code, double value) { m_tags.real(code, value); }

    /// Prints one group in the kind of value that its code announces.
    void group(const oddb::GroupView& group);

    /// Prints groups as they stand.
    void groups(oddb::GroupSpan groups);

    TagPrinter& tags() { return m_tags; }

    /// Prints the data of an object of the class, which may be null.
    void groupsOf(const oddb::DxfClass* cls, oddb::GroupSpan groups);

    /// To be called when table records may have changed.
    void forgetNames() { ++m_age; }

private:
    /// The name of a table record as it was printed last.
    struct PrintedName
    {
        const OdDbStub* record = nullptr;
        std::uint64_t age = 0;
        std::string text;
    };

    void referenceOrText(int code, const oddb::GroupView& group);
    const std::string& nameOf(const OdDbStub* record);
    void atom(int code, oddb::Atom atom);

    TagPrinter& m_tags;
    TextEncoder m_encoder;
    bool m_drops = false;
    OdDb::DwgVersion m_version = OdDb::kDHL_CURRENT;
    std::array<PrintedName, 64> m_names;        // each record has one place, which it shares with others
    std::uint64_t m_age = 0;                    // of the names that hold
    std::vector<std::string_view> m_plainAtoms; // by their numbers: the texts that need no encoding
};

} // namespace dxf
