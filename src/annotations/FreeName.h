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

/** A name that is free, and its number. */
struct FreeName
{
    int iNumber;
    OdString strName;
};

/** A name with a number above iLast that is free, next to one that is taken or to that of iLast. Names are given from
    the first number on, so it is found by doubling and halving rather than by trying all. */
template<class IsTaken>
FreeName FindFreeName(const OdChar* pszName, int iLast, IsTaken isTaken)
{
    FreeName free{iLast + 1, NumberedName(pszName, iLast + 1)};
    int iTaken = iLast;
    for (int iStep = 1; isTaken(free.strName); iStep *= 2)
    {
        iTaken = free.iNumber;
        free.iNumber += iStep;
        free.strName = NumberedName(pszName, free.iNumber);
    }
    while (free.iNumber - iTaken > 1)
    {
        const int iMiddle = iTaken + (free.iNumber - iTaken) / 2;
        if (OdString strMiddle = NumberedName(pszName, iMiddle); isTaken(strMiddle))
            iTaken = iMiddle;
        else
            free = {iMiddle, strMiddle};
    }
    return free;
}

} // namespace Annotation
