#pragma once

#include <QImage>
#include <QQuickItem>
#include <QRectF>
#include <QSize>

namespace pevrix {

// Shows the latest decoded picture, letterboxed and centred, with mipmaps so that a large phone
// picture stays free of aliasing in a small window. Frames come in through setFrame() on the GUI
// thread; the render thread reads the frame only while the GUI thread is blocked in the scene
// graph's synchronisation. The last picture stays until the item is destroyed.
class FramePreview : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QSize frameSize READ frameSize NOTIFY frameSizeChanged FINAL)
    Q_PROPERTY(QRectF contentRect READ contentRect NOTIFY contentRectChanged FINAL)

public:
    explicit FramePreview(QQuickItem* parent = nullptr);

    // Size of the current picture in pixels; empty before the first one.
    [[nodiscard]] QSize frameSize() const { return m_frame.size(); }

    // The part of the item that the picture covers, in item coordinates; the whole item before
    // the first picture.
    [[nodiscard]] QRectF contentRect() const { return m_contentRect; }

    // Shares the image's pixels. A null image changes the size but leaves the shown picture.
    Q_INVOKABLE void setFrame(const QImage& frame);

    // The largest rectangle of the picture's aspect ratio centred in an item; the whole item when
    // either is empty.
    [[nodiscard]] static QRectF aspectFit(QSizeF item, QSize picture);

Q_SIGNALS:
    void frameSizeChanged();
    void contentRectChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    void updateContentRect();

    QImage m_frame;
    bool m_dirty = false; // m_frame is newer than the texture
    QRectF m_contentRect;
};

} // namespace pevrix
