// GUIDs as text: 36 characters without braces. They are the keys under which dictionaries hold the objects of this
// module.
#pragma once

#include "OdString.h"

class OdDbDictionary;
class OdDbFiler;
class OdDbObject;

/** True for the GUID of zeros, which stands for none. */
bool IsNullGuid(const OdString& strGuid);

/** A new GUID. */
OdString CreateGuid();

/** True while the journal puts a recorded state back into the object through this filer: the state is taken as it is,
    and dictionaries are left alone. */
bool IsPutBack(const OdDbObject& object, const OdDbFiler& filer);

/** True when the object is a copy of another one of its drawing and cannot have the GUID that the filer brings, for in
    the dictionary this is the key of the other one (a copy that is not resident has none to look into: null). */
bool NeedsOwnGuid(const OdDbObject& object, const OdDbFiler& filer, const OdString& strGuid,
                  const OdDbDictionary* pDictionary);
