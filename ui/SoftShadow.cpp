#include "ui/SoftShadow.h"

#include <QQuickWindow>
#include <QSGNinePatchNode>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace pevrix {

namespace {

// A deep core and a wide, faint rim: what a stack of blurs of halved pictures looks like.
// Deviations in pixels for a blur of 1.
struct Bell
{
    double weight;
    double deviation;
};
constexpr Bell kBells[] = {{0.57, 4.55}, {0.30, 13.8}, {0.13, 0.61}};

// Beyond this, for a blur of 1, nothing of a half transparent black is left.
constexpr double kReach = 50;

// The part of a bell curve that lies left of `z` deviations.
double leftOf(double z)
{
    return 0.5 * std::erfc(-z / std::numbers::sqrt2);
}

// A row of the rectangle's corner, or all rows below the rounding.
struct Run
{
    double begin = 0; // its left end
    double top = 0;
    double bottom = std::numeric_limits<double>::infinity();
};

std::vector<Run> runsOf(double radius)
{
    std::vector<Run> runs;
    const int rounded = static_cast<int>(std::ceil(radius));
    for (int row = 0; row < rounded; ++row) {
        const double rise = std::max(radius - (row + 0.5), 0.0);
        runs.push_back({radius - std::sqrt(radius * radius - rise * rise), 1.0 * row, row + 1.0});
    }
    runs.push_back({.begin = 0, .top = 1.0 * rounded});
    return runs;
}

// How far the shadow reaches, and how much of the picture a corner takes, in its pixels.
int reachOf(qreal blur)
{
    return static_cast<int>(std::ceil(kReach * blur));
}

int cornerOf(qreal radius, qreal blur)
{
    return static_cast<int>(std::ceil(radius)) + 2 * reachOf(blur);
}

// The darkness of a corner's pixels, 0 to 1: what a bell curve makes of a run is a product of its
// two directions.
std::vector<double> darknessOf(qreal radius, qreal blur)
{
    const auto side = static_cast<std::size_t>(cornerOf(radius, blur)) + 1;
    std::vector<double> darkness(side * side);
    std::vector<double> across(side);
    for (const Bell& bell : kBells) {
        const auto part = [&, first = 0.5 - reachOf(blur)](std::size_t pixel, double border) {
            return leftOf((static_cast<double>(pixel) + first - border) / (bell.deviation * blur));
        };
        for (const Run& run : runsOf(radius)) {
            for (std::size_t x = 0; x < side; ++x) {
                across[x] = bell.weight * part(x, run.begin);
            }
            for (std::size_t y = 0; y < side; ++y) {
                const double down = part(y, run.top) - part(y, run.bottom);
                for (std::size_t x = 0; x < side; ++x) {
                    darkness[y * side + x] += down * across[x];
                }
            }
        }
    }
    return darkness;
}

} // namespace

SoftShadow::SoftShadow(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &SoftShadow::changed, this, [this] {
        m_stale = true;
        update();
    });
}

QImage SoftShadow::draw(qreal radius, qreal blur, const QColor& color)
{
    const int corner = cornerOf(radius, blur);
    const int last = 2 * corner;
    const std::vector<double> darkness = darknessOf(radius, blur);
    auto next = darkness.begin();
    QImage image(last + 1, last + 1, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y <= corner; ++y) {
        for (int x = 0; x <= corner; ++x) {
            const QRgb pixel = qPremultiply(
                qRgba(color.red(), color.green(), color.blue(), qRound(color.alpha() * *next++)));
            for (const QPoint point : {QPoint(x, y), QPoint(last - x, y), QPoint(x, last - y),
                                       QPoint(last - x, last - y)}) {
                image.setPixel(point, pixel);
            }
        }
    }
    return image;
}

QSGNode* SoftShadow::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*)
{
    auto* node = static_cast<QSGNinePatchNode*>(oldNode);
    const qreal scale = window()->effectiveDevicePixelRatio();
    if (!node || m_stale) {
        if (!node) {
            node = window()->createNinePatchNode();
        }
        // The node owns the texture.
        node->setTexture(
            window()->createTextureFromImage(draw(m_radius * scale, m_blur * scale, m_color)));
        m_stale = false;
    }
    const qreal reach = reachOf(m_blur * scale) / scale;
    const qreal corner = cornerOf(m_radius * scale, m_blur * scale) / scale;
    node->setBounds(boundingRect().adjusted(-reach, -reach, reach, reach));
    node->setDevicePixelRatio(scale);
    node->setPadding(corner, corner, corner, corner);
    node->update();
    return node;
}

void SoftShadow::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) {
        m_stale = true;
        update();
    }
    QQuickItem::itemChange(change, data);
}

} // namespace pevrix
