// Makes the errors out of the message table.
#include "annotations/AnnotationErrors.h"

#include "OdError.h"
#include "RxSystemServices.h"

void Annotation::RefuseKey(EMessage eMessage, const OdChar* pszKey)
{
    throw OdError(eInvalidInput, odSystemServices()->formatMessage(eMessage, pszKey));
}

void Annotation::RefuseAnnotation(std::size_t uiIndex, const OdString& strReason)
{
    const OdString strIndex(std::to_wstring(uiIndex));
    throw OdError(eInvalidInput,
                  odSystemServices()->formatMessage(eMessageAnnotationInvalid, strIndex.c_str(), strReason.c_str()));
}
