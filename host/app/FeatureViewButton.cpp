#include "FeatureViewButton.h"

#include "AppConstants.h"

FeatureViewButton::FeatureViewButton(const cJsonValue& viewInfo, QWidget* parent)
    : BarButton(viewInfo["tooltip"].toString(), AppConstants::ViewIconSize, parent)
    , m_viewId(viewInfo["view_id"].toString())
    , m_on(viewInfo["icon_on_path"].toString())
    , m_off(viewInfo["icon_off_path"].toString())
    , m_hover(viewInfo["icon_hover_path"].toString())
{
    setCheckable(true);
}

QPixmap FeatureViewButton::currentIcon() const
{
    if (isChecked())
        return m_on;
    return isHovered() && !m_hover.isNull() ? m_hover : m_off;
}
