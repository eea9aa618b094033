#include "DefaultInputSink.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace {

Q_LOGGING_CATEGORY(inputLog, "veltrano.input", QtWarningMsg)

bool launch(const LaunchInput& what)
{
    const QString found = QStandardPaths::findExecutable(what.path);
    if (found.isEmpty()) {
        const QFileInfo file(what.path);
        return file.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
    }
    const QString folder = what.folder.isEmpty() ? QFileInfo(found).absolutePath() : what.folder;
    return QProcess::startDetached(found, QProcess::splitCommand(what.arguments), folder);
}

} // namespace

void DefaultInputSink::send(const InputEvent& event)
{
    qCDebug(inputLog, "%s", qUtf8Printable(InputEvents::toText(event)));
    const auto* launched = std::get_if<LaunchInput>(&event);
    if (launched && !launch(*launched))
        qCWarning(inputLog, "Failed to launch '%s'", qUtf8Printable(launched->path));
}
