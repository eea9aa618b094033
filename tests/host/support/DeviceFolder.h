#pragma once

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QString>

/// Writes folders of devices for tests.
namespace DeviceFolder {

inline void write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qUtf8Printable(path));
}

/// A device <name> of the model "Test.<name>" below `devices`, 200x100 pixels at (10, 20), for the views of
/// the id "fake_view".
inline void make(const QString& devices, const QString& name)
{
    const QString folder = devices + QLatin1Char('/') + name;
    write(folder + QStringLiteral("/manifest.xml"),
        QStringLiteral(
            "<device model='Test.%1'><presentation name='The %1' short_name='%1' picture='%1:/images/p.png' "
            "icon='%1:/images/p.png' scale='1.5' x='10' y='20'/><profiler category='Test.Category'/>"
            "<macrobindingmetadata viewid='fake_view'><transform scale='0.5' x='300' y='150'/>"
            "</macrobindingmetadata></device>")
            .arg(name)
            .toUtf8());
    QDir().mkpath(folder + QStringLiteral("/images"));
    QPixmap picture(200, 100);
    picture.fill(Qt::darkCyan);
    picture.save(folder + QStringLiteral("/images/p.png"));
}

} // namespace DeviceFolder
