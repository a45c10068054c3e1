// Keeping threads apart.
#pragma once

#include <memory>
#include <mutex>

/** An OdMutex lets one thread at a time through; the thread that has it may take it again. */
class OdMutex
{
public:
    void lock() { m_mutex.lock(); }
    void unlock() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

using OdMutexPtr = std::shared_ptr<OdMutex>;

/** Holds a mutex as long as it lives. */
class OdMutexAutoLock
{
public:
    explicit OdMutexAutoLock(OdMutex& mutex) : m_mutex(mutex) { m_mutex.lock(); }
    ~OdMutexAutoLock() { m_mutex.unlock(); }
    OdMutexAutoLock(const OdMutexAutoLock&) = delete;
    OdMutexAutoLock& operator=(const OdMutexAutoLock&) = delete;

private:
    OdMutex& m_mutex;
};
