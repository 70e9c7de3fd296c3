#pragma once

#include "camera/FrameClock.h"
#include "camera/IVirtualCameraSink.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace pevrix {

/// Feeds the camera with a still picture 30 times a second, on a thread of its own, while no video
/// does. The thread is stopped and joined by stop() and by the destructor.
class CardSender
{
public:
    using Card = std::shared_ptr<const std::vector<std::uint8_t>>; // packed pixels

    /// 30 pictures a second, in whole microseconds.
    static constexpr std::chrono::nanoseconds kPeriod{33'333'000};

    /// `outputEnabled` says whether pictures go out, `framesSent` counts them; like the sink they
    /// belong to the caller and must outlive this object.
    CardSender(IVirtualCameraSink& sink, const std::atomic<bool>& outputEnabled,
               std::atomic<std::int64_t>& framesSent);
    ~CardSender();
    CardSender(const CardSender&) = delete;
    CardSender& operator=(const CardSender&) = delete;

    /// Puts another card in place of the one being sent. Any thread; the pixels are never written
    /// to again, so that a card is sent whole.
    void setCard(Card card);

    /// Starts to send pictures of this size; does nothing while it sends already, or when the
    /// system has no thread left. A card of another size is replaced by plain dark grey.
    void start(int width, int height);
    void stop();
    [[nodiscard]] bool isRunning() const { return m_running; }

private:
    void sendCards(std::size_t bytes);
    [[nodiscard]] Card card() const;

    IVirtualCameraSink& m_sink;
    const std::atomic<bool>& m_outputEnabled;
    std::atomic<std::int64_t>& m_framesSent;
    std::atomic<bool> m_running = false;
    mutable std::mutex m_mutex; // guards m_card
    Card m_card;
    std::thread m_thread;
};

} // namespace pevrix
