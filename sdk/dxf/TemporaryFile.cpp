// Makes, locks and cleans up new files beside others.
#include "TemporaryFile.h"

#include "Failures.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dxf
{
namespace
{

constexpr mode_t kUsualMode = 0666;
constexpr std::string_view kEnding = ".tmp";

bool isNumber(std::string_view text)
{
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](unsigned char digit) { return std::isdigit(digit) != 0; });
}

// "12-0" of "drawing.dxf.12-0.tmp".
bool isNameBeside(std::string_view name, std::string_view target)
{
    if (name.size() <= target.size() + 1 + kEnding.size() || !name.starts_with(target) || !name.ends_with(kEnding) ||
        name[target.size()] != '.')
        return false;
    name.remove_prefix(target.size() + 1);
    name.remove_suffix(kEnding.size());
    const std::size_t divider = name.find('-');
    return divider != std::string_view::npos && isNumber(name.substr(0, divider)) && isNumber(name.substr(divider + 1));
}

// Whoever writes a file holds its lock.
void removeIfFree(const std::string& path)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    struct stat status
    {
    };
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && ::flock(file, LOCK_EX | LOCK_NB) == 0)
        ::unlink(path.c_str());
    ::close(file);
}

void removeLeftovers(const std::string& target)
{
    const std::string folder = folderOf(target);
    const std::string name = target.substr(target.rfind('/') + 1);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), &::closedir);
    while (const dirent* const entry = entries ? ::readdir(entries.get()) : nullptr)
        if (isNameBeside(entry->d_name, name))
            removeIfFree(folder + entry->d_name);
}

} // namespace

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

TemporaryFile::TemporaryFile(const std::string& target) : m_target(target)
{
    removeLeftovers(target);
    for (int number = 0; !tryToMake(number); ++number)
        continue;
}

TemporaryFile::~TemporaryFile()
{
    if (!m_path.empty())
        ::unlink(m_path.c_str());
    if (m_file >= 0)
        ::close(m_file);
}

bool TemporaryFile::tryToMake(int number)
{
    const std::string path =
        m_target + '.' + std::to_string(::getpid()) + '-' + std::to_string(number) + std::string(kEnding);
    m_file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUsualMode);
    if (m_file < 0 && errno == EEXIST)
        return false;
    if (m_file < 0)
        failToOpen(m_target, errno);
    if (lock())
    {
        m_path = path;
        return true;
    }
    ::close(m_file);
    m_file = -1;
    return false;
}

// Another program may have taken the new file for one left behind before it was locked. Some file systems have no
// locks; there nothing is ever taken so.
bool TemporaryFile::lock() const
{
    if (::flock(m_file, LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    struct stat status
    {
    };
    return ::fstat(m_file, &status) != 0 || status.st_nlink > 0;
}

void TemporaryFile::replaceTarget()
{
    if (::fsync(m_file) != 0 || ::rename(m_path.c_str(), m_target.c_str()) != 0)
        failToWrite(m_target, errno);
    m_path.clear();
    synchronizeFolder();
}

// The new name is on the disk only when the folder is.
void TemporaryFile::synchronizeFolder() const
{
    const int folder = ::open(folderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace dxf
