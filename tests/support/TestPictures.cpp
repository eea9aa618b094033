#include "TestPictures.h"

#include <PluginStatics.h>

#include <QDir>
#include <QPixmapCache>

namespace {

const QString Alias = QStringLiteral("TestPictures");

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

void TestPictures::add(const QString& name, const QPixmap& picture)
{
    if (!picture.save(m_folder.filePath(QStringLiteral("Resources/images/") + name)))
        qFatal("can't store the picture %s", qPrintable(name));
}

QPixmap filledPicture(int width, int height, const QColor& color)
{
    QPixmap picture(width, height);
    picture.fill(color);
    return picture;
}

QRect inkExtent(const QImage& image)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}
