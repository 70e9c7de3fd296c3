#include "controller/CardSender.h"

#include <utility>

namespace pevrix {

namespace {

constexpr std::uint8_t kFallbackGrey = 18;

SharedPicture plainGrey(QSize size)
{
    return sharePicture(size.width(), size.height(),
                        std::vector(pictureBytes(size.width(), size.height()), kFallbackGrey));
}

} // namespace

void CardSender::setCard(SharedPicture card)
{
    const std::lock_guard lock(m_mutex);
    m_card = std::move(card);
}

SharedPicture CardSender::card() const
{
    const std::lock_guard lock(m_mutex);
    return m_card;
}

void CardSender::start()
{
    const QSize size = m_output.size();
    if (isRunning() || !isPictureSize(size.width(), size.height())) {
        return;
    }
    const auto sendCard = [this, size, fallback = SharedPicture()]() mutable {
        SharedPicture picture = card();
        if (!picture || QSize(picture->width, picture->height) != size) {
            fallback = fallback ? fallback : plainGrey(size);
            picture = fallback;
        }
        m_output.show(picture);
    };
    // Without a thread the camera repeats its last picture.
    static_cast<void>(m_thread.start(kPeriod, sendCard));
}

} // namespace pevrix
