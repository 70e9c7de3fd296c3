#pragma once

#include "camera/PacedThread.h"
#include "controller/CameraOutput.h"

#include <chrono>
#include <mutex>

namespace pevrix {

// Sends a still picture to the camera 30 times a second, on a thread of its own, while there is no
// video. The thread is stopped and joined by stop() and by the destructor.
class CardSender
{
public:
    // 30 pictures a second, in whole microseconds.
    static constexpr std::chrono::nanoseconds kPeriod{33'333'000};

    // `output` must outlive this object.
    explicit CardSender(CameraOutput& output)
        : m_output(output)
    {}

    // Puts another card in place of the one being sent. Any thread; a card is sent whole.
    void setCard(SharedPicture card);

    // Starts to send; does nothing while it sends already, or when the system has no thread left.
    // A card that is not of the camera's size is replaced by plain dark grey.
    void start();
    void stop() { m_thread.stop(); }
    [[nodiscard]] bool isRunning() const { return m_thread.isRunning(); }

private:
    [[nodiscard]] SharedPicture card() const;

    CameraOutput& m_output;
    mutable std::mutex m_mutex; // guards m_card
    SharedPicture m_card;
    PacedThread m_thread; // last: it uses all of the above
};

} // namespace pevrix
