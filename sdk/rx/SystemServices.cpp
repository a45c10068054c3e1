// What the SDK brings of services by itself.
#include "RxSystemServices.h"

#include <sys/random.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "OdError.h"
#include "RxObjectImpl.h"
#include "rx/Messages.h"

ODRX_CONS_DEFINE_MEMBERS(OdRxSystemServices, OdRxObject, RXIMPL_CONSTR)

OdString OdRxSystemServices::formatMessage(unsigned int formatId, ...)
{
    va_list arguments;
    va_start(arguments, formatId);
    try
    {
        OdString message = formatMessageV(formatId, arguments);
        va_end(arguments);
        return message;
    }
    catch (...)
    {
        va_end(arguments);
        throw;
    }
}

OdString OdRxSystemServices::formatMessageV(unsigned int formatId, va_list arguments)
{
    const OdChar* text = odmessages::find(formatId);
    return text ? OdString().formatV(text, arguments) : OdString().format(L"Message %u", formatId);
}

OdString OdRxSystemServices::messageText(unsigned int formatId) const
{
    return OdString(odmessages::find(formatId));
}

void OdRxSystemServices::registerMessages(const OdMessageEntry* table, std::size_t numEntries)
{
    odmessages::add(table, numEntries);
}

void OdRxSystemServices::unregisterMessages(const OdMessageEntry* table)
{
    odmessages::remove(table);
}

void OdRxSystemServices::warning(const OdString&) {}

void OdRxSystemServices::warning(OdResult code)
{
    warning(odmessages::withoutArguments(code));
}

OdCodePageId OdRxSystemServices::systemCodePage() const
{
    return CP_UTF_8;
}

OdString OdRxSystemServices::findModule(const OdString& fileName, const OdString& folder)
{
    const OdString path = folder.isEmpty() ? fileName : folder + L"/" + fileName;
    struct stat state;
    const bool isFile = ::stat(odStringToUtf8(path).c_str(), &state) == 0 && S_ISREG(state.st_mode);
    return isFile ? path : OdString();
}

namespace
{

// Random bytes from the system, fetched for many names at a time.
class RandomBytes
{
public:
    void take(OdUInt8* target, std::size_t count)
    {
        if (m_left < count)
            fetch();
        std::copy_n(m_bytes + (sizeof m_bytes - m_left), count, target);
        m_left -= count;
    }

private:
    void fetch()
    {
        for (std::size_t got = 0; got < sizeof m_bytes;)
        {
            const ssize_t read = ::getrandom(m_bytes + got, sizeof m_bytes - got, 0);
            if (read >= 0)
                got += static_cast<std::size_t>(read);
            else if (errno != EINTR)
                throw OdError(L"The system gives no random numbers");
        }
        m_left = sizeof m_bytes;
    }

    OdUInt8 m_bytes[4096];
    std::size_t m_left = 0;
};

} // namespace

OdString OdRxSystemServices::createGuid()
{
    thread_local RandomBytes random;
    OdUInt8 bytes[16];
    random.take(bytes, sizeof bytes);
    bytes[6] = static_cast<OdUInt8>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<OdUInt8>((bytes[8] & 0x3F) | 0x80);
    OdChar text[38];
    OdChar* at = text;
    *at++ = L'{';
    for (int i = 0; i < 16; ++i)
    {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            *at++ = L'-';
        *at++ = L"0123456789ABCDEF"[bytes[i] >> 4];
        *at++ = L"0123456789ABCDEF"[bytes[i] & 15];
    }
    *at++ = L'}';
    return OdString(text, static_cast<int>(at - text));
}
