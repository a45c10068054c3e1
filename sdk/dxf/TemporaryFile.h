// The new file beside the one that is to be replaced.
#pragma once

#include <string>

namespace dxf
{

/// A new file in the folder of a target, "<target>.<process>-<number>.tmp". It is locked while it is written, so that
/// one which a program left behind when it was killed is known by being free: those of the same target are removed when
/// the next one is made.
class TemporaryFile
{
public:
    /// Throws OdError (eCantOpenFile, eFileAccessErr) naming the target.
    explicit TemporaryFile(const std::string& target);
    /// Removes the file unless it has become the target.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// The descriptor to write to.
    int number() const { return m_file; }

    /// Brings all bytes to the disk and gives the file the target's name. Throws OdError (eFileWriteError).
    void replaceTarget();

private:
    bool tryToMake(int number);
    bool lock() const;
    void synchronizeFolder() const;

    std::string m_target;
    std::string m_path; // empty when it has become the target
    int m_file = -1;
};

/// The folder of a path, with the slash at its end; "./" for a name alone.
std::string folderOf(const std::string& path);

} // namespace dxf
