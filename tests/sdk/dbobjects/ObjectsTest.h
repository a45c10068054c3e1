// What the tests of dictionaries, tables and blocks share: a new drawing, undo records, errors by their code.
#pragma once

#include <gtest/gtest.h>

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbXrecord.h"
#include "db/DatabaseImpl.h"
#include "db/ObjectCore.h"
#include "support/ErrorCode.h"
#include "support/Sdk.h"

namespace objectstest
{

class ObjectsTest : public testing::Test
{
protected:
    ObjectsTest()
    {
        support::startSdk();
        database = OdDbDatabase::createObject();
        database->initialize();
    }

    OdDbDictionaryPtr openRoot(OdDb::OpenMode mode = OdDb::kForWrite) const
    {
        return OdDbDictionaryPtr(database->getNamedObjectsDictionaryId().safeOpenObject(mode));
    }

    /// A new dictionary under the root.
    OdDbObjectId makeDictionary(const OdChar* name = L"TESTED") const
    {
        return openRoot()->setAt(name, OdDbDictionary::createObject());
    }

    template<class T = OdDbObject>
    static OdSmartPtr<T> open(const OdDbObjectId& id, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return OdSmartPtr<T>(id.safeOpenObject(mode, true));
    }

    /// Runs the changes in an undo record of their own.
    template<class Change>
    void recorded(Change change) const
    {
        database->startUndoRecord();
        change();
    }

    OdDbDatabasePtr database;
};

using support::codeOf;

} // namespace objectstest
