// Turns what the system and the reader say into errors.
#include "Failures.h"

#include "OdError.h"

#include <cerrno>
#include <cstring>

namespace dxf
{
namespace
{

struct SystemFailure
{
    int error;
    OdResult code;
};

constexpr SystemFailure kOpenFailures[] = {
    {ENOENT, eFileNotFound}, {EACCES, eFileAccessErr}, {EPERM, eFileAccessErr}, {EROFS, eFileAccessErr}};

OdResult codeOf(int systemError)
{
    for (const SystemFailure& failure : kOpenFailures)
        if (failure.error == systemError)
            return failure.code;
    return eCantOpenFile;
}

[[noreturn]] void fail(OdResult code, const std::string& path, std::string_view what)
{
    throw OdError(code, odUtf8ToString(path + ": " + std::string(what)));
}

} // namespace

void failToOpen(const std::string& path, int systemError)
{
    fail(codeOf(systemError), path, std::string("cannot be opened: ") + std::strerror(systemError));
}

void failToWrite(const std::string& path, int systemError)
{
    fail(eFileWriteError, path, std::string("cannot be written: ") + std::strerror(systemError));
}

void refuse(const std::string& path, std::string_view what)
{
    fail(eBadDxfFile, path, what);
}

} // namespace dxf
