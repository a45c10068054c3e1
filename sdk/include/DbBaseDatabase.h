// What databases of any kind can be asked for.
#pragma once

#include "RxObject.h"

class OdUnitsFormatter;

/** An OdDbBaseDatabasePE is the protocol extension through which a database is asked for what does not depend on its
    kind. OdDbDatabase has one. */
class OdDbBaseDatabasePE : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbBaseDatabasePE);

    /** The formatter that follows the settings of the database, as they are whenever it is used. It lives as long as
       the database. Null for a null database and one of another kind. */
    virtual OdUnitsFormatter* baseFormatter(OdRxObject* database) const = 0;
};
using OdDbBaseDatabasePEPtr = OdSmartPtr<OdDbBaseDatabasePE>;
