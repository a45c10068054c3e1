// Writes a drawing beside the old one and lets it take the old one's place at the very end.
#include "OutputFile.h"

#include "Failures.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dxf
{
namespace
{

constexpr mode_t kUsualMode = 0666;
constexpr mode_t kPermissions = 07777;

// A link stays a link: what it points to is replaced.
std::string resolveLinks(const std::string& path)
{
    char* const resolved = ::realpath(path.c_str(), nullptr);
    if (resolved == nullptr)
        return path;
    std::string result = resolved;
    std::free(resolved);
    return result;
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// A file that grows beyond the limit, or a pipe without a reader, sends a signal that ends the process. Here it shall
// be an error of write() like any other.
class NoSignals
{
public:
    NoSignals()
    {
        ::sigemptyset(&m_signals);
        ::sigaddset(&m_signals, SIGXFSZ);
        ::sigaddset(&m_signals, SIGPIPE);
        ::pthread_sigmask(SIG_BLOCK, &m_signals, &m_before);
    }
    ~NoSignals()
    {
        const timespec noWait{};
        while (m_failed && ::sigtimedwait(&m_signals, nullptr, &noWait) > 0)
            continue;
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;

    void noteFailure() { m_failed = true; }

private:
    sigset_t m_signals;
    sigset_t m_before;
    bool m_failed = false;
};

} // namespace

OutputFile::OutputFile(const std::string& target)
    : m_target(resolveLinks(target)), m_buffer(std::make_unique_for_overwrite<char[]>(kBufferSize))
{
    struct stat status
    {
    };
    const bool exists = ::stat(m_target.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode))
        failToOpen(m_target, EISDIR);
    if (exists && ::access(m_target.c_str(), W_OK) != 0)
        failToOpen(m_target, errno);
    if (exists && !S_ISREG(status.st_mode))
        openDirectly();
    else
        createBeside();
    // some file systems keep no permissions, and that is no reason not to save
    if (exists && !m_temporary.empty())
        ::fchmod(m_file, status.st_mode & kPermissions);
}

OutputFile::~OutputFile()
{
    if (m_file < 0)
        return;
    ::close(m_file);
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
}

void OutputFile::openDirectly()
{
    m_file = ::open(m_target.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_file < 0)
        failToOpen(m_target, errno);
}

void OutputFile::createBeside()
{
    for (int number = 0; m_file < 0; ++number)
    {
        m_temporary = m_target + "." + std::to_string(::getpid()) + "-" + std::to_string(number) + ".tmp";
        m_file = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUsualMode);
        if (m_file < 0 && errno != EEXIST)
            failToOpen(m_target, errno);
    }
}

void OutputFile::write(std::string_view bytes)
{
    if (bytes.size() > kBufferSize / 2)
    {
        flush();
        writeOut(bytes.data(), bytes.size());
        m_flushed += bytes.size();
        return;
    }
    char* const at = reserve(bytes.size());
    std::memcpy(at, bytes.data(), bytes.size());
    advance(at + bytes.size());
}

void OutputFile::flush()
{
    writeOut(m_buffer.get(), m_used);
    m_flushed += m_used;
    m_used = 0;
}

void OutputFile::writeOut(const char* bytes, std::size_t size)
{
    NoSignals noSignals;
    while (size > 0)
    {
        const ssize_t count = ::write(m_file, bytes, size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
        {
            const int error = count < 0 ? errno : ENOSPC;
            noSignals.noteFailure();
            failToWrite(m_target, error);
        }
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
}

void OutputFile::commit()
{
    flush();
    if (m_temporary.empty())
        return closeFile();
    if (::fsync(m_file) != 0)
        failToWrite(m_target, errno);
    closeFile();
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0)
    {
        const int error = errno;
        ::unlink(m_temporary.c_str());
        failToWrite(m_target, error);
    }
    synchronizeFolder();
}

void OutputFile::closeFile()
{
    const int file = m_file;
    m_file = -1;
    if (::close(file) == 0)
        return;
    const int error = errno;
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    failToWrite(m_target, error);
}

// The new name is on the disk only when the folder is.
void OutputFile::synchronizeFolder() const
{
    const int folder = ::open(folderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace dxf
