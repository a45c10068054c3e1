// A drawing file in memory: read as a whole, so that what other programs do to the file later does no harm.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dxf
{

/// The bytes that a file had when it was read. They stay for as long as the object lives, also when another program
/// cuts the file short, overwrites it or replaces it.
class InputFile
{
public:
    /// Throws OdError (eFileNotFound, eCantOpenFile, eFileAccessErr) naming the file and the reason.
    explicit InputFile(const std::string& path);

    std::string_view bytes() const { return {m_pages.memory, m_size}; }

private:
    // Pages of their own, which go back to the system as soon as the file is read.
    struct Pages
    {
        Pages() = default;
        ~Pages();
        Pages(const Pages&) = delete;
        Pages& operator=(const Pages&) = delete;

        char* memory = nullptr;
        std::size_t size = 0;
    };

    void readAll(int file, const std::string& path);
    void grow(std::size_t size, const std::string& path);

    Pages m_pages;
    std::size_t m_size = 0; // of what was read
};

} // namespace dxf
