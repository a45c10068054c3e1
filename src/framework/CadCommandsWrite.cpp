// Makes the entries of parameter and result chains.
#include "ModuleErrors.h"
#include "framework/CadCommands.h"

namespace
{

// Begins an entry with its name and hands back where the value goes.
class EntryWriter
{
public:
    EntryWriter(const OdString& strName, const OdChar* pszFunction)
    {
        if (strName.isEmpty())
            throw OdError_InvalidArgument(eEmptyName, L"strName", pszFunction);
        m_pHead = OdResBuf::newRb(OdResBuf::kRtString, strName);
        m_pTail = m_pHead.get();
    }

    template<class Value>
    EntryWriter& Add(int iType, const Value& value)
    {
        Link(OdResBuf::newRb(iType, value));
        return *this;
    }
    OdResBuf& AddElement(int iType)
    {
        Link(OdResBuf::newRb(iType));
        return *m_pTail;
    }
    EntryWriter& AddPointer(const void* pValue)
    {
        return Add(OdResBuf::kRtInt64, static_cast<OdInt64>(reinterpret_cast<OdIntPtr>(pValue)));
    }
    OdResBufPtr Entry() { return std::move(m_pHead); }

private:
    void Link(const OdResBufPtr& pElement)
    {
        m_pTail->setNext(pElement.get());
        m_pTail = pElement.get();
    }

    OdResBufPtr m_pHead;
    OdResBuf* m_pTail = nullptr;
};

} // namespace

OdResBufPtr CadCommands::SetParameterOdString(const OdString& strName, const OdString& value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterOdString").Add(OdResBuf::kRtString, value).Entry();
}

OdResBufPtr CadCommands::SetParameterVoidPtr(const OdString& strName, const void* value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterVoidPtr").AddPointer(value).Entry();
}

OdResBufPtr CadCommands::SetParameterBool(const OdString& strName, bool value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterBool").Add(OdResBuf::kRtBool, value).Entry();
}

OdResBufPtr CadCommands::SetParameterInt32(const OdString& strName, OdInt32 value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterInt32").Add(OdResBuf::kRtInt32, value).Entry();
}

OdResBufPtr CadCommands::SetParameterObjectId(const OdString& strName, const OdDbObjectId& value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterObjectId").Add(OdResBuf::kRtObjectId, value).Entry();
}

OdResBufPtr CadCommands::SetParameterObjectIdArray(const OdString& strName, const OdDbObjectIdArray& value)
{
    EntryWriter writer(strName, L"CadCommands::SetParameterObjectIdArray");
    for (const OdDbObjectId& id : value)
        writer.Add(OdResBuf::kRtObjectId, id);
    return writer.Entry();
}

OdResBufPtr CadCommands::SetParameterObjectPtr(const OdString& strName, OdRxObject* value)
{
    EntryWriter writer(strName, L"CadCommands::SetParameterObjectPtr");
    if (const OdResBufPtr pChain = OdResBuf::cast(value))
        return writer.Add(OdResBuf::kRtResBuf, pChain).Entry();
    return writer.AddPointer(value).Entry();
}

OdResBufPtr CadCommands::SetParameterDbSelectionSet(const OdString& strName, OdDbSelectionSet* value)
{
    constexpr const OdChar* pszFunction = L"CadCommands::SetParameterDbSelectionSet";
    EntryWriter writer(strName, pszFunction);
    if (!value)
        throw OdError_InvalidArgument(eNullObjectPointer, L"pSelectionSet", pszFunction);
    writer.AddElement(OdResBuf::kRtPickSet).setPickSet(value);
    return writer.Entry();
}

OdResBufPtr CadCommands::SetParameterOdGePoint3d(const OdString& strName, const OdGePoint3d& value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterOdGePoint3d").Add(OdResBuf::kRtPoint3d, value).Entry();
}

OdResBufPtr CadCommands::SetParameterOdGeExtents3d(const OdString& strName, const OdGeExtents3d& value)
{
    return EntryWriter(strName, L"CadCommands::SetParameterOdGeExtents3d")
        .Add(OdResBuf::kRtPoint3d, value.minPoint())
        .Add(OdResBuf::kRtPoint3d, value.maxPoint())
        .Entry();
}

void CadCommands::Append(OdResBufPtr& pChain, const OdResBufPtr& pEntry)
{
    if (!pChain)
        pChain = pEntry;
    else if (pEntry)
        pChain->last()->setNext(pEntry.get());
}
