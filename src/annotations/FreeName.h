// Finding a name that is free among numbered ones.
#pragma once

#include <string>

#include "OdString.h"

namespace Annotation
{

/** "Name" for 1, "Name_2" for 2 and so on. */
inline OdString NumberedName(const OdChar* pszName, int iNumber)
{
    if (iNumber == 1)
        return OdString(pszName);
    const std::string strNumber = std::to_string(iNumber);
    std::wstring strName(pszName);
    strName += L'_';
    strName.append(strNumber.begin(), strNumber.end());
    return OdString(strName);
}

/** A number above iLast whose name is free, next to one whose name is taken or to iLast. Names are given from the first
    number on, so it is found by doubling and halving rather than by trying all. */
template<class IsTaken>
int FindFreeNumber(const OdChar* pszName, int iLast, IsTaken isTaken)
{
    const auto taken = [&](int iNumber) { return isTaken(NumberedName(pszName, iNumber)); };
    int iTaken = iLast;
    int iFree = iTaken + 1;
    for (int iStep = 1; taken(iFree); iStep *= 2)
    {
        iTaken = iFree;
        iFree += iStep;
    }
    while (iFree - iTaken > 1)
    {
        const int iMiddle = iTaken + (iFree - iTaken) / 2;
        (taken(iMiddle) ? iTaken : iFree) = iMiddle;
    }
    return iFree;
}

} // namespace Annotation
