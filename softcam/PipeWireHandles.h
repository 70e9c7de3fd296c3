#pragma once

#include <memory>
#include <pipewire/pipewire.h>

namespace pevrix::pw {

// Owners of PipeWire's objects. Where an object has a thread rule it is that of the function that
// its deleter calls: everything but the thread loop itself belongs to the loop's thread, or to
// anybody once the loop has stopped.
template <auto kDelete>
struct Deleter
{
    template <typename T>
    void operator()(T* object) const
    {
        kDelete(object);
    }
};

using ThreadLoop = std::unique_ptr<pw_thread_loop, Deleter<pw_thread_loop_destroy>>;
using Context = std::unique_ptr<pw_context, Deleter<pw_context_destroy>>;
using Core = std::unique_ptr<pw_core, Deleter<pw_core_disconnect>>;
using Stream = std::unique_ptr<pw_stream, Deleter<pw_stream_destroy>>;

// Keeps the library's own state; the library counts its users.
class Library
{
public:
    Library() { pw_init(nullptr, nullptr); }
    ~Library() { pw_deinit(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

// A place in an object's list of listeners. It must go before the object does.
class Listener
{
public:
    Listener() = default;
    ~Listener() { spa_hook_remove(&m_hook); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    [[nodiscard]] spa_hook* hook() { return &m_hook; }

private:
    spa_hook m_hook{}; // zero: in no list yet
};

} // namespace pevrix::pw
