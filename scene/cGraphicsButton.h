#pragma once

#include "PictureAlignment.h"
#include "StatePicture.h"

#include <cJsonValue.h>

#include <QGraphicsItem>
#include <QLinearGradient>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QString>

/// A button on the canvas: a picture with three looks.
///
/// It is built from pictures or from a record that describes it. It tells of presses, releases and the
/// pointer; what the presses mean is its owner's affair. A press does not change its look, only toggle() and
/// the pointer do.
class cGraphicsButton : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    // Here for QPropertyAnimation.
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)
    Q_DISABLE_COPY(cGraphicsButton)

public:
    explicit cGraphicsButton(const QPixmap& normal, QGraphicsItem* parent = nullptr);
    cGraphicsButton(const QPixmap& normal, const QPixmap& hover, QGraphicsItem* parent = nullptr);
    cGraphicsButton(
        const QPixmap& normal, const QPixmap& hover, const QPixmap& pressed, QGraphicsItem* parent = nullptr);
    explicit cGraphicsButton(QGraphicsItem* parent = nullptr);
    /// Keys of the description, all optional:
    /// - `normal`, `hover`, `pressed`: paths of the pictures. Without `hover` the button takes no notice of
    ///   the pointer.
    /// - `boundary`: the extent, an object with the integers `width` and `height` in pixels; a length that
    ///   is not above 0 is that of the normal picture, as is the whole without this key.
    /// - `toggle`, `stretch`: booleans, see toggleFlag() and stretch().
    /// - `pos`: the place in the parent, an object with the integers `x` and `y`.
    /// - `alignment`: a PictureAlignment::Alignment; `offset`: an object with the integers `x` and `y`,
    ///   added to the aligned place.
    /// - `tooltip`: a text.
    /// A value of another type is converted as cJsonValue does it.
    explicit cGraphicsButton(const cJsonValue& description, QGraphicsItem* parent = nullptr);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Bits of StatePicture::State.
    int state() const { return m_state; }
    void setState(int state);

    const QRect& boundary() const { return m_boundary; }
    /// A negative length counts as 0.
    void setBoundarySize(const QSize& size);
    void setBoundarySize(int width, int height);

    const QPixmap& normalPixmap() const { return m_normalPixmap; }
    /// The boundary stays as it is.
    void setNormalPixmap(const QPixmap& pixmap);
    void setNormalPixmap(const QString& path);
    void setHoverPixmap(const QPixmap& pixmap);
    /// This form has the button take notice of the pointer as well.
    void setHoverPixmap(const QString& path);
    void setPressedPixmap(const QPixmap& pixmap);
    void setPressedPixmap(const QString& path);

    /// Whether the picture is scaled to the boundary.
    bool stretch() const { return m_stretch; }
    /// A mark from the description, which means nothing to the button.
    bool toggleFlag() const { return m_toggleFlag; }

    /// Backgrounds from the top to the bottom of the boundary. They are not shown before a subclass sets
    /// m_gradientShown.
    void setGradients(const QLinearGradient& normal, const QLinearGradient& hover);

    /// Free for the owner.
    cJsonValue userData() const { return m_userData; }
    void setUserData(const cJsonValue& data) { m_userData = data; }
    QString userText() const { return m_userText; }
    void setUserText(const QString& text) { m_userText = text; }

public Q_SLOTS:
    /// Turns the toggled-on look on or off.
    void toggle();

Q_SIGNALS:
    // A press of the left button emits the third, the first and the second, in this order. The button is
    // disabled during the second, so that it takes no press while a receiver runs a menu.
    void clicked();
    /// The place is that of the pointer's last event in the coordinates of the scene.
    void clicked(const QPoint& point);
    void clicked(cGraphicsButton* pButton);
    void released(cGraphicsButton* pButton);
    void hoverEntered();
    void hoverLeft();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

    // Nothing in this program sets these two; a subclass may.
    bool m_gradientShown = false;
    bool m_draggable = false;

private:
    void paintGradient(QPainter& painter) const;

    QPixmap m_normalPixmap;
    QPixmap m_pressedPixmap;
    QPixmap m_hoverPixmap;
    int m_state = StatePicture::Resting;
    QRect m_boundary;
    bool m_stretch = false;
    bool m_toggleFlag = false;
    cJsonValue m_userData;
    int m_alignment = PictureAlignment::Center;
    QPoint m_offset;
    QString m_userText;
    bool m_gradientEnabled = false;
    QLinearGradient m_hoverGradient;
    QLinearGradient m_normalGradient;
};
