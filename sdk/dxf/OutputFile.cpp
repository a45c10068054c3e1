// Writes a drawing beside the old one and lets it take the old one's place at the very end.
#include "OutputFile.h"

#include "Failures.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace dxf
{
namespace
{

constexpr std::size_t kBufferSize = std::size_t{1} << 18;
constexpr std::uint64_t kDiskStep = std::uint64_t{1} << 22;
constexpr mode_t kPermissions = 07777;
constexpr int kMostLinks = 40;

// A link stays a link: what it points to is replaced, or made where there is nothing yet.
std::string resolveLinks(std::string path)
{
    for (int links = 0; links < kMostLinks; ++links)
    {
        if (char* const resolved = ::realpath(path.c_str(), nullptr))
        {
            path = resolved;
            std::free(resolved);
            return path;
        }
        char next[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), next, sizeof next);
        if (length <= 0)
            return path;
        const std::string_view name(next, static_cast<std::size_t>(length));
        path = (name.front() == '/' ? std::string() : folderOf(path)).append(name);
    }
    failToOpen(path, ELOOP);
}

// Some file systems keep no owners and permissions, and that is no reason not to save.
void keepOwnerAndPermissions(int file, const struct stat& before)
{
    [[maybe_unused]] const int owner = ::fchown(file, before.st_uid, before.st_gid);
    [[maybe_unused]] const int permissions = ::fchmod(file, before.st_mode & kPermissions);
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

OutputFile::OutputFile(const std::string& target) : OutputBuffer(kBufferSize), m_target(resolveLinks(target))
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
    {
        openDirectly();
        return;
    }
    m_file = m_temporary.emplace(m_target).number();
    if (exists)
        keepOwnerAndPermissions(m_file, status);
}

OutputFile::~OutputFile()
{
    if (!m_temporary && m_file >= 0)
        ::close(m_file);
}

void OutputFile::openDirectly()
{
    m_file = ::open(m_target.c_str(), O_WRONLY | O_CLOEXEC);
    if (m_file < 0)
        failToOpen(m_target, errno);
}

void OutputFile::write(std::string_view bytes)
{
    if (bytes.size() <= kMostReserved)
        return append(bytes);
    flush();
    writeOut(bytes);
    letGo(bytes.size());
}

void OutputFile::makeRoom(std::size_t)
{
    flush();
}

void OutputFile::flush()
{
    writeOut(bytes());
    letGo();
}

void OutputFile::writeOut(std::string_view bytes)
{
    NoSignals noSignals;
    m_written += bytes.size();
    while (!bytes.empty())
    {
        const ssize_t count = ::write(m_file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
        {
            const int error = count < 0 ? errno : ENOSPC;
            noSignals.noteFailure();
            failToWrite(m_target, error);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (m_temporary && m_written - m_onItsWay >= kDiskStep)
        startToDisk();
}

// Lets the disk work while the rest is printed, so that commit() has little left to wait for. What goes wrong is told
// there.
void OutputFile::startToDisk()
{
    const auto work = [file = m_file, from = m_onItsWay, count = m_written - m_onItsWay]
    { ::sync_file_range(file, static_cast<off_t>(from), static_cast<off_t>(count), SYNC_FILE_RANGE_WRITE); };
    m_toDisk = std::async(std::launch::async | std::launch::deferred, work); // deferred: without a thread, never
    m_onItsWay = m_written;
}

void OutputFile::commit()
{
    flush();
    if (m_temporary)
        return m_temporary->replaceTarget();
    if (::close(std::exchange(m_file, -1)) != 0)
        failToWrite(m_target, errno);
}

} // namespace dxf
