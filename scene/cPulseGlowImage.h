#pragma once

#include <cJsonValue.h>

#include <QGraphicsPixmapItem>
#include <QObject>
#include <QStringList>

#include <memory>

class QPropertyAnimation;

/// A glow over the device that breathes while a command of a fitting type is dragged.
///
/// It is shown as any item when it is made; its owner hides it.
class cPulseGlowImage : public QObject, public QGraphicsPixmapItem
{
    Q_OBJECT
    Q_DISABLE_COPY(cPulseGlowImage)
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)

public:
    /// `controlTypes` are the control types, as macro types name them, at which the glow lights.
    cPulseGlowImage(
        const QString& imagePath, const QStringList& controlTypes, QGraphicsItem* parent = nullptr);
    ~cPulseGlowImage() override;

    /// Shows the glow and lets it breathe if the type of the command fits one of the control types. `macro`
    /// is a macro record, of which `namespace` is read.
    void pulseFor(const cJsonValue& macro);
    void stopPulse();

    /// Drives the opacity; never null.
    QPropertyAnimation* animation() const { return m_animation.get(); }

private:
    bool fits(const cJsonValue& macro) const;

    std::unique_ptr<QPropertyAnimation> m_animation;
    QStringList m_controlTypes;
};
