// The errors of the plug-in, each of which says which argument or value was at fault and which function found it.
#pragma once

#include "OdError.h"
#include "QuendZolExport.h"

/** A CModuleErrorContext is what the contexts of all errors of the plug-in have in common. An error that was copied as
   a plain OdError still has it: CModuleErrorContext::Of(error). */
class QUEND_ZOL_EXPORT CModuleErrorContext : public OdErrorContext
{
public:
    /** The name of the argument, value or module at fault, as "pDb". */
    const OdString& GetName() const { return m_strName; }
    /** The function that threw, as "CadCommands::Execute". */
    const OdString& GetFunction() const { return m_strFunction; }

    OdResult code() const override { return m_eCode; }
    /** One sentence made of the class of error, the function, the name and the text of the code. */
    OdString description() const override;
    OdString errorClassName() const override { return m_pszClassName; }

    /** The context of an error of the plug-in, null for any other error. It lives as long as a copy of the error. */
    static const CModuleErrorContext* Of(const OdError& error);

protected:
    CModuleErrorContext(const OdChar* pszClassName, unsigned int uiMessage, OdResult eCode, const OdString& strName,
                        const OdString& strFunction);
    ~CModuleErrorContext() override;

private:
    const OdChar* m_pszClassName;
    unsigned int m_uiMessage;
    OdResult m_eCode;
    OdString m_strName;
    OdString m_strFunction;
};

/** Thrown where an argument cannot be used. */
class QUEND_ZOL_EXPORT OdError_InvalidArgument : public OdError
{
public:
    class OdError_InvalidArgumentContext;

    OdError_InvalidArgument(OdResult eCode, const OdString& strName, const OdString& strFunction);
};

/** Thrown where something that must be delivered is missing or wrong. */
class QUEND_ZOL_EXPORT OdError_InvalidValue : public OdError
{
public:
    class OdError_InvalidValueContext;

    OdError_InvalidValue(OdResult eCode, const OdString& strName, const OdString& strFunction);
};

/** Thrown where the module itself is missing; the name is that of the module. */
class QUEND_ZOL_EXPORT OdError_ModuleInitialization : public OdError
{
public:
    class OdError_ModuleInitializationContext;

    OdError_ModuleInitialization(OdResult eCode, const OdString& strName, const OdString& strFunction);
};
