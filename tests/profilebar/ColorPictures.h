#pragma once

#include <TestPictures.h>

#include <QDir>
#include <QString>
#include <QTemporaryDir>

/// A folder of the plug-in whose pictures are fields of one colour each.
class ColorPictures
{
    Q_DISABLE_COPY(ColorPictures)

public:
    ColorPictures() { QDir(m_folder.path()).mkpath(QStringLiteral("Resources/images")); }

    QString path() const { return m_folder.path(); }
    void add(const char* name, int width, int height, const QColor& color)
    {
        filledPicture(width, height, color)
            .save(m_folder.filePath(QStringLiteral("Resources/images/") + name));
    }

private:
    QTemporaryDir m_folder;
};
