// The exceptions that operations of the SDK throw.
#pragma once

#include "OdErrorContext.h"
#include "OdPlatform.h"
#include "OdResult.h"
#include "OdString.h"

/** An OdError says what went wrong. It is small, copied freely and thrown and caught by value or reference: all it
   holds is its context, so an error that was copied as a plain OdError still knows its class (className, isKindOf). It
   may be handed from thread to thread. */
class OdError
{
public:
    /** An error with the text that the message table has for the code. */
    OdError(OdResult code = eOk);
    /** An error that is described by its text alone; its code is eGeneralException. */
    OdError(const OdString& message);
    OdError(const OdChar* message) : OdError(OdString(message)) {}
    /** An error with a code and a text of its own. */
    OdError(OdResult code, const OdString& message);
    OdError(OdResult code, const OdChar* message) : OdError(code, OdString(message)) {}
    /** An error that is the consequence of another. */
    OdError(OdResult code, const OdError& previous);
    OdError(const OdString& message, const OdError& previous);
    /** An error with a context of its own. A null context stands for eGeneralException. */
    explicit OdError(OdErrorContext* context);
    OdError(OdErrorContext* context, const OdError& previous);
    virtual ~OdError();
    OdError(const OdError& source) = default;
    OdError& operator=(const OdError& source) = default;

    /** Never null. */
    OdErrorContext* context() const { return m_context.get(); }
    OdResult code() const { return m_context->code(); }
    /** What went wrong, in words. */
    OdString description() const { return m_context->description(); }
    /** The name of the class that the error was thrown as. */
    OdString className() const { return m_context->errorClassName(); }

    /** Puts the whole of another error, with those behind it, at the end of the row of errors behind this one. */
    void attachPreviousError(const OdError& previous) { m_context->attachPreviousError(previous); }
    void setPreviousError(const OdError& previous) { m_context->setPreviousError(previous); }

private:
    OdErrorContextPtr m_context;
};

/** Throws OdError (code). */
[[noreturn]] void odThrow(OdResult code);

/** Thrown where an object is not of the class that is required. Code: eNotThatKindOfClass. */
class OdError_NotThatKindOfClass : public OdError
{
public:
    /** Either class may be null when it is not registered. */
    OdError_NotThatKindOfClass(const OdRxClass* fromClass, const OdRxClass* toClass);

    /** The class that the object has, null when it is not registered. */
    const OdRxClass* fromClass() const;
    /** The class that was required. */
    const OdRxClass* toClass() const;
};

/** Thrown where a file cannot be used. Its text names the file. */
class OdError_FileException : public OdError
{
public:
    OdError_FileException(OdResult code, const OdString& fileName);
    /** With what the system said. */
    OdError_FileException(OdResult code, const OdString& fileName, const OdString& reason);

    OdString getFileName() const;
};

/** Codes: eFileNotFound, eCantOpenFile, eFileWriteError. */
class OdError_FileNotFound : public OdError_FileException
{
public:
    explicit OdError_FileNotFound(const OdString& fileName) : OdError_FileException(eFileNotFound, fileName) {}
};

class OdError_CantOpenFile : public OdError_FileException
{
public:
    explicit OdError_CantOpenFile(const OdString& fileName) : OdError_FileException(eCantOpenFile, fileName) {}
    OdError_CantOpenFile(const OdString& fileName, const OdString& reason)
        : OdError_FileException(eCantOpenFile, fileName, reason)
    {
    }
};

class OdError_FileWriteError : public OdError_FileException
{
public:
    explicit OdError_FileWriteError(const OdString& fileName) : OdError_FileException(eFileWriteError, fileName) {}
    OdError_FileWriteError(const OdString& fileName, const OdString& reason)
        : OdError_FileException(eFileWriteError, fileName, reason)
    {
    }
};

/** Thrown where an index names no element. Code: eInvalidIndex. */
class OdError_InvalidIndex : public OdError
{
public:
    OdError_InvalidIndex() : OdError(eInvalidIndex) {}
};
