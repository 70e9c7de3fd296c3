#pragma once

#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace pevrix {

// The shadow of a rounded rectangle of the item's size, without the rectangle. It reaches beyond
// the item; `blur` says how far, 1 being 50 pixels. A small picture with stretched edges, so that
// nothing has to be blurred when the window is drawn. Not for the software renderer.
class SoftShadow : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed FINAL)
    Q_PROPERTY(qreal blur MEMBER m_blur NOTIFY changed FINAL)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed FINAL)

public:
    explicit SoftShadow(QQuickItem* parent = nullptr);

    // A picture of the shadow with a middle row and column to stretch; all lengths in its pixels.
    [[nodiscard]] static QImage draw(qreal radius, qreal blur, const QColor& color);

Q_SIGNALS:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    qreal m_radius = 0;
    qreal m_blur = 0.7;
    QColor m_color = Qt::black;
    bool m_stale = true; // the texture is
};

} // namespace pevrix
