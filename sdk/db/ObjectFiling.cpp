// How an object reads and writes what belongs to every object, and the groups of the classes that keep groups.
//
//   DWG-style, all filers but the undo filer, which leaves all of this to steps of its own:
//     owner (soft pointer), number of reactors (32 bits), reactors (soft pointers), extension dictionary (hard owner),
//     number of applications (32 bits), for each: its record (hard pointer), its values as a row of groups,
//     the name of a proxy's object (string), empty for others
//   DXF:
//     5 handle, 102 {ACAD_XDICTIONARY 360 102 }, 102 {ACAD_REACTORS 330... 102 }, 330 owner, the class's groups,
//     1001 application and values...
#include "DatabaseImpl.h"
#include "DbFiler.h"
#include "DbObject.h"
#include "DxfClassTable.h"
#include "GroupsFiling.h"
#include "MemoryFilers.h"
#include "ObjectCore.h"
#include "OdError.h"
#include "Proxies.h"

namespace oddb
{

namespace
{

// ---- DWG-style -----------------------------------------------------------------------------------------------------

void writeReactors(OdDbDwgFiler& filer, const ObjectExtras* extras)
{
    filer.wrInt32(static_cast<OdInt32>(extras ? extras->reactors.size() : 0));
    if (extras)
        extras->reactors.visit([&](OdDbStub* reactor) { filer.wrSoftPointerId(reactor); });
}

void writeXData(OdDbDwgFiler& filer, const ObjectExtras* extras)
{
    const std::size_t count = extras ? extras->xdata.size() : 0;
    filer.wrInt32(static_cast<OdInt32>(count));
    for (std::size_t i = 0; i < count; ++i)
    {
        filer.wrHardPointerId(extras->xdata[i].application);
        writeGroups(filer, extras->xdata[i].values);
    }
}

void writeCommon(OdDbDwgFiler& filer, const OdDbObject& object)
{
    const ObjectExtras* extras = ObjectCore::extras(object);
    filer.wrSoftPointerId(ObjectCore::owner(object));
    writeReactors(filer, extras);
    filer.wrHardOwnershipId(extras ? extras->extensionDictionary : nullptr);
    writeXData(filer, extras);
    filer.wrString(odUtf8ToString(proxyDxfName(object)));
}

OdInt32 readCount(OdDbDwgFiler& filer)
{
    const OdInt32 count = filer.rdInt32();
    if (count < 0)
        throw OdError(eDwgObjectImproperlyRead);
    return count;
}

void readCommon(OdDbDwgFiler& filer, OdDbObject& object)
{
    ObjectCore::dropExtras(object);
    ObjectCore::putOwner(object, stubOf(filer.rdSoftPointerId()));
    for (OdInt32 left = readCount(filer); left > 0; --left)
        if (OdDbStub* reactor = stubOf(filer.rdSoftPointerId()))
            ObjectCore::putReactor(object, reactor);
    ObjectCore::putExtensionDictionary(object, stubOf(filer.rdHardOwnershipId()));
    for (OdInt32 left = readCount(filer); left > 0; --left)
    {
        OdDbStub* application = stubOf(filer.rdHardPointerId());
        Groups values = readGroups(filer);
        if (application)
            ObjectCore::putXData(object, application, std::move(values));
    }
    nameProxy(object, odStringToUtf8(filer.rdString()));
}

// ---- DXF -----------------------------------------------------------------------------------------------------------

void writeExtensionDictionary(OdDbDxfFiler& filer, const ObjectExtras& extras)
{
    if (!extras.extensionDictionary)
        return;
    filer.wrString(102, L"{ACAD_XDICTIONARY");
    filer.wrObjectId(360, extras.extensionDictionary);
    filer.wrString(102, L"}");
}

void writeReactors(OdDbDxfFiler& filer, const ObjectExtras& extras)
{
    if (extras.reactors.empty())
        return;
    filer.wrString(102, L"{ACAD_REACTORS");
    extras.reactors.visit([&](OdDbStub* reactor) { filer.wrObjectId(330, reactor); });
    filer.wrString(102, L"}");
}

void writeXData(OdDbDxfFiler& filer, const ObjectExtras& extras)
{
    for (std::size_t i = 0; i < extras.xdata.size(); ++i)
    {
        filer.wrString(1001, odUtf8ToString(symbolName(extras.xdata[i].application)));
        writeGroups(filer, extras.xdata[i].values);
    }
}

// Reads the groups between {NAME and }; hands each reference among them to put.
template<class Put>
void readReferences(OdDbDxfFiler& filer, Put put)
{
    while (!filer.atEOF() && filer.nextItem() != 102)
        put(stubOf(filer.rdObjectId()));
}

// Returns what is of no use to all objects but belongs to this one.
Groups readApplicationData(OdDbDxfFiler& filer, OdDbObject& object)
{
    const OdString name = filer.rdString();
    if (name == L"{ACAD_REACTORS")
        readReferences(filer,
                       [&](OdDbStub* reactor)
                       {
                           if (reactor)
                               ObjectCore::putReactor(object, reactor);
                       });
    else if (name == L"{ACAD_XDICTIONARY")
        readReferences(filer, [&](OdDbStub* dictionary) { ObjectCore::putExtensionDictionary(object, dictionary); });
    else
        return oddb::readApplicationData(filer);
    return {};
}

Groups joined(const Groups& first, const Groups& second)
{
    GroupsBuilder builder;
    return builder.append(first).append(second).build();
}

// Reads what stands in front of the first subclass marker, which is left to the class. Returns the data of
// applications.
Groups readHead(OdDbDxfFiler& filer, OdDbObject& object)
{
    GroupsBuilder kept;
    while (!filer.atEOF())
    {
        const int code = filer.nextItem();
        if (code == 102)
            kept.append(readApplicationData(filer, object));
        else if (code == 330)
            ObjectCore::putOwner(object, stubOf(filer.rdObjectId()));
        else if (code != 0 && code != 5 && code != 105)
        {
            filer.pushBackItem();
            break;
        }
    }
    return kept.build();
}

void readXData(OdDbDxfFiler& filer, OdDbObject& object)
{
    while (filer.atExtendedData())
    {
        filer.nextItem();
        const std::string name = odStringToUtf8(filer.rdString());
        OdDbStub* application = filer.database() ? findSymbol(*filer.database(), SymbolTable::RegApp, name) : nullptr;
        if (!application)
            throw OdError(eRegappIdNotFound);
        ObjectCore::putXData(object, application, readGroups(filer));
    }
}

} // namespace

} // namespace oddb

