#include "EditProfileDialog.h"

#include "cProfileFactory.h"
#include "DialogConstants.h"
#include "DialogSetup.h"

#include <cEventHelpers.h>
#include <cHelpMgr.h>
#include <cLCDMon.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <EventNames.h>
#include <HelpTopics.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpacerItem>
#include <QStandardPaths>
#include <QUuid>
#include <QVBoxLayout>

#include <utility>

using namespace DialogConstants;

namespace {

bool hasLcd()
{
    const cLCDDeviceListPtr devices = cLCDMon().lcdDevices();
    return devices && devices->count() >= 1;
}

QSpacerItem* gap(int width, int height)
{
    return new QSpacerItem(width, height, QSizePolicy::Minimum, QSizePolicy::Minimum);
}

/// Profiles on a device have names of their own beside those on this machine.
bool isOnDevice(const cJsonValue& profile)
{
    return !profile["deviceid"].toString().isEmpty();
}

} // namespace

EditProfileDialog::EditProfileDialog(QWidget* parent)
    : QDialog(parent)
{
    DialogSetup::apply(*this);
    // In the order in which the tab key goes through them.
    createNameAndDescription();
    createExecutableGroup(hasLcd());
    createOptions();
    createButtons();
    layOut();
    connectControls();
    EventHelpers::subscribe(EventSources::ProfileMgr, this);
}

EditProfileDialog::~EditProfileDialog()
{
    EventHelpers::unsubscribe(EventSources::ProfileMgr, this);
}

void EditProfileDialog::createNameAndDescription()
{
    const auto addField = [this](QLabel*& label, QLineEdit*& edit, const QString& text) {
        label = new QLabel(text, this);
        edit = new QLineEdit(this);
        edit->setContextMenuPolicy(Qt::NoContextMenu);
        edit->setFixedSize(ProfileFieldSize);
        label->setBuddy(edit);
    };
    addField(m_nameLabel, m_nameEdit, tr("Name:"));
    addField(m_descriptionLabel, m_descriptionEdit, tr("Description:"));
}

void EditProfileDialog::createExecutableGroup(bool hasLcd)
{
    m_executableGroup = new QGroupBox(tr("Select Game Executable"), this);
    m_executableGroup->setStyleSheet(QStringLiteral("QGroupBox { color: white; }"));
    if (hasLcd) {
        m_browseRadio = new QRadioButton(tr("Browse"), m_executableGroup);
        m_browseRadio->setChecked(true);
    }
    m_executableEdit = new QLineEdit(m_executableGroup);
    m_executableEdit->setContextMenuPolicy(Qt::NoContextMenu);
    m_browseButton = new QPushButton(tr("..."), m_executableGroup);
    DialogSetup::setGray(*m_browseButton);
    // What stands beside these says their purpose to those who see it.
    m_executableEdit->setAccessibleName(m_executableGroup->title());
    m_browseButton->setAccessibleName(tr("Browse"));
    if (hasLcd) {
        m_selectRadio = new QRadioButton(tr("Select using DeckPanel display"), m_executableGroup);
        m_instructionLabel = new QLabel(tr("Run the program as the foreground window. Press the OK button "
                                           "underneath the DeckPanel display."),
            m_executableGroup);
        m_instructionLabel->setWordWrap(true);
    }
}

void EditProfileDialog::createOptions()
{
    m_lockCheck = new QCheckBox(tr("Lock profile while game is running"), this);
    m_copyCheck = new QCheckBox(tr("Copy from an existing profile"), this);
    m_profileCombo = new QComboBox(this);
    m_profileCombo->setEnabled(false);
    m_profileCombo->setAccessibleName(m_copyCheck->text());
}

void EditProfileDialog::createButtons()
{
    m_okButton = new QPushButton(tr("OK"), this);
    m_okButton->setEnabled(false);
    m_okButton->setDefault(true);
    m_cancelButton = new QPushButton(tr("Cancel"), this);
    DialogSetup::setGray(*m_cancelButton);
}

