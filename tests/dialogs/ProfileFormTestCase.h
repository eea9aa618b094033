#pragma once

#include <cJsonValue.h>
#include <EditProfileDialog.h>
#include <RecordingHost.h>
#include <TestCase.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QVector>

#include <memory>

/// The dialog, with its controls found as a user finds them.
class ProfileForm
{
    Q_DISABLE_COPY(ProfileForm)

public:
    ProfileForm()
        : dialog(nullptr)
    { }

    /// The control of a kind with that text; null if there is none.
    template<typename Control>
    Control* find(const QString& text) const
    {
        for (auto* const each : dialog.findChildren<Control*>()) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }
    QLineEdit* name() const { return field(QStringLiteral("Name:")); }
    QLineEdit* description() const { return field(QStringLiteral("Description:")); }
    QLineEdit* executable() const { return group()->findChild<QLineEdit*>(); }
    QGroupBox* group() const { return dialog.findChild<QGroupBox*>(); }
    QPushButton* ok() const { return find<QPushButton>(QStringLiteral("OK")); }
    QPushButton* cancel() const { return find<QPushButton>(QStringLiteral("Cancel")); }
    QPushButton* browseButton() const { return find<QPushButton>(QStringLiteral("...")); }
    QRadioButton* browse() const { return find<QRadioButton>(QStringLiteral("Browse")); }
    QRadioButton* select() const
    {
        return find<QRadioButton>(QStringLiteral("Select using DeckPanel display"));
    }
    QCheckBox* lock() const { return find<QCheckBox>(QStringLiteral("Lock profile while game is running")); }
    QCheckBox* copy() const { return find<QCheckBox>(QStringLiteral("Copy from an existing profile")); }
    QComboBox* profiles() const { return dialog.findChild<QComboBox*>(); }

    EditProfileDialog dialog;

private:
    QLineEdit* field(const QString& caption) const
    {
        return qobject_cast<QLineEdit*>(find<QLabel>(caption)->buddy());
    }
};

/// Base of the tests of the profile dialog: a host with the one profile "Other" and without displays, and an
/// existing file that can be a profile's program.
class ProfileFormTestCase : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    static inline const QString OwnId = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
    static inline const QString OtherId = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000002}");

    static cJsonValue profileRecord(const QString& uid, const QString& name);
    static cJsonValue listOf(const QVector<cJsonValue>& records);

    void setLcdDevices(int count);
    QString existingFile() const { return m_folder->filePath(QStringLiteral("game.exe")); }
    /// The record of the one call of that operation; null if there was another number of them.
    cJsonValue stored(const QString& operation) const;
    /// Makes a form whose OK would store.
    void fillIn(const ProfileForm& form) const;

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<QTemporaryDir> m_folder;
};
