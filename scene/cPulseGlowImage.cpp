#include "cPulseGlowImage.h"

#include "SceneConstants.h"

#include <cMacroTypeMgr.h>

#include <QPropertyAnimation>

using namespace SceneConstants;

cPulseGlowImage::cPulseGlowImage(
    const QString& imagePath, const QStringList& controlTypes, QGraphicsItem* parent)
    : QGraphicsPixmapItem(parent)
    , m_animation(std::make_unique<QPropertyAnimation>(this, "opacity"))
    , m_controlTypes(controlTypes)
{
    setPixmap(QPixmap(imagePath));
    m_animation->setStartValue(GlowFaint);
    m_animation->setEndValue(GlowBright);
    m_animation->setEasingCurve(QEasingCurve::SineCurve);
    m_animation->setLoopCount(-1);
    m_animation->setDuration(GlowTime);
}

cPulseGlowImage::~cPulseGlowImage() = default;

void cPulseGlowImage::pulseFor(const cJsonValue& macro)
{
    if (!fits(macro))
        return;
    m_animation->start();
    show();
}

void cPulseGlowImage::stopPulse()
{
    m_animation->stop();
    hide();
}

bool cPulseGlowImage::fits(const cJsonValue& macro) const
{
    const cMacroTypePtr type = cMacroTypeMgr().getMacroTypeByID(macro["namespace"].toString());
    if (!type)
        return false;
    const cJsonValue info = type->info();
    const cJsonValue& fitting = info["control_types"];
    if (!fitting.isArray())
        return false;
    for (unsigned i = 0; i < fitting.size(); ++i) {
        if (m_controlTypes.contains(fitting[int(i)]["control_type"].toString()))
            return true;
    }
    return false;
}
