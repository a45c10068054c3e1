// The dictionary of additional objects that any object may own.
#include "DatabaseImpl.h"
#include "DbDictionary.h"
#include "ObjectCore.h"
#include "OdError.h"

using oddb::ObjectCore;

OdDbObjectId OdDbObject::extensionDictionary() const
{
    assertReadEnabled();
    return ObjectCore::extensionDictionary(*this);
}

OdDbObjectId OdDbObject::createExtensionDictionary()
{
    assertWriteEnabled(false, false);
    if (!m_stub)
        throw OdError(eNotInDatabase);
    const OdDbObjectId present = ObjectCore::extensionDictionary(*this);
    if (isUndoing() || !present.isErased())
        return present;
    if (OdDbObjectPtr erased = present.openObject(OdDb::kForWrite, true))
    {
        erased->erase(false);
        return present;
    }
    assertWriteEnabled(false);
    OdDbDictionaryPtr dictionary = OdDbDictionary::createObject();
    const OdDbObjectId made = database()->addOdDbObject(dictionary, objectId());
    dictionary->setTreatElementsAsHard(true);
    database()->impl().journal.recordExtensionDictionary(*m_stub, present);
    ObjectCore::putExtensionDictionary(*this, made);
    return made;
}

bool OdDbObject::releaseExtensionDictionary()
{
    assertWriteEnabled(false, false);
    const OdDbObjectId present = ObjectCore::extensionDictionary(*this);
    if (isUndoing() || present.isErased())
        return false;
    const OdDbDictionaryPtr dictionary = present.safeOpenObject(OdDb::kForWrite);
    return dictionary->numEntries() == 0 && dictionary->erase() == eOk;
}
