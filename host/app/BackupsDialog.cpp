#include "BackupsDialog.h"

#include "AppConstants.h"
#include "ProfileTable.h"

#include <cProfileMgrService.h>
#include <DialogParts.h>
#include <HelpKey.h>

#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace AppConstants;

namespace {

enum Column { When, Why };

QStringList textsOf(const QVariantList& keys)
{
    QStringList texts;
    for (const QVariant& key : keys)
        texts.append(key.toString());
    return texts;
}

} // namespace

BackupsDialog::BackupsDialog(cProfileMgrService& profiles, QWidget* parent)
    : QDialog(parent, DialogParts::Flags)
    , m_profiles(profiles)
{
    DialogParts::prepare(*this, tr("Backups"));
    new HelpKey(QStringLiteral("import_and_backups.htm"), this);
    createContent();
    connect(m_backups, SIGNAL(currentItemChanged(QTreeWidgetItem*, QTreeWidgetItem*)), this,
        SLOT(onBackupChosen()));
    connect(m_content, SIGNAL(checkedChanged()), this, SLOT(onCheckedChanged()));
    connect(m_checkedButton, SIGNAL(clicked()), this, SLOT(onBringBackChecked()));
    connect(m_allButton, SIGNAL(clicked()), this, SLOT(onBringBackAll()));
    fillBackups(QString());
    onBackupChosen();
    m_backups->setFocus();
}

void BackupsDialog::createContent()
{
    m_backups = new QTreeWidget;
    m_backups->setHeaderLabels({tr("Backup"), tr("Made")});
    m_backups->setRootIsDecorated(false);
    m_backups->setAlternatingRowColors(true);
    m_backups->setUniformRowHeights(true);
    m_backups->header()->resizeSection(When, BackupTimeWidth);
    m_backups->setAccessibleName(tr("Backups"));
    m_content = new ProfileTable(m_profiles);
    m_content->setAccessibleName(tr("Profiles in the backup"));
    m_state = DialogParts::createText(QString());
    m_state->setMinimumHeight(2 * m_state->fontMetrics().lineSpacing());
    m_state->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    m_checkedButton = new QPushButton(tr("&Bring Back Checked"));
    m_checkedButton->setDefault(true);
    m_allButton = new QPushButton(tr("Bring Back &All"));
    auto* const closeButton = new QPushButton(tr("Close"));
    connect(closeButton, SIGNAL(clicked()), this, SLOT(reject()));

    auto* const lists = new QHBoxLayout;
    lists->setSpacing(12);
    lists->addWidget(m_backups, 2);
    lists->addWidget(m_content, 3);
    auto* const layout = DialogParts::createLayout(*this);
    layout->addWidget(DialogParts::createHeading(tr("Backups of Your Profiles")));
    layout->addLayout(lists, 1);
    layout->addWidget(m_state);
    layout->addLayout(DialogParts::createButtons({m_checkedButton, m_allButton}, {closeButton}));
    resize(BackupsDialogSize);
}

void BackupsDialog::fillBackups(const QString& chosen)
{
    const bool wasBlocked = m_backups->blockSignals(true);
    m_backups->clear();
    const QLocale locale;
    for (const ProfileBackups::Backup& backup : m_profiles.backups().list()) {
        const QString why = ProfileBackups::text(backup.reason);
        auto* const item = new QTreeWidgetItem(m_backups,
            {locale.toString(backup.time.toLocalTime(), QLocale::ShortFormat),
                backup.problem.isEmpty() ? why : tr("Damaged")});
        item->setData(When, Qt::UserRole, backup.name);
        const QString note = !backup.problem.isEmpty() ? backup.problem
            : backup.note.isEmpty()                    ? why
                                                       : why + QLatin1String(": ") + backup.note;
        item->setToolTip(Why, note.toHtmlEscaped());
        item->setData(Why, Qt::UserRole,
            backup.problem.isEmpty()
                ? note
                : tr("This backup is damaged: %1. Profiles that can still be read can be brought back.")
                      .arg(note));
        if (backup.name == chosen || !m_backups->currentItem())
            m_backups->setCurrentItem(item);
    }
    m_backups->blockSignals(wasBlocked);
}

QString BackupsDialog::chosenBackup() const
{
    const QTreeWidgetItem* item = m_backups->currentItem();
    return item ? item->data(When, Qt::UserRole).toString() : QString();
}

void BackupsDialog::onBackupChosen()
{
    m_content->clear();
    for (const ProfileBackups::Entry& entry : m_profiles.backups().read(chosenBackup())) {
        if (entry.profile)
            m_content->addProfile(*entry.profile, entry.document, false);
        else
            m_content->addProblem(entry.document, entry.problem);
    }
    const QTreeWidgetItem* item = m_backups->currentItem();
    m_state->setText(item ? item->data(Why, Qt::UserRole).toString()
                          : tr("There are no backups yet. They are kept in %1.")
                                .arg(QDir::toNativeSeparators(m_profiles.backups().folder())));
    m_allButton->setEnabled(!m_content->keys().isEmpty());
    onCheckedChanged();
}

void BackupsDialog::onCheckedChanged()
{
    m_checkedButton->setEnabled(!m_content->checkedKeys().isEmpty());
}

void BackupsDialog::onBringBackChecked()
{
    bringBack(textsOf(m_content->checkedKeys()));
}

void BackupsDialog::onBringBackAll()
{
    bringBack(textsOf(m_content->keys()));
}

void BackupsDialog::bringBack(const QStringList& documents)
{
    const QString backup = chosenBackup();
    const int count = m_profiles.bringBack(backup, documents);
    // There is another backup now, and the profiles are what the chosen one holds.
    fillBackups(backup);
    onBackupChosen();
    m_state->setText(count == 0 ? tr("Nothing had to be brought back: your profiles are the same.")
            : count == 1        ? tr("One profile was brought back. Edit > Undo takes that back.")
                         : tr("%1 profiles were brought back. Edit > Undo takes that back.").arg(count));
    m_backups->setFocus();
}
