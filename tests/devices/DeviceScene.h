#pragma once

#include <cJsonValue.h>

#include <QDomDocument>
#include <QDomElement>
#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QString>
#include <QStringList>

/// Places of the canvas that a device has to keep clear of, in pixels of its scene.
namespace Canvas {
inline constexpr QRect Scene(0, 0, 980, 620);
/// Where a device, its controls and its labels may stand while the view is open.
inline constexpr QRect DeviceArea(330, 140, 650, 480);
inline constexpr QRect CommandPane(38, 157, 232, 380);
inline constexpr QRect ProfilePane(352, 37, 593, 86);
inline constexpr QRect TrashCan(315, 501, 48, 56);
inline constexpr QPoint StickOverlay(820, 461);
inline constexpr QSize ContextButton(16, 16);
} // namespace Canvas

/// One control as the view lays it out.
struct ControlPlace
{
    QString id;
    QStringList types;
    /// The clickable shape, from the polygon or from the outline picture.
    QPainterPath shape;
    bool isPixmap = false;
    /// Pixmap controls only: the picture that lights up under the pointer, and its top left corner.
    QPixmap glow;
    QPointF glowPosition;
    QRectF contextButton;
    /// The balloon's frame at rest, and at full width in one line.
    QRect labelAtRest;
    QRect labelGrown;
    /// Where the line is seen; null without one.
    QLineF line;
    QString genericType;
    QString genericName;
    bool isGenericRequired = false;
    bool isGenericHidden = false;
    bool cannotBeUnassigned = false;
};

/// A button of a mode, or a pulse glow: a picture that stands on its own.
struct PicturePlace
{
    QString id;
    QPoint position;
    /// A mode button's normal, hovered and selected look; a glow's one picture.
    QList<QPixmap> pictures;
    /// The control type that lights a glow.
    QString type;

    QRect rect() const { return QRect(position, pictures.first().size()); }
};

/// A device's folder, and the scene that its manifest describes once the view's own reader has read it.
class DeviceScene
{
public:
    /// The folders of all devices; a folder's name is the alias under which its pictures are named.
    static QStringList aliases();

    explicit DeviceScene(const QString& alias);

    QString alias() const { return m_alias; }
    QString folder() const;
    /// Null if there is no manifest or it is no XML.
    QDomElement manifest() const { return m_document.documentElement(); }
    cJsonValue record() const { return m_record; }
    const QList<ControlPlace>& controls() const { return m_controls; }
    const QList<PicturePlace>& modes() const { return m_modes; }
    const QList<PicturePlace>& glows() const { return m_glows; }

    QPixmap picture() const;
    /// Where the device's picture stands before a view is open.
    QRectF home() const;
    /// Where it stands under the controls.
    QRectF transformed() const;

private:
    void readControls();
    void readPictures();

    QString m_alias;
    QDomDocument m_document;
    cJsonValue m_record;
    QList<ControlPlace> m_controls;
    QList<PicturePlace> m_modes;
    QList<PicturePlace> m_glows;
};
