// Asks for texts and keywords through whatever the handler exposes.
#include "UserIO.h"

#include "CommandHandler.h"
#include "DbBaseDatabase.h"
#include "DynamicLinker.h"
#include "Ed/EdBaseIO.h"
#include "ModuleErrors.h"
#include "RxObjectImpl.h"
#include "module/ground/ModuleName.h"
#include "userio/KeywordList.h"
#include "userio/Options.h"

ODRX_CONS_DEFINE_MEMBERS(CUserIO, OdDbUserIO, RXIMPL_CONSTR)

CUserIOPtr CUserIO::createObject(CCommandHandler* pHandler)
{
    CUserIOPtr pUserIO = createObject();
    pUserIO->Init(pHandler);
    return pUserIO;
}

void CUserIO::Init(CCommandHandler* pHandler)
{
    m_pHandler = pHandler;
    static const OdString strModule(kModuleName);
    m_pModule = odrxDynamicLinker()->lookupModule(strModule);
    if (!m_pModule)
        throw OdError_ModuleInitialization(eNullPtr, kModuleName, L"CUserIO::Init");
}

OdEdBaseIO& CUserIO::CurrentIO()
{
    if (!m_pHandler)
        throw OdError_InvalidArgument(eNullPtr, L"pEdCommandContext", L"CUserIO::CurrentIO");
    return *m_pHandler->currentIO();
}

OdDbDatabase* CUserIO::Database() const
{
    return m_pHandler ? m_pHandler->database() : nullptr;
}

OdUnitsFormatter& CUserIO::baseFormatter()
{
    const OdDbBaseDatabasePEPtr pExtension = OdDbBaseDatabasePE::cast(Database());
    OdUnitsFormatter* pFormatter = pExtension ? pExtension->baseFormatter(Database()) : nullptr;
    if (!pFormatter)
        throw OdError(eNoDatabase);
    return *pFormatter;
}

// ---- Texts
// -----------------------------------------------------------------------------------------------------------

OdString CUserIO::getStringInternal(const OdString& prompt, int options, OdEdStringTracker* tracker)
{
    return CurrentIO().getString(prompt, options, tracker);
}

void ThrowIfKeyword(const OdString& strAnswer, const OdString& strKeywords)
{
    if (strKeywords.isEmpty())
        return;
    const CKeywordList keywords(strKeywords);
    if (const int iIndex = keywords.Find(strAnswer); iIndex >= 0)
        throw OdEdKeyword(iIndex, keywords[iIndex].strGlobal);
}

OdString CUserIO::getString(const OdString& prompt, int options, const OdString& defaultValue, const OdString& keywords,
                            OdEdStringTracker* tracker)
{
    OdString strAnswer = getStringInternal(prompt, options, tracker);
    if (strAnswer.isEmpty())
    {
        if (HasOption(options, OdEd::kInpThrowEmpty))
            throw OdEdEmptyInput();
        if (!defaultValue.isEmpty() || !HasOption(options, OdEd::kInpNonEmpty))
            return defaultValue;
    }
    while (strAnswer.isEmpty())
    {
        putError(L"Requires non-empty value!");
        strAnswer = getStringInternal(prompt, options, tracker);
    }
    ThrowIfKeyword(strAnswer, keywords);
    return strAnswer;
}

void CUserIO::putString(const OdString& text)
{
    CurrentIO().putString(text);
}

void CUserIO::putError(const OdString& text)
{
    CurrentIO().putError(text);
}

unsigned long CUserIO::getKeyState()
{
    return CurrentIO().getKeyState();
}

OdString CUserIO::GetNextStringToken(OdString& text, const OdChar* delimiters)
{
    OdString strToken = text.spanExcluding(delimiters);
    text = text.mid(strToken.getLength() + 1);
    return strToken;
}

// ---- Keywords
// --------------------------------------------------------------------------------------------------------

// Every keyword is followed by a slash, the last one too: front ends know the prompt in this form.
static OdString ComposeKeywordPrompt(const OdString& strPrompt, const CKeywordList& keywords, int iDefault)
{
    OdString strResult = strPrompt;
    if (strResult.isEmpty())
    {
        strResult = L"Enter one of the keywords: [";
        for (int i = 0; i < keywords.Count(); ++i)
            strResult += keywords[i].strGlobal + L"/";
        strResult += L"]";
    }
    if (keywords.Has(iDefault))
    {
        const OdString strDefault = L"<" + keywords[iDefault].strGlobal + L">";
        if (strResult.find(strDefault) < 0)
            strResult += strDefault;
    }
    return strResult + L":";
}

int CUserIO::getKeyword(const OdString& prompt, const OdString& keywords, int defaultIndex, int options,
                        OdEdIntegerTracker*)
{
    const CKeywordList list(keywords);
    const OdString strPrompt = ComposeKeywordPrompt(prompt, list, defaultIndex);
    const bool bHasDefault = list.Has(defaultIndex);
    const int iOptions =
        bHasDefault ? WithoutOption(options, OdEd::kInpNonEmpty) : WithOption(options, OdEd::kInpNonEmpty);
    while (true)
    {
        const OdString strAnswer = getString(strPrompt, iOptions);
        if (strAnswer.isEmpty() && bHasDefault)
            return defaultIndex;
        if (const int iIndex = list.Find(strAnswer); iIndex >= 0)
            return iIndex;
        putString(OdString());
        putError(L"Invalid keyword!");
    }
}
