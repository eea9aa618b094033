#include "ImportDialog.h"

#include "AppConstants.h"
#include "ProfileTable.h"

#include <DialogParts.h>
#include <HelpKey.h>

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPoint>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace AppConstants;

ImportDialog::ImportDialog(
    cProfileMgrService& profiles, const std::vector<cProfileMgrService::ImportFile>& files, QWidget* parent)
    : QDialog(parent, DialogParts::Flags)
{
    DialogParts::prepare(*this, tr("Profiles to Import"));
    new HelpKey(QStringLiteral("import_and_backups.htm"), this);
    m_table = new ProfileTable(profiles);
    m_table->addColumn(tr("File"));
    for (int i = 0; i < int(files.size()); ++i) {
        const cProfileMgrService::ImportFile& file = files[std::size_t(i)];
        const QString name = QFileInfo(file.path).fileName();
        // A key is the place of the file and the place in it.
        for (int k = 0; k < int(file.profiles.size()); ++k)
            m_table->addProfile(file.profiles[std::size_t(k)], QPoint(i, k), true, name);
        if (!file.problem.isEmpty())
            m_table->addProblem(name, file.problem);
    }
    m_importButton = new QPushButton(tr("&Import"));
    m_importButton->setDefault(true);
    auto* const cancelButton = new QPushButton(tr("Cancel"));
    connect(m_importButton, SIGNAL(clicked()), this, SLOT(accept()));
    connect(cancelButton, SIGNAL(clicked()), this, SLOT(reject()));
    connect(m_table, SIGNAL(checkedChanged()), this, SLOT(onCheckedChanged()));

    auto* const layout = DialogParts::createLayout(*this);
    layout->addWidget(DialogParts::createHeading(tr("Choose the Profiles to Import")));
    layout->addWidget(DialogParts::createText(tr("Nothing changes before you confirm. You are asked about "
                                                 "profiles that are on your computer already.")));
    layout->addWidget(m_table, 1);
    layout->addLayout(DialogParts::createButtons({}, {m_importButton, cancelButton}));
    resize(ImportDialogSize);
    m_table->setFocus();
    onCheckedChanged();
}

void ImportDialog::onCheckedChanged()
{
    m_importButton->setEnabled(!m_table->checkedKeys().isEmpty());
}

void ImportDialog::choose(std::vector<cProfileMgrService::ImportFile>& files) const
{
    std::vector<std::vector<Profile>> chosen(files.size());
    for (const QVariant& key : m_table->checkedKeys()) {
        const QPoint place = key.toPoint();
        const auto file = std::size_t(place.x());
        chosen[file].push_back(std::move(files[file].profiles[std::size_t(place.y())]));
    }
    for (std::size_t i = 0; i < files.size(); ++i)
        files[i].profiles = std::move(chosen[i]);
}

bool ImportDialog::review(
    cProfileMgrService& profiles, std::vector<cProfileMgrService::ImportFile>& files, QWidget* parent)
{
    // The window may go while the dialog runs, and takes it along.
    const QPointer<ImportDialog> dialog = new ImportDialog(profiles, files, parent);
    const bool isAccepted = dialog->exec() == QDialog::Accepted && dialog;
    if (isAccepted)
        dialog->choose(files);
    delete dialog;
    return isAccepted;
}
