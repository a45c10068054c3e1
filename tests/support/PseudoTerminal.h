// Runs a program at a terminal that a test types at.
#pragma once

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support
{

class PseudoTerminal
{
public:
    explicit PseudoTerminal(const std::vector<std::string>& command)
    {
        std::vector<char*> arguments;
        for (const std::string& argument : command)
            arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        winsize size = {50, 200, 0, 0};
        m_id = ::forkpty(&m_file, nullptr, nullptr, &size);
        if (m_id < 0)
            throw std::runtime_error("no pseudo terminal");
        if (m_id == 0)
        {
            ::setenv("TERM", "xterm", 1);
            ::setenv("LC_ALL", "C.UTF-8", 1);
            ::execv(arguments[0], arguments.data());
            ::_exit(127);
        }
    }

    ~PseudoTerminal()
    {
        if (m_id > 0)
        {
            ::kill(m_id, SIGKILL);
            ::waitpid(m_id, nullptr, 0);
        }
        ::close(m_file);
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    void type(const std::string& keys)
    {
        for (std::size_t done = 0; done < keys.size();)
        {
            const ssize_t count = ::write(m_file, keys.data() + done, keys.size() - done);
            if (count < 0 && errno != EINTR)
                throw std::runtime_error("the terminal is gone");
            done += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
    }

    // Waits until the text appears behind what was waited for last. Returns what appeared in between. Throws
    // std::runtime_error, with what came instead, when it does not within the time. Control sequences of the terminal
    // are left out.
    std::string waitFor(const std::string& text, std::chrono::seconds patience = std::chrono::seconds(60))
    {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        for (;;)
        {
            const std::size_t at = m_shown.find(text);
            if (at != std::string::npos)
            {
                std::string before = m_shown.substr(0, at);
                m_shown.erase(0, at + text.size());
                return before;
            }
            if (std::chrono::steady_clock::now() > deadline || !read())
                throw std::runtime_error("\"" + text + "\" does not appear, but: " + m_shown);
        }
    }

    // Waits for the end. Returns the exit code, or minus the number of the signal that ended the program.
    int finish()
    {
        while (read())
            ;
        int status = 0;
        ::waitpid(m_id, &status, 0);
        m_id = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    // What has appeared since.
    const std::string& shown() const { return m_shown; }

private:
    bool read()
    {
        pollfd waits = {m_file, POLLIN, 0};
        ::poll(&waits, 1, 1000);
        if (waits.revents == 0)
            return true;
        char bytes[4096];
        const ssize_t count = ::read(m_file, bytes, sizeof bytes);
        if (count <= 0)
            return count < 0 && errno == EINTR;
        for (ssize_t i = 0; i < count; ++i)
            take(bytes[i]);
        return true;
    }

    // Escape, "[", digits and semicolons, a letter: no text.
    void take(char byte)
    {
        const bool isDigit = (byte >= '0' && byte <= '9') || byte == ';' || byte == '[' || byte == '?';
        if (byte == '\x1b')
            m_isControl = true;
        else if (m_isControl)
            m_isControl = isDigit;
        else if (byte != '\r')
            m_shown += byte;
    }

    pid_t m_id = 0;
    int m_file = -1;
    bool m_isControl = false;
    std::string m_shown;
};

} // namespace support
