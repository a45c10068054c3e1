// Saying what is wrong with a record, and with which.
#pragma once

#include <cstddef>

#include "OdString.h"
#include "module/ground/Messages.h"

namespace Annotation
{

/** Throws OdError (eInvalidInput) with a message that takes the key. */
[[noreturn]] void RefuseKey(EMessage eMessage, const OdChar* pszKey);

/** Throws OdError (eInvalidInput) that names the index of a record and the reason. */
[[noreturn]] void RefuseAnnotation(std::size_t uiIndex, const OdString& strReason);

} // namespace Annotation
