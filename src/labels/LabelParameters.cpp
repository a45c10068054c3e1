// One row for each parameter: its name and how its value is read.
#include "labels/LabelParameters.h"

#include <functional>

#include "module/ground/Text.h"

namespace
{

using ReadValue = OdResBufPtr (*)(const OdResBufPtr& pElement, OdDbDatabase* pDb, LabelParameters& parameters);

struct ParameterRow
{
    ELabelParameter eParameter;
    const OdChar* pszName;
    ReadValue read;
};

template<OdString LabelParameters::*Field>
OdResBufPtr ReadTrimmed(const OdResBufPtr& pElement, OdDbDatabase*, LabelParameters& parameters)
{
    OdResBufPtr pNext = CadCommands::ResBufGetOdString(pElement, parameters.*Field);
    parameters.*Field = Trimmed(parameters.*Field);
    return pNext;
}

constexpr ParameterRow kParameters[] = {
    {eParameterAllowDeleted, L"ALLOWDELETED",
     [](const OdResBufPtr& pElement, OdDbDatabase*, LabelParameters& parameters)
     { return CadCommands::ResBufGetBool(pElement, parameters.bAllowDeleted); }},
    {eParameterGuid, L"GUID", &ReadTrimmed<&LabelParameters::strGuid>},
    {eParameterHandle, L"HANDLE", &ReadTrimmed<&LabelParameters::strHandle>},
    {eParameterName, L"NAME", &ReadTrimmed<&LabelParameters::strName>},
    {eParameterObjectId, L"OBJECTID",
     [](const OdResBufPtr& pElement, OdDbDatabase* pDb, LabelParameters& parameters)
     { return CadCommands::ResBufGetObjectId(pElement, pDb, parameters.idObject); }},
    {eParameterObjectIdArray, L"OBJECTIDARRAY",
     [](const OdResBufPtr& pElement, OdDbDatabase* pDb, LabelParameters& parameters)
     { return CadCommands::ResBufGetObjectIdArray(pElement, pDb, parameters.ids); }},
    {eParameterSelectionSetName, L"SELECTIONSETNAME",
     [](const OdResBufPtr& pElement, OdDbDatabase*, LabelParameters& parameters)
     { return CadCommands::ResBufGetOdString(pElement, parameters.strSelectionSetName); }},
};

const ParameterRow* FindRow(const OdString& strName, unsigned uiKnown)
{
    for (const ParameterRow& row : kParameters)
        if ((row.eParameter & uiKnown) && strName.iCompare(row.pszName) == 0)
            return &row;
    return nullptr;
}

} // namespace

LabelParameters ReadLabelParameters(CCommandCall& call, unsigned uiKnown)
{
    LabelParameters parameters;
    const auto Read = [&](const OdString& strName, OdResBufPtr& pElement)
    {
        const ParameterRow* pRow = FindRow(strName, uiKnown);
        if (!pRow)
            return false;
        pElement = pRow->read(pElement, call.Database(), parameters);
        parameters.uiGiven |= pRow->eParameter;
        return true;
    };
    CadCommands::WalkParameters(call.Parameters(), std::cref(Read));
    return parameters;
}
