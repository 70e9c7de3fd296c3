#include "pairing/QrImage.h"

#include <qrcodegen.hpp>

#include <QBuffer>
#include <QPainter>

#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

constexpr int kModulePixels = 8;
// Readers need a quiet zone of at least 4 modules around the symbol.
constexpr int kMarginPixels = 4 * kModulePixels;

std::optional<qrcodegen::QrCode> encode(const QString& text)
{
    if (text.contains(QChar::Null)) {
        return std::nullopt; // The encoder takes a C string and would stop there.
    }
    try {
        return qrcodegen::QrCode::encodeText(text.toUtf8().constData(),
                                             qrcodegen::QrCode::Ecc::MEDIUM);
    } catch (const std::length_error&) {
        return std::nullopt;
    }
}

} // namespace

QImage makeQrImage(const QString& text)
{
    const auto code = encode(text);
    if (!code) {
        return {};
    }
    const int modules = code->getSize();
    const int side = modules * kModulePixels + 2 * kMarginPixels;
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int y = 0; y < modules; ++y) {
        for (int x = 0; x < modules; ++x) {
            if (code->getModule(x, y)) {
                painter.fillRect(kMarginPixels + kModulePixels * x,
                                 kMarginPixels + kModulePixels * y, kModulePixels, kModulePixels,
                                 QColor(11, 14, 21));
            }
        }
    }
    painter.end();
    return image;
}

QString makeQrDataUrl(const QString& text)
{
    const QImage image = makeQrImage(text);
    QBuffer png;
    if (image.isNull() || !image.save(&png, "PNG")) {
        return {};
    }
    return u"data:image/png;base64,"_s + QString::fromLatin1(png.data().toBase64());
}

} // namespace pevrix
