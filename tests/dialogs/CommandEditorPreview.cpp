#include "CommandEditorHost.h"

#include <ApplicationLook.h>
#include <cMacroEditor.h>
#include <cMacroTypeIconList.h>
#include <JsonText.h>
#include <PluginFolder.h>
#include <SampleCommands.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QPixmap>

#include <cstdio>

// Draws the command editor with each command type into a folder, at the usual size of text and larger:
//   command_editor_preview <folder>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: command_editor_preview <folder>\n");
        return 2;
    }
    const QDir folder(arguments[1]);
    const PluginFolder plugin(QStringLiteral(SOURCE_FOLDER));
    QDir::setSearchPaths(QStringLiteral("MainApp"), {QStringLiteral(SHARE_FOLDER)});
    ApplicationLook::apply();
    QFile sheet(QStringLiteral("MainApp:/Resources/style/veltrano.qss"));
    if (!sheet.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "can't read the style sheet\n");
        return 1;
    }
    application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    const int usualSize = QApplication::font().pixelSize();
    CommandEditorHost host;
    for (const int percent : {100, 125, 150}) {
        QFont font = QApplication::font();
        font.setPixelSize(usualSize * percent / 100);
        QApplication::setFont(font);
        const auto save = [&](cMacroEditor& editor, const QString& name, const char* state) {
            editor.show();
            QCoreApplication::processEvents();
            const QString file = QStringLiteral("%1_%2_%3.png").arg(name).arg(percent).arg(state);
            if (!editor.grab().save(folder.filePath(file)))
                std::fprintf(stderr, "can't write %s\n", qPrintable(file));
            editor.hide();
        };
        for (const cMacroTypePtr& type : host.types()) {
            const QString uid = type->info()["uid"].toString();
            const QString name = uid.section(QLatin1Char('/'), -1).toLower();
            cJsonValue macro;
            macro["uid"] = "{1}";
            macro["namespace"] = uid;
            macro["name"] = macro["display_name"] = type->info()["displayname"];
            macro["data"] = SampleCommands::data(uid);
            cMacroEditor filled(macro, nullptr, true);
            save(filled, name, "filled");
            cMacroEditor empty(cJsonValue(), nullptr, true);
            empty.findChild<cMacroTypeIconList*>()->setCurrentMacroType(uid);
            save(empty, name, "empty");
        }
    }
    return 0;
}
