// The two ends of a session: requests that come in and answers that go out.
#include "session/Conversation.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace session
{

namespace
{

constexpr int kWorthWaking = 8; // lines; fewer are read sooner than the other thread is awake
constexpr std::size_t kMostPending = std::size_t{256} << 10; // bytes

} // namespace

Conversation::Conversation(int input, int output)
    : m_lines(input), m_mayWake(std::thread::hardware_concurrency() > 1), m_output(output)
{
}

Conversation::~Conversation()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_changed.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

ReadRequest* Conversation::next()
{
    if (m_isRunning)
        m_done.store(m_done.load(std::memory_order_relaxed) + 1, std::memory_order_release);
    m_isRunning = isOneRead() || readOne();
    if (!m_isRunning)
        return nullptr;
    if (m_hasMore.load(std::memory_order_relaxed) && countAhead() <= kAhead / 2)
        wake();
    return &slot(m_done.load(std::memory_order_relaxed));
}

bool Conversation::answer(std::string_view line)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isAwake && m_pending.size() + line.size() <= kMostPending)
        {
            m_pending += line;
            m_hasPending.store(true, std::memory_order_release);
            return !m_failed;
        }
    }
    writePending();
    const std::lock_guard lock(m_writing);
    write(line);
    return !m_failed;
}

bool Conversation::finish()
{
    writePending();
    const std::lock_guard lock(m_writing); // what the other thread took is written, too
    return !m_failed;
}

// Reads a request, as long as that may take. False at the end of the input.
bool Conversation::readOne()
{
    const std::lock_guard lock(m_reading);
    if (isOneRead()) // by the other thread, meanwhile
        return true;
    std::string_view line;
    if (!m_lines.read(line))
        return false;
    add(line);
    m_hasMore.store(m_lines.hasLines(kWorthWaking), std::memory_order_relaxed);
    return true;
}

// Reads a request if there is one to be had at once, and a place for it.
bool Conversation::readAhead()
{
    if (countAhead() == kAhead)
        return false;
    const std::unique_lock lock(m_reading,
                                std::try_to_lock); // the running thread may wait for input, with answers here
    if (!lock.owns_lock())
        return false;
    std::string_view line;
    const bool isThere = m_lines.readAhead(line);
    if (isThere)
        add(line);
    m_hasMore.store(isThere, std::memory_order_relaxed);
    return isThere;
}

void Conversation::add(std::string_view line)
{
    const std::size_t place = m_read.load(std::memory_order_relaxed);
    slot(place).read(line, m_lines.wasTooLong());
    m_read.store(place + 1, std::memory_order_release);
}

// Returns false when there was nothing to write.
bool Conversation::writePending()
{
    if (!m_hasPending.load(std::memory_order_acquire))
        return false;
    const std::lock_guard writing(m_writing);
    {
        const std::lock_guard lock(m_mutex);
        m_beingWritten.swap(m_pending);
        m_hasPending.store(false, std::memory_order_relaxed);
    }
    write(m_beingWritten);
    m_beingWritten.clear();
    return true;
}

void Conversation::write(std::string_view bytes)
{
    while (!bytes.empty() && !m_failed)
    {
        const ssize_t count = ::write(m_output, bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            m_failed = true;
    }
}

void Conversation::wake()
{
    if (!m_mayWake)
        return;
    const std::lock_guard lock(m_mutex);
    if (m_isAwake)
        return;
    try
    {
        if (!m_thread.joinable())
            m_thread = std::thread([this] { work(); });
        m_isAwake = true;
        m_changed.notify_one();
    }
    catch (const std::system_error&)
    {
        m_mayWake = false; // no thread can be had: this one does everything
    }
}

void Conversation::work()
{
    std::unique_lock lock(m_mutex);
    for (;;)
    {
        m_changed.wait(lock, [this] { return m_isAwake || m_ends; });
        if (m_ends)
            return;
        lock.unlock();
        serve();
        lock.lock();
        m_isAwake = !m_pending.empty();
    }
}

// Ends when nothing is left to do.
void Conversation::serve()
{
    bool didSomething = true;
    while (didSomething)
    {
        const bool wrote = writePending();
        didSomething = readAhead() || wrote;
    }
}

} // namespace session
