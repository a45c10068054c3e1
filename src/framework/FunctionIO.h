// Where a running command finds its parameters and leaves its results.
#pragma once

#include "CommandHandler.h"
#include "Ed/EdFunctionIO.h"

/** A CFunctionIO keeps the argument and the result of commands as two entries of the arbitrary data of its handler, so
    that they belong to one run and are shared by all commands in it. It is registered under OdRxObject and must not be
    cast through another parent. */
class CFunctionIO : public OdEdFunctionIO
{
public:
    ODRX_DECLARE_MEMBERS(CFunctionIO);

    /** The handler outlives this object and is not kept alive by it. */
    static OdSmartPtr<CFunctionIO> createObject(CCommandHandler* pHandler);

    void setParam(OdRxObject* object) override;
    OdRxObjectPtr param() override;
    void setResult(OdRxObject* object) override;
    OdRxObjectPtr result() override;

    /** The entries in the handler's arbitrary data. */
    static const OdString m_strPathFunctionParameter;
    static const OdString m_strPathFunctionResult;

private:
    void Init(CCommandHandler* pHandler) { m_pHandler = pHandler; }

    CCommandHandler* m_pHandler = nullptr;
};
using CFunctionIOPtr = OdSmartPtr<CFunctionIO>;

/** Keeps the argument and the result of a command while it runs others, and puts them back at the end of the scope,
    however it is left. */
class CFunctionIOScope
{
public:
    explicit CFunctionIOScope(OdEdFunctionIO& functionIO)
        : m_functionIO(functionIO), m_pParam(functionIO.param()), m_pResult(functionIO.result())
    {
    }
    ~CFunctionIOScope()
    {
        m_functionIO.setParam(m_pParam.get());
        m_functionIO.setResult(m_pResult.get());
    }
    CFunctionIOScope(const CFunctionIOScope&) = delete;
    CFunctionIOScope& operator=(const CFunctionIOScope&) = delete;

private:
    OdEdFunctionIO& m_functionIO;
    OdRxObjectPtr m_pParam;
    OdRxObjectPtr m_pResult;
};
