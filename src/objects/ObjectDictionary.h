// The dictionary that a class keeps its objects in, under their GUIDs, within the drawing's named-objects dictionary.
#pragma once

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "ModuleErrors.h"

/** The dictionary of that name, open for read; it is created when it is missing. pszFunction is named by errors, which
    are those of the class Error: 20 "pNamedObjectsDictionary" and 20 "pDictionary" when there is none to be had; beside
    them OdError_InvalidArgument 122 "pDb" for null, and OdError_NotThatKindOfClass when something else has the name. */
template<class Error>
OdDbDictionaryPtr OpenObjectDictionary(const OdDbDatabase* pDb, const OdString& strName, const OdChar* pszFunction)
{
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
    const OdDbDictionaryPtr pNamedObjects = pDb->getNamedObjectsDictionaryId().openObject();
    if (!pNamedObjects)
        throw Error(eNullObjectPointer, L"pNamedObjectsDictionary", pszFunction);
    OdDbDictionaryPtr pDictionary = pNamedObjects->getAt(strName, OdDb::kForRead);
    if (!pDictionary)
    {
        pDictionary = OdDbDictionary::createObject();
        pNamedObjects->upgradeOpen();
        pNamedObjects->setAt(strName, pDictionary.get());
        pNamedObjects->downgradeOpen();
        pDictionary->downgradeOpen();
    }
    if (!pDictionary)
        throw Error(eNullObjectPointer, L"pDictionary", pszFunction);
    return pDictionary;
}

/** Puts an object under a key; the dictionary has to be open for read. Returns the object's id. */
inline OdDbObjectId PutInDictionary(OdDbDictionary& dictionary, const OdString& strKey, OdDbObject& object)
{
    dictionary.upgradeOpen();
    const OdDbObjectId id = dictionary.setAt(strKey, &object);
    dictionary.downgradeOpen();
    return id;
}
