// GUIDs as text: 36 characters without braces. They are the keys under which dictionaries hold the objects of this
// module.
#pragma once

#include <functional>

#include "OdString.h"
#include "SmartPtr.h"

class OdDbDatabase;
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

/** What an object does with a GUID that a filer brings. */
struct GuidReading
{
    OdString strGuid;
    bool bMoves; ///< the dictionary entry moves to the GUID; else that is taken as it is
};

/** Decides that: states that are put back are taken as they are. A copy of another object of the same drawing cannot
   have the GUID that is read, for this is the other one's key in the dictionary: it keeps the one that it has, or gets
   a new one. strPresent is what the object has; getDictionary gives the dictionary of a resident object's drawing, and
   is not called for states that are put back. */
GuidReading ReadGuid(const OdDbObject& object, const OdDbFiler& filer, const OdString& strRead,
                     const OdString& strPresent,
                     const std::function<OdSmartPtr<OdDbDictionary>(const OdDbDatabase*)>& getDictionary);
