#pragma once

#include <cJsonValue.h>

#include <QDialog>
#include <QString>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// The form in which the user creates a profile or changes its name, description, game and lock.
///
///     EditProfileDialog dialog(cMainUI().window());
///     dialog.setProfile(record, false);
///     dialog.exec();
///
/// It talks to the host itself: OK checks the form, tells the user what is wrong with it, and stores the
/// profile; the result of exec() says nothing. It closes by itself when the profile that it edits is deleted.
class EditProfileDialog : public QDialog
{
    Q_OBJECT

public:
    explicit EditProfileDialog(QWidget* parent);
    ~EditProfileDialog() override;

    /// A null record makes a new profile; `saveAs` stores the record's profile under another id and name.
    void setProfile(const cJsonValue& record, bool saveAs);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void OnOK();
    void OnCancel();
    void OnBrowse();
    void OnBrowseRadioButtonClicked();
    void OnSelectRadioButtonClicked();
    // Spelled as those know it who reach it by name.
    void OnCopyExisitingCheckBoxClicked();
    void onNameTextChanged(const QString& text);
    void onProfileDeleted(const QString& profileID);

private:
    Q_DISABLE_COPY(EditProfileDialog)

    enum class Mode { New, Edit, SaveAs };

    void createNameAndDescription();
    void createExecutableGroup(bool hasLcd);
    void createOptions();
    void createButtons();
    void layOut();
    QBoxLayout* layOutExecutableGroup();
    void connectControls();

    void startNewProfile();
    void startCopyOf(const cJsonValue& record);
    void fillControls();

    bool isExecutableNeeded() const;
    bool isLcdSelected() const;
    bool isNameTaken(const QString& name) const;
    /// Whether OK may go on; tells the user if not.
    bool checkForm() const;
    void takeOverCopiedProfile();
    void readControls();

    QLabel* m_nameLabel = nullptr;
    QLabel* m_descriptionLabel = nullptr;
    // The three controls for a device with a display are null without one.
    QLabel* m_instructionLabel = nullptr;
    QLineEdit* m_nameEdit = nullptr;
    QLineEdit* m_descriptionEdit = nullptr;
    QLineEdit* m_executableEdit = nullptr;
    QPushButton* m_okButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_browseButton = nullptr;
    QGroupBox* m_executableGroup = nullptr;
    QRadioButton* m_browseRadio = nullptr;
    QRadioButton* m_selectRadio = nullptr;
    QCheckBox* m_lockCheck = nullptr;
    QCheckBox* m_copyCheck = nullptr;
    /// The profiles that a new one can be copied from, by id.
    QComboBox* m_profileCombo = nullptr;
    cJsonValue m_profile;
    Mode m_mode = Mode::New;
    bool m_cancelled = false;
};
