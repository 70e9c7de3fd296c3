#pragma once

#include <QImage>
#include <QString>

namespace pevrix {

// Draws `text` (as UTF-8) as a QR code of error-correction level M: near-black modules of 8 x 8
// pixels on white with a quiet zone of 4 modules, so (modules * 8 + 64) pixels square, 32-bit RGB.
// A null image when no symbol holds that much text (about 2300 bytes) or the text holds a NUL.
[[nodiscard]] QImage makeQrImage(const QString& text);

// The same code as a PNG in a "data:image/png;base64," URL, which QML takes as an image source.
// Empty when makeQrImage() has no image to give.
[[nodiscard]] QString makeQrDataUrl(const QString& text);

} // namespace pevrix
