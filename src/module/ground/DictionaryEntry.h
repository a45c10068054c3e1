// Setting and removing entries of runtime dictionaries by the rule that all stores of the module share.
#pragma once

#include "RxDictionary.h"

/** Puts the object under the key; null removes the key, and an empty key is passed over. */
inline void PutOrRemove(OdRxDictionary& dictionary, const OdString& strKey, OdRxObject* pObject)
{
    if (strKey.isEmpty())
        return;
    if (pObject)
        dictionary.putAt(strKey, pObject);
    else
        dictionary.remove(strKey);
}
