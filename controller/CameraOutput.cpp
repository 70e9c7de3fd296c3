#include "controller/CameraOutput.h"

namespace pevrix {

bool CameraOutput::create()
{
    return m_sink.start(m_size.width(), m_size.height(), kFps);
}

bool CameraOutput::resize(QSize size)
{
    m_sink.stop();
    m_size = size;
    return create();
}

void CameraOutput::show(const SharedPicture& picture)
{
    if (m_enabled && QSize(picture->width, picture->height) == m_size) {
        m_sink.sendFrame(picture->pixels.data());
        ++m_framesSent;
    }
}

} // namespace pevrix
