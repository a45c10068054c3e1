// Answers that come from a command string.
//
//   text   = { blanks } [ answer { blanks answer } ] { blanks }
//   answer = plain | '"' { any character but '"' } '"' | json
//   plain  = characters other than blanks
//   json   = from { or [ to the bracket that closes it; brackets in JSON strings do not count
//
// Blanks are " ", tab, carriage return and line feed. What a quote or bracket opens and nothing closes goes up to the
// end.
#pragma once

#include "CommandHandler.h"
#include "Ed/EdBaseIO.h"

/** A CStringIO gives the answers of a text one after the other. A pair of quotes with nothing between them is an empty
    answer; blanks at the end are none. */
class CStringIO : public OdEdBaseIO
{
public:
    ODRX_DECLARE_MEMBERS(CStringIO);

    /** Texts and errors that are put go on to pNext. */
    static OdSmartPtr<CStringIO> createObject(const OdString& strText, OdEdBaseIO* pNext);

    /** True when there is another answer. */
    bool HasText() const { return m_iPosition < m_strText.getLength(); }

    OdUInt32 getKeyState() override;
    /** The next answer. Throws OdEdCancel when there is none. */
    OdString getString(const OdString& prompt, int options, OdEdStringTracker* tracker) override;
    void putString(const OdString& text) override;
    /** Never returns: throws OdEdOtherInput with the next answer, for whoever asks reads coordinates, and OdEdCancel
       when there is none. */
    OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) override;
    void putError(const OdString& text) override;

private:
    void SkipBlanks();
    OdString TakeAnswer();
    OdString TakeQuoted();
    OdString TakePart(int iEnd);
    int FindEndOfPlain() const;
    int FindEndOfJson() const;

    OdString m_strText;
    int m_iPosition = 0;
    OdSmartPtr<OdEdBaseIO> m_pNext;
};
using CStringIOPtr = OdSmartPtr<CStringIO>;
