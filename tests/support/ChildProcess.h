// Runs a program as a child with its three streams in our hands.
#pragma once

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support
{

class ChildProcess
{
public:
    // Starts the program. Throws std::runtime_error when it cannot be started. folder is where it runs, empty for here.
    explicit ChildProcess(const std::vector<std::string>& command, const std::string& folder = {})
    {
        std::signal(SIGPIPE, SIG_IGN);
        int in[2], out[2], error[2];
        if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(error, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        std::vector<char*> arguments;
        for (const std::string& argument : command)
            arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        m_id = ::fork();
        if (m_id == 0)
        {
            if (!folder.empty() && ::chdir(folder.c_str()) != 0)
                ::_exit(126);
            ::dup2(in[0], 0);
            ::dup2(out[1], 1);
            ::dup2(error[1], 2);
            ::execv(arguments[0], arguments.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        ::close(error[1]);
        m_in = in[1];
        m_streams[0] = {out[0], {}};
        m_streams[1] = {error[0], {}};
    }

    ~ChildProcess()
    {
        if (m_id > 0)
            ::kill(m_id, SIGKILL);
        finish();
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Writes to the child's input while its output is drained, so that neither waits for the other.
    void write(std::string_view bytes)
    {
        while (!bytes.empty())
        {
            pollfd waits[3] = {{m_in, POLLOUT, 0}, {m_streams[0].file, POLLIN, 0}, {m_streams[1].file, POLLIN, 0}};
            ::poll(waits, 3, -1);
            for (int i = 0; i < 2; ++i)
                if (waits[i + 1].revents != 0)
                    drain(m_streams[i]);
            if ((waits[0].revents & (POLLERR | POLLHUP)) != 0)
                return;
            if ((waits[0].revents & POLLOUT) == 0)
                continue;
            const ssize_t count = ::write(m_in, bytes.data(), std::min<std::size_t>(bytes.size(), PIPE_BUF));
            if (count < 0 && errno != EINTR)
                return;
            if (count > 0)
                bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    // The next line of the child's output without its line feed. Throws std::runtime_error, with what stands on its
    // error stream, when none comes within the time.
    std::string readLine(std::chrono::seconds patience = std::chrono::seconds(120))
    {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        for (;;)
        {
            const std::size_t feed = m_streams[0].text.find('\n');
            if (feed != std::string::npos)
            {
                std::string line = m_streams[0].text.substr(0, feed);
                m_streams[0].text.erase(0, feed + 1);
                return line;
            }
            if (std::chrono::steady_clock::now() > deadline || !waitForOutput())
                throw std::runtime_error("the program says no more; on its error stream: " + m_streams[1].text);
        }
    }

    void closeInput()
    {
        if (m_in >= 0)
            ::close(m_in);
        m_in = -1;
    }

    void kill(int signal) { ::kill(m_id, signal); }

    // Ends the input, reads all that comes and waits for the end. Returns the exit code, or minus the number of the
    // signal that ended the child.
    int finish()
    {
        closeInput();
        while (waitForOutput())
            ;
        if (m_id > 0)
        {
            int status = 0;
            ::waitpid(m_id, &status, 0);
            m_id = 0;
            m_code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        }
        return m_code;
    }

    // What is left of its output, what it has said on its error stream.
    const std::string& output() const { return m_streams[0].text; }
    const std::string& errors() const { return m_streams[1].text; }

private:
    struct Stream
    {
        int file = -1;
        std::string text;
    };

    // Reads once; false when both streams have ended.
    bool waitForOutput()
    {
        pollfd waits[2] = {{m_streams[0].file, POLLIN, 0}, {m_streams[1].file, POLLIN, 0}};
        if (waits[0].fd < 0 && waits[1].fd < 0)
            return false;
        ::poll(waits, 2, 1000);
        for (int i = 0; i < 2; ++i)
            if (waits[i].revents != 0)
                drain(m_streams[i]);
        return true;
    }

    static void drain(Stream& stream)
    {
        char bytes[65536];
        const ssize_t count = stream.file < 0 ? 0 : ::read(stream.file, bytes, sizeof bytes);
        if (count > 0)
            stream.text.append(bytes, static_cast<std::size_t>(count));
        else if (stream.file >= 0 && (count == 0 || errno != EINTR))
        {
            ::close(stream.file);
            stream.file = -1;
        }
    }

    pid_t m_id = 0;
    int m_in = -1;
    Stream m_streams[2];
    int m_code = 0;
};

/// How a program ended and what it said.
struct Transcript
{
    int code;
    std::string output, errors;
};

inline Transcript transcriptOf(const std::vector<std::string>& command, const std::string& input = {},
                               const std::string& folder = {})
{
    ChildProcess program(command, folder);
    program.write(input);
    const int code = program.finish();
    return {code, program.output(), program.errors()};
}

} // namespace support
