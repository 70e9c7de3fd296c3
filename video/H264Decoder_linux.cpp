#include "video/FFmpegModule_linux.h"
#include "video/H264Decoder.h"

#include <utility>

namespace pevrix {

struct H264Decoder::BackEnd
{
    std::unique_ptr<IStreamDecoder> decoder;
    Size shown{};
};

H264Decoder::H264Decoder(FrameCallback onFrame)
    : m_onFrame(std::move(onFrame))
{}

H264Decoder::~H264Decoder() = default;

void H264Decoder::setFrameCallback(FrameCallback onFrame)
{
    m_onFrame = std::move(onFrame);
}

bool H264Decoder::initialize(std::uint32_t /*width*/, std::uint32_t /*height*/)
{
    reset();
    const FFmpegModule* module = ffmpegModule();
    auto decoder = module != nullptr ? module->openDecoder() : nullptr;
    if (decoder == nullptr) {
        return false;
    }
    m_backEnd = std::make_unique<BackEnd>(std::move(decoder));
    return true;
}

bool H264Decoder::initialized() const
{
    return m_backEnd != nullptr;
}

void H264Decoder::feed(std::span<const std::uint8_t> data, std::int64_t timestampUs)
{
    if (m_backEnd == nullptr || data.empty()) {
        return;
    }
    if (!m_backEnd->decoder->send(data, timestampUs)) {
        drain();
        static_cast<void>(m_backEnd->decoder->send(data, timestampUs));
    }
    drain();
}

void H264Decoder::drain()
{
    if (m_backEnd == nullptr) {
        return;
    }
    while (const auto picture = m_backEnd->decoder->receive(m_bgr)) {
        m_backEnd->shown = {picture->width, picture->height};
        if (m_onFrame) {
            m_onFrame(m_bgr.data(), picture->width, picture->height, picture->ptsUsec);
        }
    }
}

H264Decoder::Size H264Decoder::shownSize() const
{
    return m_backEnd != nullptr ? m_backEnd->shown : Size{};
}

void H264Decoder::reset()
{
    m_backEnd.reset();
}

} // namespace pevrix
