#include "UnsavedProfiles.h"

#include <cProfileMgrService.h>
#include <MessageDialog.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>

namespace {

enum Choice { Stay, TryAgain, SaveElsewhere, QuitAnyway };

QString translated(const char* text)
{
    return QCoreApplication::translate("UnsavedProfiles", text);
}

Choice ask(const QStringList& names, const QStringList& problems, QWidget* window)
{
    QString text =
        translated("Some changes of your profiles could not be saved. If you quit now, they are lost.");
    for (const QString& problem : problems)
        text += QStringLiteral("\n\n") + problem;
    auto* const dialog =
        new MessageDialog(MessageDialog::Kind::Warning, translated("Profiles Not Saved"), text, window);
    // Without a name it is the document of a deleted profile that stays.
    if (!names.isEmpty()) {
        dialog->addItemText(names.join(QLatin1Char('\n')));
        dialog->addChoice(SaveElsewhere, translated("Save Elsewhere..."));
    }
    dialog->addChoice(QuitAnyway, translated("Quit Anyway"));
    dialog->addChoice(Stay, translated("Go Back"));
    dialog->addChoice(TryAgain, translated("Try Again"), true);
    dialog->setEscapeResult(Stay);
    return Choice(MessageDialog::run(dialog, Stay));
}

} // namespace

bool UnsavedProfiles::settle(cProfileMgrService& profiles, QWidget* window)
{
    // Who opened the profiles second was told at the start that nothing is saved.
    if (profiles.isReadOnly())
        return true;
    QString problem;
    while (!profiles.saveAllProfiles()) {
        const QStringList problems = problem.isEmpty() ? profiles.saveFailures() : QStringList(problem);
        const Choice choice = ask(profiles.unsavedNames(), problems, window);
        problem.clear();
        if (choice == Stay)
            return false;
        if (choice == QuitAnyway)
            return true;
        if (choice != SaveElsewhere)
            continue;
        const QString folder =
            QFileDialog::getExistingDirectory(window, translated("Save Profiles In"), QDir::homePath());
        if (folder.isEmpty())
            continue;
        problem = profiles.saveElsewhere(folder);
        if (problem.isEmpty())
            return true;
    }
    return true;
}
