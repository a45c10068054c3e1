// Linetypes: the patterns of dashes that lines are drawn with.
#pragma once

#include "DbSymbolTable.h"

/** An OdDbLinetypeTableRecord is one linetype. */
class OdDbLinetypeTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLinetypeTableRecord);

    /** The pattern in words. */
    OdString comments() const;
    void setComments(const OdString& comments);

    /** The length after which the pattern begins again, in drawing units. */
    double patternLength() const;

    int numDashes() const;
    /** The length of one dash in drawing units: negative for a gap, 0 for a dot. Throws OdError(eInvalidIndex). */
    double dashLengthAt(int index) const;
    /** Sets all dashes and the length of the pattern, as the sum of their lengths. Throws OdError(eInvalidInput) for a
        length that is not finite; nothing is changed then. */
    void setDashes(const OdArray<double>& lengths);

protected:
    OdDbLinetypeTableRecord();
};
using OdDbLinetypeTableRecordPtr = OdSmartPtr<OdDbLinetypeTableRecord>;
