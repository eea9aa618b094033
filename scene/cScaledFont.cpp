#include "cScaledFont.h"

#include "ScreenDpi.h"

cScaledFont::cScaledFont(const QString& family, qreal designSize, int weight, bool italic)
    : QFont(family)
{
    setDesignSize(designSize);
    if (weight >= 0)
        setWeight(weight);
    if (italic)
        setItalic(true);
}

void cScaledFont::setDesignSize(qreal designSize)
{
    m_designSize = designSize > 0 ? designSize : DefaultDesignSize;
    setPointSizeF(m_designSize * DesignDpi / screenHorizontalDpi());
}
