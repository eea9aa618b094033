#pragma once

#include <QCommonStyle>

/// The style of the row lists: the plain one without focus rectangles, since rows show by their own pictures
/// what is current.
class cCustomStyle : public QCommonStyle
{
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget = nullptr) const override;
};
