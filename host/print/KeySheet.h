#pragma once

#include <Profile.h>

#include <QDomElement>
#include <QLineF>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>

/// What is printed of a profile: for each mode of a device all keys with their commands, and where their
/// labels stand on the device's picture. A value without any tie to the profile that it was made of.
class KeySheet
{
public:
    struct Row
    {
        QString contextId;
        /// What the key is called, beginning with its context id.
        QString key;
        /// Empty for a key without a command.
        QString command;
    };

    struct Mode
    {
        /// Empty for a device without modes.
        QString name;
        QList<Row> rows;
    };

    /// Places are pixels of the scene that the manifest describes.
    struct Label
    {
        QString contextId;
        QRectF box;
        /// From the label to its key; null without one.
        QLineF line;
    };

    /// `manifest` may be null, for a category without a device: there is no picture then. Without `keys`, all
    /// that the manifest describes are taken, and those that have a command in the profile.
    static KeySheet make(const Profile& profile, const QString& category, const QStringList& keys,
        const QDomElement& manifest);

    QString profileName;
    QString description;
    QString deviceName;
    QString picturePath;
    QPointF picturePosition;
    qreal pictureScale = 1.0;
    QList<Label> labels;
    QList<Mode> modes;
};
