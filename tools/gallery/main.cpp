#include "Gallery.h"

#include <PluginStatics.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

namespace {

const QString SourceFolder = QStringLiteral(VELTRANO_SOURCE_DIR);

/// What the host does for the plug-in: its pictures and those of the demonstration controller.
void mountFolders()
{
    const QString alias = QStringLiteral("MacroBindingView");
    PluginStatics::alias() = alias;
    QDir::addSearchPath(alias, SourceFolder);
    QDir::addSearchPath(
        QStringLiteral("K13Device"), SourceFolder + QStringLiteral("/host/devices/K13Device"));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(Gallery::tr("Shows every widget of the scene in all its states."));
    parser.addHelpOption();
    const QCommandLineOption picture(QStringLiteral("picture"),
        Gallery::tr("Writes the whole gallery to a picture and ends."), QStringLiteral("file"));
    parser.addOption(picture);
    parser.process(application);

    mountFolders();
    Gallery gallery;
    if (parser.isSet(picture)) {
        if (gallery.picture().save(parser.value(picture)))
            return 0;
        qCritical("The picture can't be written to %s", qUtf8Printable(parser.value(picture)));
        return 1;
    }
    gallery.resize(1220, 840);
    gallery.show();
    return QApplication::exec();
}
