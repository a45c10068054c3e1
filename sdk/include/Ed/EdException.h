// How asking a user can end other than with an answer.
#pragma once

#include "OdError.h"

/** The base of what is thrown when a user does not give the answer that was asked for. It has no code of its own to
   tell the kinds apart: they are told apart by their C++ class. */
class OdEdException : public OdError
{
public:
    explicit OdEdException(const OdString& message) : OdError(message) {}
};

/** The user wants the command to end. */
class OdEdCancel : public OdEdException
{
public:
    OdEdCancel() : OdEdException(L"Cancelled") {}
};

/** The user gave an empty answer where that is not accepted. */
class OdEdEmptyInput : public OdEdException
{
public:
    OdEdEmptyInput() : OdEdException(L"Empty input") {}
};

/** The user typed a text where something else was asked for. */
class OdEdOtherInput : public OdEdException
{
public:
    explicit OdEdOtherInput(const OdString& text) : OdEdException(L"Other input"), m_text(text) {}
    /** What was typed. */
    const OdString& string() const { return m_text; }

private:
    OdString m_text;
};

/** The user chose one of the keywords that were offered beside what was asked for. */
class OdEdKeyword : public OdEdException
{
public:
    OdEdKeyword(int index, const OdString& keyword) : OdEdException(L"Keyword"), m_index(index), m_keyword(keyword) {}
    /** The position of the keyword in the list, from 0. */
    int keywordIndex() const { return m_index; }
    /** The keyword itself, not what was typed for it. */
    const OdString& keyword() const { return m_keyword; }

private:
    int m_index;
    OdString m_keyword;
};
