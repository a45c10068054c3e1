// The contexts of the plug-in's errors, one class for each class of error.
#include "ModuleErrors.h"

#include "RxObjectImpl.h"
#include "RxSystemServices.h"
#include "module/ground/Messages.h"

CModuleErrorContext::CModuleErrorContext(const OdChar* pszClassName, unsigned int uiMessage, OdResult eCode,
                                         const OdString& strName, const OdString& strFunction)
    : m_pszClassName(pszClassName), m_uiMessage(uiMessage), m_eCode(eCode), m_strName(strName),
      m_strFunction(strFunction)
{
}

CModuleErrorContext::~CModuleErrorContext() = default;

OdString CModuleErrorContext::description() const
{
    OdString strCode = OdError(m_eCode).description();
    strCode.trimRight(L"."); // the message ends the sentence
    return odSystemServices()->formatMessage(m_uiMessage, m_strFunction.c_str(), m_strName.c_str(), strCode.c_str());
}

const CModuleErrorContext* CModuleErrorContext::Of(const OdError& error)
{
    return dynamic_cast<const CModuleErrorContext*>(error.context());
}

class OdError_InvalidArgument::OdError_InvalidArgumentContext : public CModuleErrorContext
{
public:
    OdError_InvalidArgumentContext(OdResult eCode, const OdString& strName, const OdString& strFunction)
        : CModuleErrorContext(L"OdError_InvalidArgument", eMessageInvalidArgument, eCode, strName, strFunction)
    {
    }
};

class OdError_InvalidValue::OdError_InvalidValueContext : public CModuleErrorContext
{
public:
    OdError_InvalidValueContext(OdResult eCode, const OdString& strName, const OdString& strFunction)
        : CModuleErrorContext(L"OdError_InvalidValue", eMessageInvalidValue, eCode, strName, strFunction)
    {
    }
};

class OdError_ModuleInitialization::OdError_ModuleInitializationContext : public CModuleErrorContext
{
public:
    OdError_ModuleInitializationContext(OdResult eCode, const OdString& strName, const OdString& strFunction)
        : CModuleErrorContext(L"OdError_ModuleInitialization", eMessageModuleMissing, eCode, strName, strFunction)
    {
    }
};

// The error takes a reference of its own to the context.
template<class Context>
static OdSmartPtr<OdErrorContext> MakeContext(OdResult eCode, const OdString& strName, const OdString& strFunction)
{
    return OdRxObjectImpl<Context, OdErrorContext>::createObject(eCode, strName, strFunction);
}

OdError_InvalidArgument::OdError_InvalidArgument(OdResult eCode, const OdString& strName, const OdString& strFunction)
    : OdError(MakeContext<OdError_InvalidArgumentContext>(eCode, strName, strFunction).get())
{
}

OdError_InvalidValue::OdError_InvalidValue(OdResult eCode, const OdString& strName, const OdString& strFunction)
    : OdError(MakeContext<OdError_InvalidValueContext>(eCode, strName, strFunction).get())
{
}

OdError_ModuleInitialization::OdError_ModuleInitialization(OdResult eCode, const OdString& strName,
                                                           const OdString& strFunction)
    : OdError(MakeContext<OdError_ModuleInitializationContext>(eCode, strName, strFunction).get())
{
}
