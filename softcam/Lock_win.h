#pragma once

#include <windows.h>

namespace pevrix {

// Mutexes that need nothing but memory: other programs load and unload this library, and the run
// time's own mutexes keep a handle of the kernel until the process ends.

// For std::lock_guard; held for moments, never while foreign code is called.
class Lock
{
public:
    void lock() { AcquireSRWLockExclusive(&m_lock); }
    void unlock() { ReleaseSRWLockExclusive(&m_lock); }

private:
    SRWLOCK m_lock = SRWLOCK_INIT;
};

// The same, but a thread that has it may take it again.
class RecursiveLock
{
public:
    RecursiveLock() { InitializeCriticalSection(&m_section); }
    ~RecursiveLock() { DeleteCriticalSection(&m_section); }
    RecursiveLock(const RecursiveLock&) = delete;
    RecursiveLock& operator=(const RecursiveLock&) = delete;

    void lock() { EnterCriticalSection(&m_section); }
    void unlock() { LeaveCriticalSection(&m_section); }

private:
    CRITICAL_SECTION m_section;
};

} // namespace pevrix
