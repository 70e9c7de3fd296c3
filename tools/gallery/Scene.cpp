#include "tools/gallery/Scene.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace pevrix {

namespace {

constexpr QSize kSize(1280, 720);

QLinearGradient downward(const QRectF& area, const QColor& top, const QColor& bottom)
{
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

void fillRounded(QPainter& painter, const QRectF& area, qreal radius, const QBrush& brush)
{
    painter.setBrush(brush);
    painter.drawRoundedRect(area, radius, radius);
}

void paintRoom(QPainter& painter)
{
    const QRectF wall(QPointF(), kSize);
    painter.fillRect(wall, downward(wall, QColor(0xe9d9c4), QColor(0xc9ad90)));
    QRadialGradient light(QPointF(300, 240), 620);
    light.setColorAt(0, QColor(255, 246, 220, 190));
    light.setColorAt(1, QColor(255, 246, 220, 0));
    painter.fillRect(wall, light);
}

void paintWindow(QPainter& painter)
{
    const QRectF frame(90, 60, 330, 400);
    fillRounded(painter, frame, 10, QColor(0xfaf6ef));
    const QRectF glass = frame.adjusted(16, 16, -16, -16);
    painter.fillRect(glass, downward(glass, QColor(0x8fc9ea), QColor(0xe3f3f4)));
    painter.setClipRect(glass);
    painter.setBrush(QColor(0x86b98b));
    painter.drawEllipse(QPointF(180, 470), 190, 110);
    painter.setBrush(QColor(0x6aa57b));
    painter.drawEllipse(QPointF(380, 490), 180, 120);
    painter.setClipping(false);
    painter.fillRect(QRectF(frame.center().x() - 7, frame.top(), 14, frame.height()),
                     QColor(0xfaf6ef));
    painter.fillRect(QRectF(frame.left(), frame.center().y() - 7, frame.width(), 14),
                     QColor(0xfaf6ef));
    fillRounded(painter, QRectF(70, 456, 370, 22), 6, QColor(0xf1e8da));
}

void paintShelf(QPainter& painter)
{
    painter.setBrush(QColor(0x8a6242));
    painter.drawRect(QRectF(880, 250, 330, 16));
    constexpr QRgb kBooks[] = {0x2f6f73, 0xd98e4a, 0x3c4a63, 0xb6533c, 0xe2c48d, 0x557a4c};
    qreal x = 905;
    qreal height = 96;
    for (const QRgb color : kBooks) {
        fillRounded(painter, QRectF(x, 250 - height, 24, height), 3, QColor(color));
        x += 28;
        height = height > 80 ? height - 17 : height + 25;
    }
    fillRounded(painter, QRectF(1110, 206, 62, 44), 8, QColor(0xf4efe6));
    painter.setBrush(QColor(0x4c8c5d));
    for (const int angle : {-50, -25, 0, 25, 50}) {
        painter.save();
        painter.translate(1141, 210);
        painter.rotate(angle);
        painter.drawEllipse(QPointF(0, -48), 13, 48);
        painter.restore();
    }
}

void paintPerson(QPainter& painter)
{
    QPainterPath shoulders;
    shoulders.moveTo(360, 720);
    shoulders.cubicTo(370, 560, 480, 520, 590, 500);
    shoulders.lineTo(690, 500);
    shoulders.cubicTo(800, 520, 910, 560, 920, 720);
    painter.setBrush(QColor(0x2b5a63));
    painter.drawPath(shoulders);
    fillRounded(painter, QRectF(590, 420, 100, 130), 48, QColor(0xd79f7c)); // neck
    painter.setBrush(QColor(0x3a2a25));
    painter.drawEllipse(QPointF(640, 290), 142, 160); // hair
    painter.setBrush(QColor(0xe8b491));
    painter.drawEllipse(QPointF(640, 330), 112, 140); // face
    QPainterPath fringe;
    fringe.moveTo(524, 300);
    fringe.cubicTo(530, 90, 750, 90, 758, 300);
    fringe.cubicTo(720, 250, 640, 230, 600, 236);
    fringe.cubicTo(570, 250, 545, 270, 524, 300);
    painter.setBrush(QColor(0x3a2a25));
    painter.drawPath(fringe);
    painter.drawEllipse(QPointF(596, 330), 9, 11);
    painter.drawEllipse(QPointF(684, 330), 9, 11);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0xa85f4c), 7, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(594, 350, 92, 66), 205 * 16, 130 * 16);
}

} // namespace

QImage paintScene()
{
    QImage image(kSize, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintRoom(painter);
    paintWindow(painter);
    paintShelf(painter);
    paintPerson(painter);
    return image;
}

} // namespace pevrix
