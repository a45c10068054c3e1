// Cuts a command string into answers.
#include "framework/StringIO.h"

#include "RxObjectImpl.h"

ODRX_CONS_DEFINE_MEMBERS(CStringIO, OdRxObject, RXIMPL_CONSTR)

CStringIOPtr CStringIO::createObject(const OdString& strText, OdEdBaseIO* pNext)
{
    CStringIOPtr pStringIO = createObject();
    pStringIO->m_strText = strText;
    pStringIO->m_pNext = pNext;
    pStringIO->SkipBlanks();
    return pStringIO;
}

static bool IsBlank(OdChar character)
{
    return character == L' ' || character == L'\t' || character == L'\r' || character == L'\n';
}

void CStringIO::SkipBlanks()
{
    while (HasText() && IsBlank(m_strText[m_iPosition]))
        ++m_iPosition;
}

int CStringIO::FindEndOfPlain() const
{
    int iEnd = m_iPosition;
    while (iEnd < m_strText.getLength() && !IsBlank(m_strText[iEnd]))
        ++iEnd;
    return iEnd;
}

int CStringIO::FindEndOfJson() const
{
    bool bInString = false;
    int iDepth = 0;
    for (int i = m_iPosition; i < m_strText.getLength(); ++i)
    {
        const OdChar character = m_strText[i];
        if (bInString && character == L'\\')
            ++i;
        else if (character == L'"')
            bInString = !bInString;
        else if (!bInString && (character == L'{' || character == L'['))
            ++iDepth;
        else if (!bInString && (character == L'}' || character == L']') && --iDepth == 0)
            return i + 1;
    }
    return m_strText.getLength();
}

OdString CStringIO::TakePart(int iEnd)
{
    OdString strPart = m_strText.mid(m_iPosition, iEnd - m_iPosition);
    m_iPosition = iEnd;
    return strPart;
}

OdString CStringIO::TakeQuoted()
{
    ++m_iPosition;
    const int iQuote = m_strText.find(L'"', m_iPosition);
    if (iQuote < 0)
        return TakePart(m_strText.getLength());
    OdString strPart = TakePart(iQuote);
    ++m_iPosition;
    return strPart;
}

OdString CStringIO::TakeAnswer()
{
    const OdChar first = m_strText[m_iPosition];
    if (first == L'"')
        return TakeQuoted();
    return TakePart(first == L'{' || first == L'[' ? FindEndOfJson() : FindEndOfPlain());
}

OdString CStringIO::getString(const OdString&, int, OdEdStringTracker*)
{
    if (!HasText())
        throw OdEdCancel();
    OdString strAnswer = TakeAnswer();
    SkipBlanks();
    return strAnswer;
}

OdGePoint3d CStringIO::getPoint(const OdString& prompt, int options, OdEdPointTracker*)
{
    throw OdEdOtherInput(getString(prompt, options, nullptr));
}

OdUInt32 CStringIO::getKeyState()
{
    return m_pNext ? m_pNext->getKeyState() : 0;
}

void CStringIO::putString(const OdString& text)
{
    if (m_pNext)
        m_pNext->putString(text);
}

void CStringIO::putError(const OdString& text)
{
    if (m_pNext)
        m_pNext->putError(text);
}
