#pragma once

#include <QImage>

namespace pevrix {

// A picture as a phone might send it: somebody at home before the camera. 1280 x 720.
[[nodiscard]] QImage paintScene();

} // namespace pevrix
