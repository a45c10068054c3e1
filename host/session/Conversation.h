// The two ends of a session: requests that come in and answers that go out.
//
// While requests come faster than they are answered, another thread reads and writes beside the thread that runs them:
//
//   runs            | request 1 | request 2 | request 3 | ...
//   reads, writes   | reads 2, 3 | writes 1, reads 4 | writes 2, reads 5 | ...
//
// Whoever waits for each answer before the next request is served by the running thread alone, without a detour. An
// answer never waits for the next request in either case: it is on its way before that is begun, or the other thread is
// awake and writes it at once.
#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "session/LineReader.h"
#include "session/ReadRequest.h"

namespace session
{

class Conversation
{
public:
    // The descriptors stay open as long as this.
    Conversation(int input, int output);
    // Ends without what has not been written yet.
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    // The next request, valid until the next call; null at the end of the input.
    ReadRequest* next();

    // Sends an answer, a whole line. Returns false when nobody takes answers any more, which may turn out an answer or
    // more later.
    bool answer(std::string_view line);

    // Returns when all answers are written; false when they could not be.
    bool finish();

private:
    static constexpr std::size_t kAhead = 128; // requests that are read and not done

    ReadRequest& slot(std::size_t place) { return m_slots[place % kAhead]; }
    bool isOneRead() const { return countAhead() > 0; }
    std::size_t countAhead() const
    {
        return m_read.load(std::memory_order_acquire) - m_done.load(std::memory_order_acquire);
    }

    bool readOne();
    bool readAhead();
    void add(std::string_view line);
    bool writePending();
    void write(std::string_view bytes);
    void wake();
    void work();
    void serve();

    std::mutex m_reading; // held by who reads lines and adds requests
    LineReader m_lines;
    std::array<ReadRequest, kAhead> m_slots;
    std::atomic<std::size_t> m_read = 0; // requests, ever
    std::atomic<std::size_t> m_done = 0; // requests, ever; their slots are free again
    std::atomic<bool> m_hasMore = false; // input that can be read ahead is likely to be there
    bool m_isRunning = false;            // the first request that is not done
    bool m_mayWake;

    std::mutex m_writing; // held by who writes; taken before m_mutex
    int m_output;
    std::string m_beingWritten;
    std::atomic<bool> m_failed = false;

    std::mutex m_mutex; // of what follows
    std::condition_variable m_changed;
    std::string m_pending;                  // answers for the other thread; there are none while it sleeps
    std::atomic<bool> m_hasPending = false; // may be looked at without the mutex
    bool m_isAwake = false;
    bool m_ends = false;

    std::thread m_thread; // started when it is needed first
};

} // namespace session
