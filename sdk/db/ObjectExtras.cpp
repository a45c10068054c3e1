// The XData of one object: most have one application, whose entry stands in the list itself.
#include "ObjectExtras.h"

#include <algorithm>

namespace oddb
{

const XDataEntry* XDataList::find(const OdDbStub* application) const
{
    for (std::size_t i = 0; i < size(); ++i)
        if ((*this)[i].application == application)
            return &(*this)[i];
    return nullptr;
}

void XDataList::put(OdDbStub* application, Groups values)
{
    if (const XDataEntry* entry = find(application))
        const_cast<XDataEntry*>(entry)->values = std::move(values);
    else
        insert(size(), application, std::move(values));
}

void XDataList::insert(std::size_t index, OdDbStub* application, Groups values)
{
    XDataEntry entry{application, std::move(values)};
    if (empty())
    {
        m_first = std::move(entry);
        return;
    }
    if (!m_more)
        m_more = std::make_unique<std::vector<XDataEntry>>();
    if (index == 0)
    {
        std::swap(m_first, entry);
        index = 1;
    }
    const std::size_t place = std::min(index - 1, m_more->size());
    m_more->insert(m_more->begin() + static_cast<std::ptrdiff_t>(place), std::move(entry));
}

void XDataList::remove(const OdDbStub* application)
{
    if (m_first.application == application)
    {
        m_first = XDataEntry();
        if (m_more)
        {
            m_first = std::move(m_more->front());
            m_more->erase(m_more->begin());
        }
    }
    else if (m_more)
        std::erase_if(*m_more, [&](const XDataEntry& entry) { return entry.application == application; });
    if (m_more && m_more->empty())
        m_more.reset();
}

std::size_t XDataList::place(const OdDbStub* application) const
{
    std::size_t index = 0;
    while (index < size() && (*this)[index].application != application)
        ++index;
    return index;
}

} // namespace oddb
