// The two entries of the handler's arbitrary data that parameters and results are.
#include "framework/FunctionIO.h"

#include "RxObjectImpl.h"

ODRX_CONS_DEFINE_MEMBERS(CFunctionIO, OdRxObject, RXIMPL_CONSTR)

const OdString CFunctionIO::m_strPathFunctionParameter(L"FunctionParameterObject");
const OdString CFunctionIO::m_strPathFunctionResult(L"FunctionResultObject");

CFunctionIOPtr CFunctionIO::createObject(CCommandHandler* pHandler)
{
    CFunctionIOPtr pFunctionIO = createObject();
    pFunctionIO->Init(pHandler);
    return pFunctionIO;
}

void CFunctionIO::setParam(OdRxObject* object)
{
    m_pHandler->setArbitraryData(m_strPathFunctionParameter, object);
}

OdRxObjectPtr CFunctionIO::param()
{
    return m_pHandler->arbitraryData(m_strPathFunctionParameter);
}

void CFunctionIO::setResult(OdRxObject* object)
{
    m_pHandler->setArbitraryData(m_strPathFunctionResult, object);
}

OdRxObjectPtr CFunctionIO::result()
{
    return m_pHandler->arbitraryData(m_strPathFunctionResult);
}
