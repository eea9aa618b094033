#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QTemporaryDir>

/// A resource folder of the plug-in made for a test: empty at first, found under an alias of its own for as
/// long as this lives.
class TestPictures
{
    Q_DISABLE_COPY(TestPictures)

public:
    TestPictures();
    ~TestPictures();

    /// Stores the picture as Resources/images/`name` and returns its path.
    QString add(const QString& name, const QPixmap& picture);

private:
    QTemporaryDir m_folder;
    QString m_previousAlias;
};

/// A picture of one colour.
QPixmap filledPicture(int width, int height, const QColor& color);

/// The smallest rectangle around the pixels that are not fully transparent.
QRect inkExtent(const QImage& image);

/// The smallest rectangle around the pixels of that colour.
QRect colorExtent(const QImage& image, const QColor& color);

/// True if all pixels of the rectangle have the colour, and no others have it.
bool isFilled(const QImage& image, const QRect& place, const QColor& color);
