// Runs ahead through tables and blocks.
#include "TableSeeds.h"

#include "DbHandle.h"
#include "Numbers.h"

namespace dxf
{
namespace
{

// Reads up to the next group 0 and collects handle and name on the way.
class SeedReader
{
public:
    SeedReader(TagScanner& scanner, TextDecoder& decoder) : m_scanner(scanner), m_decoder(decoder)
    {
        while (m_scanner.next(m_tag) && m_tag.code != 0)
            continue;
        m_name = m_tag.code == 0 ? trimmed(m_tag.text) : "EOF";
    }

    bool atEnd() const { return m_name == "ENDSEC" || m_name == "SECTION" || m_name == "EOF"; }

    RecordSeed read()
    {
        RecordSeed seed;
        seed.kind = m_name;
        bool hasName = false;
        const int handleCode = m_name == "DIMSTYLE" ? 105 : 5;
        m_name = "EOF";
        while (m_scanner.next(m_tag))
        {
            if (m_tag.code == 0)
            {
                m_name = trimmed(m_tag.text);
                break;
            }
            OdDbHandle handle;
            if (m_tag.code == handleCode && seed.handle == 0 && OdDbHandle::parse(m_tag.text, handle))
                seed.handle = handle;
            if (m_tag.code != 2 || hasName)
                continue;
            hasName = true;
            seed.name = m_decoder.decode(m_tag.text);
        }
        return seed;
    }

private:
    TagScanner& m_scanner;
    TextDecoder& m_decoder;
    Tag m_tag;
    std::string m_name;
};

} // namespace

std::vector<TableSeed> collectTables(TagScanner& scanner, TextDecoder& decoder)
{
    std::vector<TableSeed> tables;
    for (SeedReader reader(scanner, decoder); !reader.atEnd();)
    {
        RecordSeed seed = reader.read();
        if (seed.kind == "TABLE")
            tables.push_back({std::string(trimmed(seed.name)), seed.handle, {}});
        else if (tables.empty())
            tables.push_back({{}, 0, {std::move(seed)}});
        else
            tables.back().records.push_back(std::move(seed));
    }
    return tables;
}

std::vector<RecordSeed> collectBlocks(TagScanner& scanner, TextDecoder& decoder)
{
    std::vector<RecordSeed> blocks;
    for (SeedReader reader(scanner, decoder); !reader.atEnd();)
    {
        RecordSeed seed = reader.read();
        if (seed.kind == "BLOCK")
            blocks.push_back(std::move(seed));
    }
    return blocks;
}

} // namespace dxf
