#include "ScanForGamesDialog.h"

#include "DialogConstants.h"
#include "DialogSetup.h"

#include <cAnimatedPixmapWidget.h>
#include <cHelpMgr.h>
#include <cProfileMgr.h>
#include <HelpTopics.h>
#include <PluginContext.h>

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

using namespace DialogConstants;

namespace {

/// How rows of a state look and behave.
class RowLook
{
public:
    QColor color;
    Qt::ItemFlags flags;
    Qt::CheckState check;
};

RowLook lookOf(int state)
{
    // A row whose game has a profile shows that by its check, which the user can't take away.
    constexpr Qt::ItemFlags fixed = Qt::ItemIsUserCheckable;
    constexpr Qt::ItemFlags open = Qt::ItemIsEnabled | Qt::ItemIsUserCheckable;
    switch (state) {
    case cScanEntry::New:
        return {QColor(20, 172, 172), open, Qt::Checked};
    case cScanEntry::Missing:
        return {QColor(200, 200, 200), open, Qt::Unchecked};
    default:
        return {QColor(128, 128, 128), fixed, Qt::Checked};
    }
}

int stateOf(bool isFound, bool isKnown)
{
    if (isFound)
        return isKnown ? cScanEntry::Known : cScanEntry::New;
    return isKnown ? cScanEntry::KnownMissing : cScanEntry::Missing;
}

cScanEntry* entryOf(const QListWidgetItem* row)
{
    return row->data(Qt::UserRole).value<cScanEntry*>();
}

} // namespace

ScanForGamesDialog* ScanForGamesDialog::s_dialog = nullptr;

ScanForGamesDialog::ScanForGamesDialog(QWidget* parent)
    : QDialog(parent)
{
    if (s_dialog)
        s_dialog->m_isTaken.acquire();
    s_dialog = this;
    // The queued calls carry elements.
    qRegisterMetaType<QDomElement>("QDomElement");
    DialogSetup::apply(*this);
    setWindowTitle(tr("Scan For New Games"));

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(createHeader());
    createList();
    layout->addWidget(m_list);
    layout->addLayout(createFooter());
    resize(ScanDialogSize);
    connect(this, SIGNAL(rejected()), this, SLOT(onRejected()));

    startWorker();
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

ScanForGamesDialog::~ScanForGamesDialog()
{
    // A dialog that was neither accepted nor rejected still has its worker.
    endWorker();
    for (int i = 0; i < m_list->count(); ++i) {
        delete entryOf(m_list->item(i));
        m_list->item(i)->setData(Qt::UserRole, QVariant());
    }
    if (s_dialog == this)
        s_dialog = nullptr;
}

QBoxLayout* ScanForGamesDialog::createHeader()
{
    m_animation = new cAnimatedPixmapWidget(
        QPixmap(pluginResource("Resources/images/search.png")), ScanFrameWidth, this);
    // The strip is drawn for any ground, and that of the dialog is the style sheet's.
    m_animation->setAutoFillBackground(false);
    m_animation->start();
    m_statusLabel = new QLabel(tr("Please wait while Profiler scans your system for known profiles."), this);

    auto* const row = new QHBoxLayout;
    row->addWidget(m_animation);
    row->addWidget(m_statusLabel, 1);
    return row;
}

void ScanForGamesDialog::createList()
{
    m_list = new QListWidget(this);
    m_list->setStyleSheet(QStringLiteral("QListView::item:hover, QListView::item:selected { color: white; "
                                         "background-color: transparent;}"));
    m_list->setContextMenuPolicy(Qt::NoContextMenu);
    m_list->viewport()->setContextMenuPolicy(Qt::NoContextMenu);
    m_list->setUniformItemSizes(true);
}

QBoxLayout* ScanForGamesDialog::createFooter()
{
    m_countLabel = new QLabel(this);
    m_countLabel->hide();
    auto* const okButton = new QPushButton(tr("OK"), this);
    okButton->setEnabled(false);
    okButton->setDefault(true);
    auto* const cancelButton = new QPushButton(tr("Cancel"), this);
    DialogSetup::setGray(*cancelButton);
    connect(this, SIGNAL(scanCompleted(bool)), okButton, SLOT(setEnabled(bool)));
    connect(okButton, SIGNAL(clicked()), this, SLOT(onOK()));
    connect(cancelButton, SIGNAL(clicked()), this, SLOT(reject()));

    auto* const row = new QHBoxLayout;
    row->addWidget(m_countLabel);
    row->addStretch();
    row->addWidget(okButton);
    row->addWidget(cancelButton);
    return row;
}

void ScanForGamesDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1)
        cHelpMgr().LaunchHelp(HelpTopics::Section, ScanHelpTopic);
    else
        QDialog::keyPressEvent(event);
}

