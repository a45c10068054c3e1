// What filers do unless they know better.
#include "DbFiler.h"

#include "OdError.h"

OdDbDatabase* OdDbFiler::database() const
{
    return nullptr;
}

OdDb::DwgVersion OdDbFiler::dwgVersion(OdDb::MaintReleaseVer* maintenance) const
{
    if (maintenance)
        *maintenance = OdDb::kMReleaseCurrent;
    return OdDb::kDHL_CURRENT;
}

bool OdDbFiler::usesReferences() const
{
    return false;
}

void OdDbFiler::addReference(OdDbObjectId, OdDb::ReferenceType) {}

void* OdDbDwgFiler::rdAddress()
{
    throw OdError(eNotApplicable);
}

void OdDbDwgFiler::wrAddress(const void*)
{
    throw OdError(eNotApplicable);
}

void OdDbDxfFiler::wrStringOpt(int groupCode, const OdString& value)
{
    if (!value.isEmpty() || includesDefaultValues())
        wrString(groupCode, value);
}
