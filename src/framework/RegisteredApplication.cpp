// The table of registered applications and the command on it.
#include "framework/RegisteredApplication.h"

#include "DbDatabase.h"
#include "DbRegAppTable.h"
#include "DbRegAppTableRecord.h"
#include "ModuleErrors.h"
#include "RxSystemServices.h"
#include "module/ground/Messages.h"
#include "module/ground/Text.h"

static constexpr FrameCheckRow kChecks[] = {
    kContextIsDrawingContext,
    {EFrameCheck::HasDatabase, eNoDatabase, L"pDb"},
    {EFrameCheck::HasFunctionIO, eNullPtr, L"pFunctionIO"},
};

static constexpr CommandRow kRegister = {L"CCommandRegisterCustomApplication", CommandGroup::kExtendedData,
                                         L"REGISTERCUSTOMAPPLICATION", eCommandFlagTransaction | eCommandFlagNoUndo};
static constexpr const OdChar* kRegisterFunction = L"CCommandRegisterCustomApplication::execute";

static void AddRecord(OdDbRegAppTable& table, const OdString& strName, const OdChar* pszFunction)
{
    const OdDbRegAppTableRecordPtr pRecord = OdDbRegAppTableRecord::createObject();
    if (!pRecord)
        throw OdError_InvalidValue(eNullObjectPointer, L"pRegAppTableRecord", pszFunction);
    pRecord->setName(strName);
    table.upgradeOpen();
    table.add(pRecord.get());
    table.downgradeOpen();
}

void RegisterApplication(OdDbDatabase& db, const OdString& strName, const OdChar* pszFunction)
{
    const OdDbRegAppTablePtr pTable = OdDbRegAppTable::cast(db.getRegAppTableId().openObject().get());
    if (!pTable)
        throw OdError_InvalidValue(eNullObjectPointer, L"pRegAppTable", pszFunction);
    if (!pTable->has(strName))
        AddRecord(*pTable, strName, pszFunction);
}

CCommandRegisterCustomApplication::CCommandRegisterCustomApplication() : CCommand(kRegister, kChecks) {}

static OdString ReadName(const OdResBufPtr& pParameters)
{
    OdString strValue;
    CadCommands::WalkParameters(pParameters,
                                [&](const OdString& strName, OdResBufPtr& pElement)
                                {
                                    if (strName != L"NAME")
                                        return false;
                                    pElement = CadCommands::ResBufGetOdString(pElement, strValue);
                                    return true;
                                });
    return strValue;
}

void CCommandRegisterCustomApplication::Work(CCommandCall& call)
{
    const bool bHasParameters = !call.FunctionIO()->param().isNull();
    OdString strName = bHasParameters ? ReadName(call.Parameters())
                                      : call.AskString(odSystemServices()->formatMessage(eMessageApplicationName));
    strName = Trimmed(strName);
    if (strName.isEmpty())
        strName = kDefaultApplication;
    RegisterApplication(*call.Database(), strName, kRegisterFunction);
}
