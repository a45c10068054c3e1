// The keywords of the choice and the query command behind each.
#include "labels/LabelChoice.h"

#include "DbDatabase.h"
#include "Ed/EdException.h"
#include "RxSystemServices.h"
#include "labels/LabelParameters.h"
#include "labels/Labels.h"
#include "module/ground/Messages.h"
#include "module/ground/Text.h"

namespace
{

// How a keyword finds labels: the command, whether it gives one id or many, and the parameter it needs.
struct ChoiceRow
{
    const OdChar* pszCommand;
    bool bManyIds;
    ELabelParameter eParameter;
    const OdChar* pszParameter;
    OdString LabelParameters::*pField;
    EMessage ePrompt; ///< asks for the parameter when the caller gave none
};

constexpr EMessage kNotAsked = EMessage();

// In the order of the keywords in message 1013.
constexpr ChoiceRow kChoices[] = {
    {L"BSYSTEMLABELGETALLIDS", true, eParameterNone, nullptr, nullptr, kNotAsked},
    {L"BSYSTEMLABELGETSELECTEDIDS", true, eParameterSelectionSetName, L"SELECTIONSETNAME",
     &LabelParameters::strSelectionSetName, kNotAsked},
    {L"BSYSTEMLABELGETIDFROMHANDLE", false, eParameterHandle, L"HANDLE", &LabelParameters::strHandle,
     eMessageLabelHandle},
    {L"BSYSTEMLABELGETIDFROMGUID", false, eParameterGuid, L"GUID", &LabelParameters::strGuid, eMessageLabelGuid},
    {L"BSYSTEMLABELGETIDFROMNAME", false, eParameterName, L"NAME", &LabelParameters::strName, eMessageLabelName},
};

OdString Message(EMessage eMessage)
{
    return odSystemServices()->formatMessage(eMessage);
}

OdString ComposePrompt(const OdString& strKeywords)
{
    OdString strHint;
    strHint.format(L"[%ls]", strKeywords.c_str());
    strHint.replace(L' ', L'/');
    strHint += L" ";
    return odSystemServices()->formatMessage(eMessageChooseLabels, strHint.c_str());
}

OdResBufPtr ComposeParameters(CCommandCall& call, const ChoiceRow& row)
{
    const LabelParameters parameters = ReadLabelParameters(call, eParameterAllowDeleted | row.eParameter);
    OdResBufPtr pChain = CadCommands::SetParameterBool(L"ALLOWDELETED", parameters.bAllowDeleted);
    const bool bGiven = parameters.uiGiven & row.eParameter;
    if (bGiven)
        CadCommands::Append(pChain, CadCommands::SetParameterOdString(row.pszParameter, parameters.*row.pField));
    else if (row.ePrompt != kNotAsked)
        CadCommands::Append(pChain,
                            CadCommands::SetParameterOdString(row.pszParameter, call.AskString(Message(row.ePrompt))));
    return pChain;
}

OdDbObjectIdArray ListOf(const OdDbObjectId& id)
{
    OdDbObjectIdArray ids;
    if (!id.isNull())
        ids.append(id);
    return ids;
}

OdDbObjectIdArray ChooseByKeyword(CCommandCall& call, int iKeyword)
{
    if (iKeyword < 0 || iKeyword >= static_cast<int>(std::size(kChoices)))
        return OdDbObjectIdArray();
    const ChoiceRow& row = kChoices[iKeyword];
    const OdResBufPtr pParameters = ComposeParameters(call, row);
    return row.bManyIds ? CallForIds(call, row.pszCommand, pParameters)
                        : ListOf(CallForId(call, row.pszCommand, pParameters));
}

OdDbObjectIdArray ChooseByHandle(CCommandCall& call, const OdString& strAnswer)
{
    const OdDbObjectId id = call.Database()->getOdDbObjectId(OdDbHandle(Trimmed(strAnswer)), false);
    return id.isValid() ? ListOf(id) : OdDbObjectIdArray();
}

} // namespace

OdDbObjectIdArray ChooseLabels(CCommandCall& call)
{
    const OdString strKeywords = Message(eMessageLabelKeywords);
    int iKeyword = -1;
    try
    {
        return ChooseByHandle(call, call.AskString(ComposePrompt(strKeywords), strKeywords));
    }
    catch (const OdEdKeyword& keyword)
    {
        iKeyword = keyword.keywordIndex();
    }
    return ChooseByKeyword(call, iKeyword);
}

OdDbObjectIdArray GivenOrChosenLabels(CCommandCall& call, const LabelParameters& parameters)
{
    return parameters.uiGiven & eParameterObjectIdArray ? parameters.ids : ChooseLabels(call);
}
