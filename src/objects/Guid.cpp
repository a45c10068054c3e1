// New GUIDs come from the system services, which put braces around them.
#include "objects/Guid.h"

#include "RxSystemServices.h"

bool IsNullGuid(const OdString& strGuid)
{
    return strGuid.iCompare(L"00000000-0000-0000-0000-000000000000") == 0;
}

OdString CreateGuid()
{
    OdString strGuid = odSystemServices()->createGuid();
    strGuid.trimLeft(L'{');
    strGuid.trimRight(L'}');
    return strGuid;
}
