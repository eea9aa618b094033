#include "OnBoardWindow.h"

#include "cProfilesToGoService.h"

#include <cProfileMgrService.h>
#include <EventNames.h>
#include <HelpKey.h>
#include <IServiceMgr.h>
#include <MessageDialog.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVariant>
#include <QVBoxLayout>

namespace {

constexpr QSize InitialSize(720, 480);
constexpr int Margin = 20;
constexpr int Spacing = 10;

constexpr int IdRole = Qt::UserRole;
/// The document of a row that is no profile.
constexpr int FileRole = Qt::UserRole + 1;

int inKilobytes(int bytes)
{
    return (bytes + 1023) / 1024;
}

} // namespace

OnBoardWindow::OnBoardWindow(cProfilesToGoService& memories, cProfileMgrService& profiles, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint)
    , m_memories(memories)
    , m_profiles(profiles)
{
    setWindowTitle(tr("On-board Memory"));
    setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    setProperty("uiType", QStringLiteral("OnBoardWindow"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addWidget(createHeader());
    layout->addWidget(createLists(), 1);
    m_hint = new QLabel;
    m_hint->setProperty("uiType", QStringLiteral("QuietText"));
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    layout->addWidget(m_hint);
    layout->addWidget(createFooter());
    resize(InitialSize);
    new HelpKey(QStringLiteral("onboard_memory.htm"), this);

    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(0);
    connect(&m_refreshTimer, SIGNAL(timeout()), this, SLOT(refresh()));
    connect(&m_memories, SIGNAL(memoryChanged(QString)), this, SLOT(refreshSoon()));
    connect(m_device, SIGNAL(currentIndexChanged(int)), this, SLOT(refresh()));
    IServiceMgr::instance()->subscribe(EventSources::ProfileMgr, this, Events::HandlerPrefix);
    refresh();
}

OnBoardWindow::~OnBoardWindow()
{
    IServiceMgr::instance()->unsubscribe(EventSources::ProfileMgr, this);
}

QWidget* OnBoardWindow::createHeader()
{
    auto* const header = new QWidget;
    auto* const layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    m_device = new QComboBox;
    m_device->setAccessibleName(tr("Device"));
    for (const QString& id : m_memories.deviceIds())
        m_device->addItem(m_memories.deviceName(id), id);
    m_state = new QLabel;
    m_state->setTextFormat(Qt::PlainText);
    m_state->setProperty("uiType", QStringLiteral("QuietText"));
    m_connect = new QPushButton;
    m_connect->setAutoDefault(false);
    connect(m_connect, SIGNAL(clicked()), this, SLOT(onConnect()));
    layout->addWidget(m_device);
    layout->addWidget(m_state, 1);
    layout->addWidget(m_connect);
    return header;
}

QWidget* OnBoardWindow::createLists()
{
    const auto makeList = [this](QLabel* title) {
        auto* const list = new QListWidget;
        list->setAccessibleName(title->text());
        title->setBuddy(list);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(list, SIGNAL(itemSelectionChanged()), this, SLOT(updateButtons()));
        return list;
    };
    const auto makeColumn = [](QLabel* title, QListWidget* list) {
        auto* const column = new QVBoxLayout;
        column->setSpacing(6);
        title->setTextFormat(Qt::PlainText);
        title->setProperty("uiType", QStringLiteral("PanelTitle"));
        column->addWidget(title);
        column->addWidget(list, 1);
        return column;
    };
    const auto makeButton = [this](const QString& text, const char* slot) {
        auto* const button = new QPushButton(text);
        button->setAutoDefault(false);
        connect(button, SIGNAL(clicked()), this, slot);
        return button;
    };
    auto* const localTitle = new QLabel(tr("Profiles on this computer"));
    m_storedTitle = new QLabel(tr("Profiles on the device"));
    m_local = makeList(localTitle);
    m_stored = makeList(m_storedTitle);
    m_copyToDevice = makeButton(tr("&Copy to Device"), SLOT(onCopyToDevice()));
    m_copyBack = makeButton(tr("Copy &Back"), SLOT(onCopyBack()));
    m_remove = makeButton(tr("&Remove"), SLOT(onRemove()));

    auto* const buttons = new QVBoxLayout;
    buttons->setSpacing(Spacing);
    buttons->addStretch(1);
    buttons->addWidget(m_copyToDevice);
    buttons->addWidget(m_copyBack);
    buttons->addWidget(m_remove);
    buttons->addStretch(1);

    auto* const lists = new QWidget;
    auto* const layout = new QHBoxLayout(lists);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing + 4);
    layout->addLayout(makeColumn(localTitle, m_local), 1);
    layout->addLayout(buttons);
    layout->addLayout(makeColumn(m_storedTitle, m_stored), 1);
    return lists;
}

QWidget* OnBoardWindow::createFooter()
{
    m_space = new QProgressBar;
    m_space->setAccessibleName(tr("Used memory"));
    m_write = new QPushButton(tr("&Write to Device"));
    m_write->setDefault(true);
    connect(m_write, SIGNAL(clicked()), this, SLOT(onWrite()));
    auto* const close = new QPushButton(tr("Close"));
    close->setProperty("uiType", QStringLiteral("grayButton"));
    close->setAutoDefault(false);
    connect(close, SIGNAL(clicked()), this, SLOT(close()));

    auto* const footer = new QWidget;
    auto* const layout = new QHBoxLayout(footer);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    layout->addWidget(m_space, 1);
    layout->addWidget(m_write);
    layout->addWidget(close);
    return footer;
}

void OnBoardWindow::showDevice(const QString& id)
{
    const int index = m_device->findData(id);
    if (index >= 0)
        m_device->setCurrentIndex(index);
    show();
    raise();
    activateWindow();
    m_local->setFocus();
}

QString OnBoardWindow::deviceId() const
{
    return m_device->currentData().toString();
}

QString OnBoardWindow::chosenId(const QListWidget* list)
{
    const QListWidgetItem* item = list->currentItem();
    return item && item->isSelected() ? item->data(IdRole).toString() : QString();
}

void OnBoardWindow::refreshSoon()
{
    m_refreshTimer.start();
}

void OnBoardWindow::refresh()
{
    fillLocal();
    fillDevice();
    const int capacity = m_memories.capacity(deviceId());
    const int used = m_memories.memoryUsed(deviceId());
    const bool isConnected = m_memories.isConnected(deviceId());
    m_space->setRange(0, qMax(1, capacity));
    m_space->setValue(qMin(used, capacity));
    m_space->setFormat(isConnected ? tr("%1 of %2 KB used").arg(inKilobytes(used)).arg(inKilobytes(capacity))
                                   : tr("Not connected"));
    m_state->setText(stateText());
    m_connect->setText(isConnected ? tr("&Disconnect") : tr("C&onnect"));
    m_connect->setEnabled(m_device->count() > 0);
    updateButtons();
}

QString OnBoardWindow::stateText() const
{
    if (m_device->count() == 0)
        return tr("None of your devices has an on-board memory.");
    if (!m_memories.isConnected(deviceId()))
        return tr("Not connected");
    if (m_memories.isDeviceBusyWriting(deviceId()))
        return tr("Writing...");
    if (m_memories.isDeviceBusyReading(deviceId()))
        return tr("Reading...");
    return tr("Connected");
}

void OnBoardWindow::addRow(QListWidget* list, const QString& text, const QString& id, const QString& fileName)
{
    auto* const item = new QListWidgetItem(text, list);
    item->setData(IdRole, id);
    item->setData(FileRole, fileName);
    item->setToolTip(text.toHtmlEscaped());
}

void OnBoardWindow::fillLocal()
{
    const QSignalBlocker blocker(m_local);
    const QString chosen = chosenId(m_local);
    m_local->clear();
    const cJsonValue records = m_profiles.profiles();
    for (unsigned i = 0; i < records.size(); ++i) {
        const cJsonValue& record = records[int(i)];
        if (!record["deviceid"].toString().isEmpty())
            continue;
        addRow(m_local, record["name"].toString(), record["uid"].toString());
        if (record["uid"].toString() == chosen)
            m_local->setCurrentRow(m_local->count() - 1);
    }
}

void OnBoardWindow::fillDevice()
{
    const QSignalBlocker blocker(m_stored);
    const QString chosen = chosenId(m_stored);
    m_stored->clear();
    bool isBehind = false;
    const cJsonValue records = m_profiles.getProfilesToGo(deviceId());
    for (unsigned i = 0; i < records.size(); ++i) {
        const QString id = records[int(i)]["uid"].toString();
        const QString name = records[int(i)]["name"].toString();
        // What a device has that is away nobody knows.
        const bool isDirty = m_memories.isConnected(deviceId()) && m_profiles.isProfileToGoDirty(id);
        isBehind = isBehind || isDirty;
        addRow(m_stored, isDirty ? tr("%1 - not written yet").arg(name) : name, id);
        if (id == chosen)
            m_stored->setCurrentRow(m_stored->count() - 1);
    }
    const QList<cProfilesToGoService::Damage> damages = m_memories.damages(deviceId());
    for (const cProfilesToGoService::Damage& damage : damages)
        addRow(
            m_stored, tr("%1 - damaged: %2").arg(damage.fileName, damage.reason), QString(), damage.fileName);
    QString hint = tr("The device has all its profiles as they are here.");
    if (!m_memories.isConnected(deviceId()))
        hint = tr("Profiles for this device are kept on this computer and can be written when it is back.");
    else if (isBehind)
        hint = tr("Some profiles have changes that the device does not have yet.");
    else if (!damages.isEmpty())
        hint = tr("The device holds something that can't be used. It takes up room until you remove it.");
    m_hint->setText(m_device->count() > 0 ? hint : QString());
}

void OnBoardWindow::updateButtons()
{
    const bool isReady = m_memories.isConnected(deviceId()) && !m_memories.isDeviceBusy(deviceId());
    const QListWidgetItem* stored = m_stored->currentItem();
    m_copyToDevice->setEnabled(isReady && !chosenId(m_local).isEmpty());
    m_copyBack->setEnabled(!chosenId(m_stored).isEmpty());
    m_remove->setEnabled(stored && stored->isSelected() && (isReady || !chosenId(m_stored).isEmpty()));
    m_write->setEnabled(isReady);
}

void OnBoardWindow::onCopyToDevice()
{
    const QString id = chosenId(m_local);
    const QString device = deviceId();
    if (!m_memories.isSpaceAvailable(device, {id})) {
        auto* const dialog = new MessageDialog(MessageDialog::Kind::Warning, tr("On-board Memory"),
            tr("%1 does not fit in the memory of %2. Remove a profile from the device first.")
                .arg(m_profiles.getProfileName(id), m_memories.deviceName(device)),
            this);
        dialog->addChoice(QDialog::Accepted, tr("OK"), true);
        MessageDialog::run(dialog, QDialog::Rejected);
        return;
    }
    m_profiles.copyProfileToDevice(id, device, m_memories.deviceName(device));
    m_memories.commitDevice(device);
}

void OnBoardWindow::onCopyBack()
{
    m_profiles.copyProfile(chosenId(m_stored));
}

void OnBoardWindow::onRemove()
{
    const QListWidgetItem* item = m_stored->currentItem();
    const QString file = item->data(FileRole).toString();
    const QString id = chosenId(m_stored);
    auto* const dialog = new MessageDialog(MessageDialog::Kind::Question, tr("On-board Memory"),
        tr("Do you want to remove this from %1?").arg(m_memories.deviceName(deviceId())), this);
    dialog->addItemText(file.isEmpty() ? m_profiles.getProfileName(id) : file);
    dialog->addChoice(QDialog::Accepted, tr("Remove"));
    dialog->addChoice(QDialog::Rejected, tr("Cancel"), true);
    if (MessageDialog::run(dialog, QDialog::Rejected) != QDialog::Accepted)
        return;
    if (file.isEmpty())
        m_profiles.deleteProfileByID(id);
    else
        m_memories.removeDamaged(deviceId(), file);
}

void OnBoardWindow::onWrite()
{
    m_memories.commitDevice(deviceId());
}

void OnBoardWindow::onConnect()
{
    m_memories.setConnected(deviceId(), !m_memories.isConnected(deviceId()));
}
