// The contents of errors.
#include "OdError.h"

#include "OdArray.h"
#include "RxObjectImpl.h"
#include "RxSystemServices.h"
#include "rx/Messages.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdErrorContext, OdRxObject)

namespace
{

class CodeContext : public OdErrorContext
{
public:
    explicit CodeContext(OdResult code) : m_code(code) {}
    OdResult code() const override { return m_code; }
    OdString description() const override { return odmessages::withoutArguments(m_code); }

private:
    OdResult m_code;
};

class TextContext : public CodeContext
{
public:
    TextContext(OdResult code, const OdString& text) : CodeContext(code), m_text(text) {}
    OdString description() const override { return m_text; }

private:
    OdString m_text;
};

class ClassContext : public CodeContext
{
public:
    ClassContext(const OdRxClass* from, const OdRxClass* to) : CodeContext(eNotThatKindOfClass), m_from(from), m_to(to)
    {
        m_text.format(L"Object of class %ls is not of class %ls", nameOf(from).c_str(), nameOf(to).c_str());
    }
    OdString description() const override { return m_text; }
    OdString errorClassName() const override { return L"OdError_NotThatKindOfClass"; }
    const OdRxClass* from() const { return m_from; }
    const OdRxClass* to() const { return m_to; }

private:
    static OdString nameOf(const OdRxClass* aClass) { return aClass ? aClass->name() : OdString(L"(not registered)"); }

    const OdRxClass* m_from;
    const OdRxClass* m_to;
    OdString m_text;
};

class FileContext : public CodeContext
{
public:
    FileContext(OdResult code, const OdString& fileName, const OdString& reason)
        : CodeContext(code), m_fileName(fileName), m_reason(reason)
    {
    }
    OdString description() const override
    {
        const OdString text = CodeContext::description() + L": " + m_fileName;
        return m_reason.isEmpty() ? text : text + L" (" + m_reason + L")";
    }
    OdString errorClassName() const override { return L"OdError_FileException"; }
    const OdString& fileName() const { return m_fileName; }

private:
    OdString m_fileName;
    OdString m_reason;
};

template<class Context, class... Arguments>
OdErrorContextPtr makeContext(Arguments&&... arguments)
{
    return OdRxObjectImpl<Context, OdErrorContext>::createObject(std::forward<Arguments>(arguments)...);
}

} // namespace

OdErrorContext::~OdErrorContext() = default;

OdString OdErrorContext::errorClassName() const
{
    return L"OdError";
}

OdString OdErrorContext::completeDescription() const
{
    OdString text = description();
    for (const OdErrorContext* previous = m_previous.get(); previous; previous = previous->m_previous.get())
        text += L"\n" + previous->description();
    return text;
}

bool OdErrorContext::leadsBackTo(const OdErrorContext* other) const
{
    for (const OdErrorContext* context = this; context; context = context->m_previous.get())
        if (context == other)
            return true;
    return false;
}

void OdErrorContext::setPreviousError(const OdError& previous)
{
    if (!previous.context()->leadsBackTo(this))
        m_previous = previous.context();
}

void OdErrorContext::attachPreviousError(const OdError& previous)
{
    OdErrorContext* first = this;
    while (first->m_previous.get() && first != previous.context())
        first = first->m_previous.get();
    first->setPreviousError(previous);
}

OdError::OdError(OdResult code) : m_context(makeContext<CodeContext>(code)) {}

OdError::OdError(const OdString& message) : OdError(eGeneralException, message) {}

OdError::OdError(OdResult code, const OdString& message) : m_context(makeContext<TextContext>(code, message)) {}

OdError::OdError(OdResult code, const OdError& previous) : OdError(code)
{
    setPreviousError(previous);
}

OdError::OdError(const OdString& message, const OdError& previous) : OdError(message)
{
    setPreviousError(previous);
}

OdError::OdError(OdErrorContext* context)
    : m_context(context ? OdErrorContextPtr(context) : makeContext<CodeContext>(eGeneralException))
{
}

OdError::OdError(OdErrorContext* context, const OdError& previous) : OdError(context)
{
    setPreviousError(previous);
}

OdError::~OdError() = default;

void odThrow(OdResult code)
{
    throw OdError(code);
}

void odThrowInvalidIndex()
{
    throw OdError_InvalidIndex();
}

void odThrowOutOfMemory()
{
    odThrow(eOutOfMemory);
}

OdError_NotThatKindOfClass::OdError_NotThatKindOfClass(const OdRxClass* fromClass, const OdRxClass* toClass)
    : OdError(makeContext<ClassContext>(fromClass, toClass).get())
{
}

const OdRxClass* OdError_NotThatKindOfClass::fromClass() const
{
    const auto* classes = dynamic_cast<const ClassContext*>(context());
    return classes ? classes->from() : nullptr;
}

const OdRxClass* OdError_NotThatKindOfClass::toClass() const
{
    const auto* classes = dynamic_cast<const ClassContext*>(context());
    return classes ? classes->to() : nullptr;
}

OdError_FileException::OdError_FileException(OdResult code, const OdString& fileName)
    : OdError_FileException(code, fileName, OdString())
{
}

OdError_FileException::OdError_FileException(OdResult code, const OdString& fileName, const OdString& reason)
    : OdError(makeContext<FileContext>(code, fileName, reason).get())
{
}

OdString OdError_FileException::getFileName() const
{
    const auto* file = dynamic_cast<const FileContext*>(context());
    return file ? file->fileName() : OdString();
}
