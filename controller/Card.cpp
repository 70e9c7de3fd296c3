#include "controller/Card.h"

#include "picture/PictureSize.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QStringList>

#include <new>
#include <span>

namespace pevrix {
namespace {

using namespace Qt::StringLiterals;

constexpr QRgb kBackground = qRgb(0x0b, 0x0e, 0x15);
constexpr QRgb kTitleColor = qRgb(0xee, 0xf2, 0xf8);
constexpr QRgb kSecondLineColor = qRgb(0x8a, 0x95, 0xa7);
constexpr QRgb kThirdLineColor = qRgb(0x5a, 0x65, 0x76);
constexpr QRgb kIdleDotColor = qRgb(0x22, 0xd0, 0xc1);
constexpr QRgb kPausedDotColor = qRgb(0xf5, 0xa6, 0x23);

// 96 dots per inch: a desktop with another resolution would let the text outgrow its box.
constexpr int kDotsPerMeter = 3780;

// What the pairing says when this computer has no address; the card does not show it.
constexpr auto kNoAddress = "No LAN address found"_L1;

struct CardText
{
    QRgb dotColor = 0;
    QString secondLine;
    QString thirdLine; // empty for none
    QString thirdLineFamily;
};

QString textFamily()
{
    return u"Segoe UI"_s;
}

QString monospaceFamily()
{
    return u"Consolas"_s;
}

// The named fonts come with Windows. Elsewhere the free ones closest in shape and width take their
// place, so that a card looks alike on every computer that has them.
void substituteMissingFonts()
{
    static const bool substituted = [] {
        QFont::insertSubstitutions(textFamily(),
                                   {u"Open Sans"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
        QFont::insertSubstitutions(monospaceFamily(),
                                   {u"Inconsolata"_s, u"Noto Sans Mono"_s, u"DejaVu Sans Mono"_s});
        return true;
    }();
    static_cast<void>(substituted);
}

// A row of text across the whole picture; top and bottom belong to its box.
struct TextRow
{
    int top = 0;
    int bottom = 0;
    Qt::Alignment alignment;
    QRgb color = 0;
    QFont font;
};

void drawRow(QPainter& painter, const TextRow& row, const QString& text)
{
    const QRect box(QPoint(0, row.top), QPoint(painter.window().width() - 1, row.bottom));
    painter.setFont(row.font);
    painter.setPen(QColor(row.color));
    painter.drawText(box, Qt::AlignHCenter | row.alignment, text);
}

void paint(QPainter& painter, const CardText& card)
{
    const int cx = painter.window().width() / 2;
    const int cy = painter.window().height() / 2;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);

    drawRow(
        painter,
        {cy - 96, cy - 13, Qt::AlignBottom, kTitleColor, QFont(textFamily(), 44, QFont::DemiBold)},
        u"Pevrix"_s);

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(card.dotColor));
    painter.drawEllipse(cx - 4, cy - 2, 8, 8);

    drawRow(painter, {cy + 16, cy + 49, Qt::AlignTop, kSecondLineColor, QFont(textFamily(), 18)},
            card.secondLine);
    if (!card.thirdLine.isEmpty()) {
        drawRow(painter,
                {cy + 54, cy + 79, Qt::AlignTop, kThirdLineColor, QFont(card.thirdLineFamily, 13)},
                card.thirdLine);
    }
}

// The blue, green and red of each pixel without QImage's padding. Its own conversion would start a
// thread pool for this.
std::vector<std::uint8_t> packedPixels(const QImage& rgb32)
{
    std::vector<std::uint8_t> pixels(pictureBytes(rgb32.width(), rgb32.height()));
    auto out = pixels.begin();
    for (int y = 0; y < rgb32.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(rgb32.constScanLine(y));
        for (const QRgb pixel : std::span(row, static_cast<std::size_t>(rgb32.width()))) {
            *out++ = static_cast<std::uint8_t>(qBlue(pixel));
            *out++ = static_cast<std::uint8_t>(qGreen(pixel));
            *out++ = static_cast<std::uint8_t>(qRed(pixel));
        }
    }
    return pixels;
}

std::vector<std::uint8_t> draw(QSize size, const CardText& card)
try {
    if (!isPictureSize(size.width(), size.height())) {
        return {};
    }
    substituteMissingFonts();
    QImage canvas(size, QImage::Format_RGB32);
    if (canvas.isNull()) { // no memory
        return {};
    }
    canvas.setDotsPerMeterX(kDotsPerMeter);
    canvas.setDotsPerMeterY(kDotsPerMeter);
    canvas.fill(kBackground);
    QPainter painter(&canvas);
    paint(painter, card);
    painter.end();
    return packedPixels(canvas);
} catch (const std::bad_alloc&) {
    return {};
}

} // namespace

std::vector<std::uint8_t> drawIdleCard(QSize size, const QString& address)
{
    return draw(size, {.dotColor = kIdleDotColor,
                       .secondLine = u"Waiting for your phone"_s,
                       .thirdLine = address != kNoAddress ? address : QString(),
                       .thirdLineFamily = monospaceFamily()});
}

std::vector<std::uint8_t> drawPausedCard(QSize size)
{
    return draw(size, {.dotColor = kPausedDotColor,
                       .secondLine = u"Phone video paused"_s,
                       .thirdLine = u"Waiting for the phone to resume"_s,
                       .thirdLineFamily = textFamily()});
}

} // namespace pevrix
