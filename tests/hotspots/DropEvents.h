#pragma once

#include <QByteArray>
#include <QGraphicsSceneDragDropEvent>
#include <QMimeData>
#include <QString>

#include <memory>

/// Data with one format.
inline std::unique_ptr<QMimeData> dataOf(const QString& format, const QByteArray& payload)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(format, payload);
    return data;
}

/// A drag event as a scene hands it to an item: accepted unless the item ignores it.
class SceneDragEvent : public QGraphicsSceneDragDropEvent
{
public:
    SceneDragEvent(
        QEvent::Type type, const QMimeData* data, Qt::DropAction proposed, QWidget* source = nullptr)
        : QGraphicsSceneDragDropEvent(type)
    {
        setMimeData(data);
        setPossibleActions(proposed);
        setProposedAction(proposed);
        setDropAction(Qt::IgnoreAction);
        setSource(source);
    }
};