using oddb::ObjectCore;

// ---- DWG-style -----------------------------------------------------------------------------------------------------

OdResult OdDbObject::dwgIn(OdDbDwgFiler* filer)
{
    assertWriteEnabled();
    try
    {
        return dwgInFields(filer);
    }
    catch (const OdError& error)
    {
        return error.code();
    }
}

void OdDbObject::dwgOut(OdDbDwgFiler* filer) const
{
    assertReadEnabled();
    dwgOutFields(filer);
}

OdResult OdDbObject::dwgInFields(OdDbDwgFiler* filer)
{
    if (filer->filerType() != OdDbFiler::kUndoFiler)
        oddb::readCommon(*filer, *this);
    if (keepsGroups())
        ObjectCore::putGroups(*this, oddb::readGroups(*filer));
    return eOk;
}

void OdDbObject::dwgOutFields(OdDbDwgFiler* filer) const
{
    if (filer->filerType() != OdDbFiler::kUndoFiler)
        oddb::writeCommon(*filer, *this);
    if (keepsGroups())
        oddb::writeGroups(*filer, ObjectCore::groups(*this));
}

// ---- DXF -----------------------------------------------------------------------------------------------------------

OdResult OdDbObject::dxfIn(OdDbDxfFiler* filer)
{
    assertWriteEnabled();
    try
    {
        const oddb::Groups kept = oddb::readHead(*filer, *this);
        if (const OdResult result = dxfInFields(filer); result != eOk)
            return result;
        if (keepsGroups() && kept)
            ObjectCore::putGroups(*this, oddb::joined(kept, ObjectCore::groups(*this)));
        oddb::readXData(*filer, *this);
        return eOk;
    }
    catch (const OdError& error)
    {
        return error.code();
    }
}

void OdDbObject::dxfOut(OdDbDxfFiler* filer) const
{
    assertReadEnabled();
    if (m_stub)
        filer->wrHandle(5, objectHandle());
    if (m_extras)
    {
        oddb::writeExtensionDictionary(*filer, *m_extras);
        oddb::writeReactors(*filer, *m_extras);
    }
    filer->wrObjectId(330, m_owner);
    dxfOutFields(filer);
    if (m_extras)
        oddb::writeXData(*filer, *m_extras);
}

OdResult OdDbObject::dxfInFields(OdDbDxfFiler* filer)
{
    if (keepsGroups())
        ObjectCore::putGroups(*this, oddb::readGroups(*filer, oddb::dxfClassOf(*this)));
    return eOk;
}

void OdDbObject::dxfOutFields(OdDbDxfFiler* filer) const
{
    if (keepsGroups())
        oddb::writeGroups(*filer, ObjectCore::groups(*this));
}

// ---- Copies in memory ----------------------------------------------------------------------------------------------

OdRxObjectPtr OdDbObject::clone() const
{
    assertReadEnabled();
    OdDbObjectPtr copy = isA()->create();
    copy->copyFrom(this);
    return copy;
}

void OdDbObject::copyFrom(const OdRxObject* source)
{
    const OdDbObjectPtr original = OdDbObject::cast(source);
    if (original.isNull() || !isA() || original->isA() != isA())
        throw OdError_NotThatKindOfClass(source ? source->isA() : nullptr, isA());
    assertWriteEnabled();
    OdSmartPtr<oddb::MemoryDwgFiler> filer = oddb::MemoryDwgFiler::create(OdDbFiler::kCopyFiler, original->database());
    original->dwgOutFields(filer);
    filer->beginReading(OdDbFiler::kCopyFiler, original->database());
    const ObjectCore::KeptCommon kept(*this);
    if (const OdResult result = dwgInFields(filer); result != eOk)
        throw OdError(result);
}
