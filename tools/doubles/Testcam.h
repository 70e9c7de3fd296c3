#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

// A camera library that shows nothing and remembers what was done to it. A test reaches the state
// through the exported function testcamState of the very library that the program loads; the state
// lives as long as the library stays loaded.
struct TestcamState
{
    const char* origin = nullptr; // which of the built libraries this is

    // How the library behaves; set while there is no camera, except for appConnected.
    bool createFails = false;
    std::atomic<bool> appConnected = false;
    std::function<void(const std::uint8_t* pixels)> onSend = nullptr; // on the thread that sends

    // What the last scCreateCamera was asked for.
    int width = 0;
    int height = 0;
    float fps = 0;

    std::atomic<int> created = 0;
    std::atomic<int> deleted = 0;
    std::atomic<int> sent = 0;
    std::atomic<int> misuses = 0; // calls with a camera that does not exist (any more)
};

using TestcamStateFunction = TestcamState* (*)();
