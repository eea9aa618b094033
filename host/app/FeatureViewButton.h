#pragma once

#include "BarButton.h"

#include <cJsonValue.h>

/// The button that opens and closes a feature view, made from the view's info record. It is checked while the
/// view is wanted on the canvas; a click asks for the opposite and does not change the mark by itself.
class FeatureViewButton : public BarButton
{
    Q_OBJECT

public:
    explicit FeatureViewButton(const cJsonValue& viewInfo, QWidget* parent = nullptr);

    QString viewId() const { return m_viewId; }

protected:
    QPixmap currentIcon() const override;
    void nextCheckState() override { }

private:
    QString m_viewId;
    QPixmap m_on;
    QPixmap m_off;
    QPixmap m_hover;
};
