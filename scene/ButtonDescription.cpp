#include "ButtonDescription.h"

#include <cJsonValue.h>

#include <QPoint>
#include <QSize>

QPoint ButtonDescription::point(const cJsonValue& record)
{
    return QPoint(record["x"].toInt(), record["y"].toInt());
}

QSize ButtonDescription::size(const cJsonValue& record)
{
    return QSize(record["width"].toInt(), record["height"].toInt()).expandedTo(QSize(0, 0));
}