void ScanForGamesDialog::onGameDatabaseRead()
{
    QApplication::restoreOverrideCursor();
}

void ScanForGamesDialog::onGameScanned(const QString& profileName, const QString& signatureName,
    const QString& targetPath, const QDomElement& domProfile)
{
    const QString displayName =
        signatureName.isEmpty() ? profileName : QStringLiteral("%1 (%2)").arg(profileName, signatureName);
    const bool isKnown = !cProfileMgr().getProfileByName(displayName).isNull();

    auto* const row = new QListWidgetItem(displayName);
    auto* const entry = new cScanEntry;
    entry->profile = domProfile;
    entry->displayName = displayName;
    entry->target = QDir::toNativeSeparators(targetPath);
    entry->state = stateOf(!targetPath.isEmpty(), isKnown);
    row->setData(Qt::UserRole, QVariant::fromValue(entry));
    insertRow(row, entry->state);
    if (QListWidgetItem* const earlier = m_rowsByName.value(displayName))
        hideDuplicate(earlier, row);
    m_rowsByName[displayName] = row;
    showCount();
}

void ScanForGamesDialog::insertRow(QListWidgetItem* row, int state)
{
    const RowLook look = lookOf(state);
    row->setForeground(look.color);
    row->setFlags(look.flags);
    row->setCheckState(look.check);
    switch (state) {
    case cScanEntry::New:
        m_list->insertItem(m_foundNew, row);
        ++m_foundNew;
        break;
    case cScanEntry::Known:
        // The list takes a row once: the later call has nothing left to do.
        m_list->insertItem(m_foundNew, row);
        m_list->insertItem(m_foundNew + m_foundKnown, row);
        ++m_foundKnown;
        break;
    case cScanEntry::KnownMissing:
        m_list->insertItem(m_foundNew + m_foundKnown + m_knownMissing, row);
        ++m_knownMissing;
        break;
    default:
        m_list->addItem(row);
    }
}

void ScanForGamesDialog::hideDuplicate(QListWidgetItem* earlier, QListWidgetItem* row)
{
    const int state = entryOf(row)->state;
    if (entryOf(earlier)->state == cScanEntry::Missing && state == cScanEntry::New) {
        earlier->setHidden(true);
        return;
    }
    if (state != cScanEntry::Missing)
        ++m_duplicates;
    row->setCheckState(Qt::Unchecked);
    row->setHidden(true);
}

void ScanForGamesDialog::showCount()
{
    m_countLabel->show();
    m_countLabel->setText(tr("%1/%2 profile(s) found")
                              .arg(m_foundNew + m_foundKnown + m_knownMissing - m_duplicates)
                              .arg(m_rowsByName.size()));
}

void ScanForGamesDialog::onScanFinished()
{
    m_statusLabel->setText(tr("The profiler has completed its scan."));
    Q_EMIT scanCompleted(true);
    m_animation->stop();
}

void ScanForGamesDialog::onOK()
{
    cProfileMgr profileMgr;
    for (int i = 0; i < m_list->count(); ++i) {
        const QListWidgetItem* const row = m_list->item(i);
        const cScanEntry* const entry = entryOf(row);
        if (entry && row->checkState() == Qt::Checked
            && (entry->state == cScanEntry::New || entry->state == cScanEntry::Missing))
            profileMgr.addProfile(entry->profile, entry->displayName, entry->target);
    }
    accept();
}

void ScanForGamesDialog::onRejected()
{
    endWorker();
    QApplication::restoreOverrideCursor();
}
