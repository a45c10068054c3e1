// A folder for the files of one test, which goes with the test.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace support
{

class TemporaryFolder
{
public:
    TemporaryFolder() : m_folder(create()) {}
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path() const { return m_folder; }
    std::string path(const std::string& name) const { return m_folder + "/" + name; }

    /// The number of files in it.
    std::size_t fileCount() const
    {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(m_folder))
            ++count;
        return count;
    }

private:
    static std::string create()
    {
        std::string name = (std::filesystem::temp_directory_path() / "zolcad-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("cannot make a folder for the test");
        return name;
    }

    std::string m_folder;
};

} // namespace support
