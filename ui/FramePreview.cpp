#include "ui/FramePreview.h"

#include <QQuickWindow>
#include <QSGSimpleTextureNode>
#include <QSGTexture>

#include <algorithm>

namespace pevrix {

namespace {

// qFuzzyCompare alone never finds a zero equal to anything but zero.
bool fuzzyEqual(double a, double b)
{
    return a == 0.0 || b == 0.0 ? qFuzzyIsNull(a - b) : qFuzzyCompare(a, b);
}

bool fuzzyEqual(const QRectF& a, const QRectF& b)
{
    return fuzzyEqual(a.x(), b.x()) && fuzzyEqual(a.y(), b.y()) &&
           fuzzyEqual(a.width(), b.width()) && fuzzyEqual(a.height(), b.height());
}

} // namespace

FramePreview::FramePreview(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void FramePreview::setFrame(const QImage& frame)
{
    const bool sizeChanged = frame.size() != m_frame.size();
    m_frame = frame;
    m_dirty = true;
    if (sizeChanged) {
        Q_EMIT frameSizeChanged();
    }
    updateContentRect();
    update();
}

QRectF FramePreview::aspectFit(QSizeF item, QSize picture)
{
    if (item.isEmpty() || picture.isEmpty()) {
        return QRectF(QPointF(0, 0), item);
    }
    const double scale = std::min(item.width() / picture.width(), item.height() / picture.height());
    const QSizeF shown = QSizeF(picture) * scale;
    return QRectF(
        QPointF((item.width() - shown.width()) * 0.5, (item.height() - shown.height()) * 0.5),
        shown);
}

void FramePreview::updateContentRect()
{
    const QRectF rect = aspectFit(size(), m_frame.size());
    if (!fuzzyEqual(rect, m_contentRect)) {
        m_contentRect = rect;
        Q_EMIT contentRectChanged();
    }
}

// Returns no node while there is no texture: the software renderer crashes with a node without one.
QSGNode* FramePreview::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*)
{
    auto* node = static_cast<QSGSimpleTextureNode*>(oldNode);
    if ((m_dirty || !node) && !m_frame.isNull() && window()) {
        m_dirty = false;
        QSGTexture* texture = window()->createTextureFromImage(
            m_frame, QQuickWindow::CreateTextureOptions(QQuickWindow::TextureHasMipmaps)
                         .setFlag(QQuickWindow::TextureIsOpaque));
        if (texture) {
            texture->setMipmapFiltering(QSGTexture::Linear);
            if (!node) {
                node = new QSGSimpleTextureNode;
                node->setFiltering(QSGTexture::Linear);
                node->setOwnsTexture(true);
            }
            node->setTexture(texture);
        }
    }
    if (node) {
        node->setRect(aspectFit(size(), node->texture()->textureSize()));
    }
    return node;
}

void FramePreview::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (!fuzzyEqual(newGeometry.width(), oldGeometry.width()) ||
        !fuzzyEqual(newGeometry.height(), oldGeometry.height())) {
        updateContentRect();
    }
}

} // namespace pevrix
