#pragma once

#include <QGraphicsView>

#include <memory>

class DeviceTransform;
class HostDevice;
class QGraphicsPixmapItem;
class QGraphicsSimpleTextItem;

/// The canvas: a scene of fixed size with the picture of the device, or a notice where there is none. Feature
/// views put their items into the scene and their widgets onto the canvas, whose coordinates are the
/// scene's.
class DeviceCanvas : public QGraphicsView
{
    Q_OBJECT

public:
    explicit DeviceCanvas(QWidget* parent = nullptr);
    ~DeviceCanvas() override;

    /// Shows a device at its place on the home page; null shows that there is none.
    void setDevice(const HostDevice* device);
    /// Shows or hides the notice, which belongs to the home page.
    void setNoticeVisible(bool visible);

    DeviceTransform& transformer() { return *m_transform; }
    const QGraphicsPixmapItem& picture() const { return *m_picture; }
    /// What stands in place of a picture; empty if there is one.
    QString notice() const;

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;

private:
    // Items are owned by the scene.
    QGraphicsPixmapItem* m_picture = nullptr;
    QGraphicsSimpleTextItem* m_notice = nullptr;
    std::unique_ptr<DeviceTransform> m_transform;
};
