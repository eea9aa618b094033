#include "GameFiles.h"
#include "LcdDevices.h"

#include <EditProfileDialog.h>
#include <PluginFolder.h>
#include <RecordingHost.h>
#include <ScanForGamesDialog.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QPixmap>
#include <QRadioButton>

#include <cstdio>

// Draws the dialogs in their modes and states into a folder, at the usual size of text and larger:
//   dialog_preview <folder> <folder of the project> [style sheet...]

namespace {

constexpr int FontSize = 13;

void save(QWidget& dialog, const QString& folder, const QString& name, double scale)
{
    dialog.grab().save(QStringLiteral("%1/%2@%3.png").arg(folder, name).arg(int(scale * 100)));
}

cJsonValue record(const char* uid, const char* name)
{
    cJsonValue result;
    result["uid"] = uid;
    result["name"] = name;
    result["description"] = "For evenings with friends";
    result["target"] = "/home/user/.wine/drive_c/Games/Aqueduct/bin/Aqueduct.exe";
    result["uselcd"] = true;
    result["lock"] = true;
    return result;
}

void drawProfileDialogs(RecordingHost& host, const QString& folder, double scale)
{
    cJsonValue profiles;
    profiles.append(record("{1}", "Default Profile"));
    profiles.append(record("{2}", "A profile with a name that goes on and on for quite a while"));
    host.answer("profiles", profiles);
    for (const int lcds : {0, 1}) {
        host.answer("lcdDevices", LcdDevices::make(lcds));
        const QString suffix = lcds ? QStringLiteral("-display") : QString();
        EditProfileDialog created(nullptr);
        created.setProfile(cJsonValue(), false);
        created.show();
        save(created, folder, "new" + suffix, scale);
        created.findChildren<QLineEdit*>().first()->setText("Aqueduct");
        for (auto* const check : created.findChildren<QCheckBox*>())
            check->click();
        created.findChild<QComboBox*>()->setCurrentIndex(1);
        if (lcds)
            created.findChildren<QRadioButton*>().last()->click();
        created.findChildren<QCheckBox*>().first()->setFocus();
        save(created, folder, "new-filled" + suffix, scale);
        EditProfileDialog edited(nullptr);
        edited.setProfile(record("{1}", "Aqueduct"), false);
        edited.show();
        save(edited, folder, "edit" + suffix, scale);
        EditProfileDialog saved(nullptr);
        saved.setProfile(record("{1}", "Aqueduct"), true);
        saved.show();
        save(saved, folder, "save-as" + suffix, scale);
    }
}

void drawScan(RecordingHost& host, const QString& folder, double scale)
{
    GameFiles files;
    for (int i = 0; i < 30; ++i) {
        const QString state = i % 3 == 0 ? "known" : "other";
        files.addGame(QString("Game %1 %2").arg(i).arg(state), {i % 2 == 0});
    }
    files.write();
    host.answer("getProfileByName", [](const RecordedCall& call) {
        return QVariant::fromValue(
            call.values.first().toString().contains("known") ? record("{1}", "") : cJsonValue());
    });
    ScanForGamesDialog dialog(nullptr);
    dialog.show();
    bool isFinished = false;
    QObject::connect(&dialog, &ScanForGamesDialog::scanCompleted, &dialog, [&] { isFinished = true; });
    const auto* const list = dialog.findChild<QListWidget*>();
    save(dialog, folder, "scan-begin", scale);
    while (list->count() < 12)
        QCoreApplication::processEvents();
    save(dialog, folder, "scan-going-on", scale);
    while (!isFinished)
        QCoreApplication::processEvents();
    save(dialog, folder, "scan-end", scale);
    dialog.findChild<QListWidget*>()->setFocus();
    dialog.findChild<QListWidget*>()->setCurrentRow(2);
    list->item(2)->setCheckState(Qt::Unchecked);
    save(dialog, folder, "scan-chosen", scale);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: dialog_preview <folder> <folder of the project> [style sheet...]\n");
        return 2;
    }
    const PluginFolder plugin(arguments[2]);
    QDir::setSearchPaths("MainApp", {arguments[2] + "/build/dev/share/veltrano-gaming"});
    QApplication::setStyle("Fusion");
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base})
        palette.setColor(role, Qt::black);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, Qt::white);
    palette.setColor(QPalette::Button, QColor("#11171a"));
    QApplication::setPalette(palette);
    QString style;
    for (const QString& path : arguments.mid(3)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return 1;
        style += QString::fromUtf8(file.readAll());
    }
    application.setStyleSheet(style);
    QDir().mkpath(arguments[1]);
    RecordingHost host;
    for (const double scale : {1.0, 1.5, 2.0}) {
        QFont font("Arial");
        font.setPixelSize(int(FontSize * scale));
        QApplication::setFont(font);
        drawProfileDialogs(host, arguments[1], scale);
        drawScan(host, arguments[1], scale);
    }
    return 0;
}