void EditProfileDialog::layOut()
{
    const auto fieldRow = [](QLabel* label, QLineEdit* edit) {
        auto* const row = new QHBoxLayout;
        row->addWidget(label);
        row->addStretch();
        row->addWidget(edit);
        return row;
    };
    auto* const copyRow = new QHBoxLayout;
    copyRow->addItem(gap(ProfileIndent, 0));
    copyRow->addWidget(m_profileCombo);
    copyRow->addStretch();

    auto* const buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(m_okButton);
    buttonRow->addWidget(m_cancelButton);

    m_executableGroup->setLayout(layOutExecutableGroup());

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(
        ProfileDialogMargin, ProfileDialogMargin, ProfileDialogMargin, ProfileDialogMargin);
    layout->setSpacing(ProfileDialogSpacing);
    layout->addLayout(fieldRow(m_nameLabel, m_nameEdit));
    layout->addLayout(fieldRow(m_descriptionLabel, m_descriptionEdit));
    layout->addItem(gap(0, ProfileGroupGap));
    layout->addWidget(m_executableGroup);
    layout->addItem(gap(0, ProfileGroupGap));
    layout->addWidget(m_lockCheck);
    layout->addItem(gap(0, ProfileGroupGap));
    layout->addWidget(m_copyCheck);
    layout->addLayout(copyRow);
    layout->addItem(gap(0, ProfileButtonGap));
    layout->addLayout(buttonRow);
    setMinimumWidth(ProfileDialogMinimumWidth);
}

QBoxLayout* EditProfileDialog::layOutExecutableGroup()
{
    auto* const executableRow = new QHBoxLayout;
    executableRow->addWidget(m_executableEdit);
    executableRow->addWidget(m_browseButton);

    auto* const layout = new QVBoxLayout;
    layout->addItem(gap(0, ProfileGroupGap));
    if (m_browseRadio)
        layout->addWidget(m_browseRadio);
    layout->addLayout(executableRow);
    layout->addItem(gap(0, ProfileGroupGap));
    if (m_selectRadio) {
        layout->addWidget(m_selectRadio);
        auto* const instructionRow = new QHBoxLayout;
        instructionRow->addItem(gap(ProfileIndent, 0));
        instructionRow->addWidget(m_instructionLabel);
        layout->addLayout(instructionRow);
    }
    return layout;
}

void EditProfileDialog::connectControls()
{
    connect(m_okButton, SIGNAL(clicked()), this, SLOT(OnOK()));
    connect(m_cancelButton, SIGNAL(clicked()), this, SLOT(OnCancel()));
    connect(m_browseButton, SIGNAL(clicked()), this, SLOT(OnBrowse()));
    if (m_browseRadio)
        connect(m_browseRadio, SIGNAL(clicked()), this, SLOT(OnBrowseRadioButtonClicked()));
    if (m_selectRadio)
        connect(m_selectRadio, SIGNAL(clicked()), this, SLOT(OnSelectRadioButtonClicked()));
    connect(m_copyCheck, SIGNAL(clicked()), this, SLOT(OnCopyExisitingCheckBoxClicked()));
    connect(m_nameEdit, SIGNAL(textChanged(const QString&)), this, SLOT(onNameTextChanged(const QString&)));
}

void EditProfileDialog::setProfile(const cJsonValue& record, bool saveAs)
{
    m_profile = record;
    if (record.isNull()) {
        m_mode = Mode::New;
        setWindowTitle(tr("New Profile"));
        startNewProfile();
    } else if (saveAs) {
        m_mode = Mode::SaveAs;
        setWindowTitle(tr("Save As"));
        startCopyOf(record);
    } else {
        m_mode = Mode::Edit;
        setWindowTitle(tr("Edit Profile"));
    }
    if (m_mode != Mode::New) {
        m_copyCheck->hide();
        m_profileCombo->hide();
    }
    // Save As starts with an empty form: the user names the new profile and its game.
    if (m_mode == Mode::Edit)
        fillControls();
}

void EditProfileDialog::startNewProfile()
{
    const cJsonValue profiles = cProfileMgr().profiles();
    for (unsigned i = 0; i < profiles.size(); ++i) {
        const cJsonValue& profile = profiles[int(i)];
        m_profileCombo->addItem(profile["name"].toString(), profile["uid"].toString());
    }
    cProfileFactory factory;
    factory.addProfile(QString(), QString(), QUuid::createUuid(), QString());
    factory.setScript(QString());
    factory.finishMacro();
    m_profile = factory.build()[0];
}

void EditProfileDialog::startCopyOf(const cJsonValue& record)
{
    cProfileFactory factory;
    factory.finishProfile();
    factory.setName(record["name"].toString());
    factory.setUid(QUuid::createUuid());
    factory.setDescription(record["description"].toString());
    factory.setTarget(record["target"].toString());
    factory.setScript(record["script"].toString());
    m_profile = factory.build()[0];
}

void EditProfileDialog::fillControls()
{
    const cJsonValue& profile = m_profile;
    m_nameEdit->setText(profile["name"].toString());
    m_descriptionEdit->setText(profile["description"].toString());
    m_executableEdit->setText(profile["target"].toString());
    if (m_selectRadio)
        m_selectRadio->setChecked(profile["uselcd"].toBool());
    m_lockCheck->setChecked(profile["lock"].toBool());
}

void EditProfileDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1)
        cHelpMgr().LaunchHelp(HelpTopics::Section, ProfileHelpTopic);
    else
        QDialog::keyPressEvent(event);
}

bool EditProfileDialog::isExecutableNeeded() const
{
    return !m_browseRadio || m_browseRadio->isChecked();
}

bool EditProfileDialog::isLcdSelected() const
{
    return m_selectRadio && m_selectRadio->isChecked();
}

void EditProfileDialog::onNameTextChanged(const QString& text)
{
    m_okButton->setEnabled(isLcdSelected() || (isExecutableNeeded() && !text.isEmpty()));
}

void EditProfileDialog::OnBrowseRadioButtonClicked()
{
    m_executableEdit->setEnabled(true);
    m_browseButton->setEnabled(true);
}

void EditProfileDialog::OnSelectRadioButtonClicked()
{
    m_executableEdit->setEnabled(false);
    m_browseButton->setEnabled(false);
}

void EditProfileDialog::OnCopyExisitingCheckBoxClicked()
{
    m_profileCombo->setEnabled(m_copyCheck->isChecked());
}

void EditProfileDialog::OnBrowse()
{
    const QStringList filters = tr("Executables (*.exe)|*.exe|All Files (*.*)|*.*||").split(QLatin1Char('|'));
    const QString filter = QStringLiteral("%1;;%2").arg(filters.value(0), filters.value(2));
    QString folder = m_executableEdit->text();
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    const QString path = QFileDialog::getOpenFileName(this, tr("Open"), folder, filter);
    if (!path.isEmpty())
        m_executableEdit->setText(QDir::toNativeSeparators(path));
}

void EditProfileDialog::OnCancel()
{
    m_cancelled = true;
    m_profile.clear();
    close();
}

void EditProfileDialog::onProfileDeleted(const QString& profileID)
{
    const cJsonValue& profile = m_profile;
    if (profile.contains("uid") && profile["uid"].toString().compare(profileID, Qt::CaseInsensitive) == 0)
        reject();
}

void EditProfileDialog::OnOK()
{
    m_cancelled = false;
    if (!checkForm())
        return;
    if (m_copyCheck->isChecked())
        takeOverCopiedProfile();
    readControls();
    if (m_mode == Mode::Edit)
        cProfileMgr().editProfileProperty(m_profile);
    else
        cProfileMgr().addProfile(m_profile);
    close();
}

bool EditProfileDialog::checkForm() const
{
    const auto refuse = [](const QString& title, const QString& message) {
        cMainUI().info(title, message);
        return false;
    };
    const QString name = m_nameEdit->text();
    if (name.isEmpty())
        return refuse(tr("Profile Name Error"), tr("You need to specify a name for the profile."));
    if (isNameTaken(name))
        return refuse(tr("Profile Name Error"), tr("A profile with that name already exists."));
    if (!isExecutableNeeded())
        return true;
    const QString executable = m_executableEdit->text();
    if (executable.isEmpty())
        return refuse(tr("Missing Target Error"), tr("You need to specify the executable."));
    if (!QFile::exists(executable))
        return refuse(tr("Profile Properties"), tr("%1 does not exist.").arg(executable));
    return true;
}

bool EditProfileDialog::isNameTaken(const QString& name) const
{
    const cJsonValue& own = m_profile;
    const cJsonValue profiles = cProfileMgr().profiles();
    for (unsigned i = 0; i < profiles.size(); ++i) {
        const cJsonValue& profile = profiles[int(i)];
        if (isOnDevice(profile) == isOnDevice(own) && profile["uid"].toString() != own["uid"].toString()
            && profile["name"].toString() == name)
            return true;
    }
    return false;
}

void EditProfileDialog::takeOverCopiedProfile()
{
    const QString original = m_profileCombo->currentData(Qt::UserRole).toString();
    m_profile = cProfileMgr().getProfileByID(original);
    // A profile that has gone in the meantime leaves a record that has no id; the host gives it one.
    if (!m_profile.isNull())
        m_profile["uid"] = QUuid::createUuid().toString().toUpper();
}

void EditProfileDialog::readControls()
{
    m_profile["name"] = m_nameEdit->text();
    m_profile["description"] = m_descriptionEdit->text();
    m_profile["target"] = isExecutableNeeded() ? m_executableEdit->text() : QString();
    m_profile["uselcd"] = isLcdSelected();
    m_profile["lock"] = m_lockCheck->isChecked();
}
