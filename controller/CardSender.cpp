#include "controller/CardSender.h"

#include "picture/PictureSize.h"

#include <system_error>

namespace pevrix {

namespace {

constexpr std::uint8_t kFallbackGrey = 18;

} // namespace

CardSender::CardSender(IVirtualCameraSink& sink, const std::atomic<bool>& outputEnabled,
                       std::atomic<std::int64_t>& framesSent)
    : m_sink(sink)
    , m_outputEnabled(outputEnabled)
    , m_framesSent(framesSent)
{}

CardSender::~CardSender()
{
    stop();
}

void CardSender::setCard(Card card)
{
    const std::lock_guard lock(m_mutex);
    m_card = std::move(card);
}

CardSender::Card CardSender::card() const
{
    const std::lock_guard lock(m_mutex);
    return m_card;
}

void CardSender::start(int width, int height)
{
    if (m_running || !isPictureSize(width, height)) {
        return;
    }
    m_running = true;
    try {
        m_thread = std::thread(&CardSender::sendCards, this, pictureBytes(width, height));
    } catch (const std::system_error&) {
        m_running = false; // the camera repeats its last picture
    }
}

void CardSender::stop()
{
    m_running = false;
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

// The sender thread. A late one catches up in a burst, so that the rate holds on average.
void CardSender::sendCards(std::size_t bytes)
{
    const PacingTime time;
    FrameClock clock(kPeriod, time.now());
    std::vector<std::uint8_t> fallback;
    while (m_running) {
        if (m_outputEnabled) {
            const Card current = card();
            if (current && current->size() == bytes) {
                m_sink.sendFrame(current->data());
            } else {
                fallback.resize(bytes, kFallbackGrey);
                m_sink.sendFrame(fallback.data());
            }
            ++m_framesSent;
        }
        if (const auto deadline = clock.advance(time.now())) {
            time.sleepUntil(*deadline);
        }
    }
}

} // namespace pevrix
