#include "tools/phonesim/Thumbnail.h"

#include "tools/phonesim/Pattern.h"

#include <QBuffer>
#include <QImage>

#include <algorithm>
#include <vector>

namespace pevrix {

namespace {

constexpr int kMaxWidth = 320;

QRgb toRgb(int y, int u, int v)
{
    const int c = 298 * (y - 16) + 128;
    const int d = u - 128;
    const int e = v - 128;
    const auto clip = [](int value) {
        return std::clamp(value >> 8, 0, 255);
    };
    return qRgb(clip(c + 409 * e), clip(c - 100 * d - 208 * e), clip(c + 516 * d));
}

QImage toImage(const PictureView& picture)
{
    QImage image(picture.width, picture.height, QImage::Format_RGB32);
    for (int row = 0; row < picture.height; ++row) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(row));
        const std::uint8_t* y = picture.y + row * picture.strideY;
        const std::uint8_t* u = picture.u + row / 2 * picture.strideC;
        const std::uint8_t* v = picture.v + row / 2 * picture.strideC;
        for (int column = 0; column < picture.width; ++column) {
            line[column] = toRgb(y[column], u[column / 2], v[column / 2]);
        }
    }
    return image;
}

} // namespace

QByteArray makeThumbnail(const StreamDescription& stream, std::int64_t number)
{
    const int width = std::min(stream.width, kMaxWidth);
    const Pattern pattern(width, stream.height * width / std::max(1, stream.width));
    const auto luma =
        static_cast<std::size_t>(pattern.width()) * static_cast<std::size_t>(pattern.height());
    std::vector<std::uint8_t> planes(luma * 3 / 2);
    const PictureView picture{
        planes.data(),   planes.data() + luma, planes.data() + luma + luma / 4,
        pattern.width(), pattern.width() / 2,  pattern.width(),
        pattern.height()};
    pattern.draw(number, picture);

    QBuffer jpeg;
    jpeg.open(QIODevice::WriteOnly);
    return toImage(picture).save(&jpeg, "JPEG") ? jpeg.data() : QByteArray();
}

} // namespace pevrix
