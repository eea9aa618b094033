#include "TestPictures.h"

#include <PluginStatics.h>

#include <QDir>
#include <QPixmapCache>

namespace {

const QString Alias = QStringLiteral("TestPictures");

/// The smallest rectangle around the pixels for which the function answers true.
template<typename Predicate>
QRect extentOf(const QImage& image, Predicate isPart)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isPart(x, y))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

} // namespace

TestPictures::TestPictures()
    : m_previousAlias(PluginStatics::alias())
{
    if (!m_folder.isValid() || !QDir(m_folder.path()).mkpath(QStringLiteral("Resources/images")))
        qFatal("no folder for test pictures");
    QDir::setSearchPaths(Alias, {m_folder.path()});
    PluginStatics::alias() = Alias;
}

TestPictures::~TestPictures()
{
    PluginStatics::alias() = m_previousAlias;
    QDir::setSearchPaths(Alias, {});
    // A later test may have another picture at the same path.
    QPixmapCache::clear();
}

QString TestPictures::add(const QString& name, const QPixmap& picture)
{
    QString path = m_folder.filePath(QStringLiteral("Resources/images/") + name);
    if (!picture.save(path))
        qFatal("can't store the picture %s", qPrintable(name));
    return path;
}

QPixmap filledPicture(int width, int height, const QColor& color)
{
    QPixmap picture(width, height);
    picture.fill(color);
    return picture;
}

QRect inkExtent(const QImage& image)
{
    return extentOf(image, [&](int x, int y) { return qAlpha(image.pixel(x, y)) > 0; });
}

QRect colorExtent(const QImage& image, const QColor& color)
{
    return extentOf(image, [&](int x, int y) { return image.pixel(x, y) == color.rgba(); });
}

bool isFilled(const QImage& image, const QRect& place, const QColor& color)
{
    if (colorExtent(image, color) != place)
        return false;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (image.pixel(x, y) != color.rgba())
                return false;
        }
    }
    return true;
}
