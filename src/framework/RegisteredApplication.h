// Registering applications in a drawing, which objects need before they take extended data of them.
#pragma once

#include "framework/Command.h"

/** The application whose extended data marks the objects of this module. */
inline constexpr const OdChar* kDefaultApplication = L"terraSHAPING";

/** Makes an application known to the drawing; one that is known already stays as it is. pszFunction is named by errors:
    OdError_InvalidValue (20) "pRegAppTable" when the drawing has no such table, "pRegAppTableRecord" when no record can
   be made; the SDK's own when its record class is not loaded. */
void RegisterApplication(OdDbDatabase& db, const OdString& strName, const OdChar* pszFunction);

/** "REGISTERCUSTOMAPPLICATION": registers the application "NAME", or terraSHAPING when that is missing or empty.
   Without any parameter object the user is asked for the name. */
class CCommandRegisterCustomApplication : public CCommand
{
public:
    CCommandRegisterCustomApplication();

protected:
    void Work(CCommandCall& call) override;
};
