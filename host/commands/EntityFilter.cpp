// Tells which entities a search asks for.
#include "commands/EntityFilter.h"

#include <algorithm>

#include <re2/re2.h>

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbProxyEntity.h"
#include "OdError.h"
#include "commands/VisibleTexts.h"

namespace hostcommands
{

namespace
{

const OdChar* const kBlanks = L" \t";

// Patterns need memory and time in proportion to their own length and that of the text, within these bounds.
constexpr int kMostPatternCharacters = 10'000;
constexpr std::int64_t kMostPatternMemory = 16 << 20;

std::unique_ptr<re2::RE2> compile(const OdString& pattern, const OdString& name)
{
    if (pattern.isEmpty())
        return nullptr;
    if (pattern.getLength() > kMostPatternCharacters)
        throw OdError(eInvalidInput, name + L" is too long for a regular expression: \"" + pattern.left(40) + L"...\"");
    re2::RE2::Options options;
    options.set_max_mem(kMostPatternMemory);
    options.set_log_errors(false);
    auto compiled = std::make_unique<re2::RE2>(odStringToUtf8(pattern), options);
    if (!compiled->ok())
        throw OdError(eInvalidInput, name + L" is no regular expression: \"" + pattern + L"\": " +
                                         OdString(compiled->error().c_str()));
    return compiled;
}

bool isAmong(const OdString& name, const std::vector<OdString>& names)
{
    return std::any_of(names.begin(), names.end(),
                       [&name](const OdString& other) { return name.iCompare(other) == 0; });
}

bool matches(const OdString& text, const re2::RE2& pattern)
{
    return re2::RE2::PartialMatch(odStringToUtf8(text), pattern);
}

} // namespace

std::vector<OdString> splitAtCommas(const OdString& list)
{
    std::vector<OdString> parts;
    for (int begin = 0; begin <= list.getLength();)
    {
        const int comma = list.find(L',', begin);
        const int end = comma < 0 ? list.getLength() : comma;
        OdString part = list.mid(begin, end - begin);
        part.trimLeft(kBlanks).trimRight(kBlanks);
        if (!part.isEmpty())
            parts.push_back(part);
        begin = end + 1;
    }
    return parts;
}

EntityFilter::EntityFilter(const EntityCriteria& criteria)
    : m_types(criteria.types), m_layers(criteria.layers), m_text(compile(criteria.text, L"TEXT")),
      m_block(compile(criteria.block, L"BLOCK"))
{
}

EntityFilter::~EntityFilter() = default;

bool EntityFilter::admits(const OdDbObjectId& id) const
{
    if (!m_types.empty() && !admitsType(id))
        return false;
    if (m_layers.empty() && m_text == nullptr && m_block == nullptr)
        return true;
    const OdDbEntityPtr entity = OdDbEntity::cast(id.openObject());
    return !entity.isNull() && (m_layers.empty() || isAmong(entity->layer(), m_layers)) &&
           (m_text == nullptr || admitsText(*entity)) && (m_block == nullptr || admitsBlock(*entity));
}

bool EntityFilter::admitsType(const OdDbObjectId& id) const
{
    OdRxClass* const entityClass = id.objectClass();
    if (entityClass == nullptr)
        return false;
    if (entityClass->isDerivedFrom(OdDbProxyEntity::desc()))
    {
        // Proxies of all types are of one class.
        const OdDbProxyEntityPtr proxy = OdDbProxyEntity::cast(id.openObject());
        return !proxy.isNull() && isAmongTypes(proxy->originalDxfName());
    }
    const auto [entry, isNew] = m_admittedClasses.try_emplace(entityClass, false);
    if (isNew)
        entry->second = isAmongTypes(entityClass->dxfName());
    return entry->second;
}

bool EntityFilter::isAmongTypes(const OdString& dxfName) const
{
    return isAmong(dxfName, m_types);
}

bool EntityFilter::admitsText(const OdDbEntity& entity) const
{
    const std::vector<OdString> texts = visibleTextsOf(entity);
    return std::any_of(texts.begin(), texts.end(), [this](const OdString& text) { return matches(text, *m_text); });
}

bool EntityFilter::admitsBlock(const OdDbEntity& entity) const
{
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(&entity);
    if (reference.isNull())
        return false;
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(reference->blockTableRecord().openObject());
    return !block.isNull() && matches(block->getName(), *m_block);
}

} // namespace hostcommands
