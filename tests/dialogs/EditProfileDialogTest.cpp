#include "LcdDevices.h"
#include "ProfileFormTestCase.h"

#include <LayoutText.h>
#include <MetaMembers.h>

#include <QDir>
#include <QLayout>

/// How the dialog is built, and what its controls do to each other.
class EditProfileDialogTest : public ProfileFormTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void slotsAreDeclaredInTheirOrder();
    void windowIsModalWithTitleBarAndIcon();
    void controlsForADisplayExistOnlyWithOne_data();
    void controlsForADisplayExistOnlyWithOne();
    void formIsLaidOutAsDesigned();
    void formWithDisplayIsLaidOutAsDesigned();
    void tabKeyGoesFromTopToBottom();
    void eventsAreHeardFromConstructionToDestruction();
    void okIsEnabledByName_data();
    void okIsEnabledByName();
    void radioButtonsEnableTheExecutable();
    void copyCheckEnablesTheCombo();
    void helpKeyOpensThePage();
};

void EditProfileDialogTest::slotsAreDeclaredInTheirOrder()
{
    QCOMPARE(MetaMembers::slotsOf(EditProfileDialog::staticMetaObject),
        QStringList({"OnOK()", "OnCancel()", "OnBrowse()", "OnBrowseRadioButtonClicked()",
            "OnSelectRadioButtonClicked()", "OnCopyExisitingCheckBoxClicked()", "onNameTextChanged(QString)",
            "onProfileDeleted(QString)"}));
    QCOMPARE(MetaMembers::signalsOf(EditProfileDialog::staticMetaObject), QStringList());
}

void EditProfileDialogTest::windowIsModalWithTitleBarAndIcon()
{
    // Icons are looked up when they are drawn; an existing file shows that the path is the one.
    const QTemporaryDir host;
    QDir(host.path()).mkpath("Resources/images");
    QPixmap logo(16, 16);
    logo.fill(Qt::red);
    QVERIFY(logo.save(host.filePath("Resources/images/VeltranoBlackLogo.png")));
    QDir::setSearchPaths("MainApp", {host.path()});

    QWidget window;
    const EditProfileDialog dialog(&window);
    QCOMPARE(dialog.parentWidget(), &window);
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(dialog.windowFlags(),
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    QCOMPARE(dialog.windowIcon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    QDir::setSearchPaths("MainApp", {});
}

void EditProfileDialogTest::controlsForADisplayExistOnlyWithOne_data()
{
    QTest::addColumn<int>("devices");
    QTest::addColumn<bool>("exist");

    QTest::newRow("null list") << LcdDevices::NoList << false;
    QTest::newRow("empty list") << 0 << false;
    QTest::newRow("negative count") << -2 << false;
    QTest::newRow("one device") << 1 << true;
    QTest::newRow("three devices") << 3 << true;
}

void EditProfileDialogTest::controlsForADisplayExistOnlyWithOne()
{
    QFETCH(int, devices);
    QFETCH(bool, exist);
    setLcdDevices(devices);
    const ProfileForm form;
    QCOMPARE(form.browse() != nullptr, exist);
    QCOMPARE(form.select() != nullptr, exist);
    QCOMPARE(form.dialog.findChildren<QRadioButton*>().size(), exist ? 2 : 0);
    QLabel* const instruction =
        form.find<QLabel>("Run the program as the foreground window. Press the OK button "
                          "underneath the DeckPanel display.");
    QCOMPARE(instruction != nullptr, exist);
    if (exist) {
        QVERIFY(form.browse()->isChecked());
        QVERIFY(!form.select()->isChecked());
        QVERIFY(instruction->wordWrap());
    }
    // Only the number is asked for.
    QCOMPARE(m_host->takeCalls(), QStringList("lcdDevices()"));
}

void EditProfileDialogTest::formIsLaidOutAsDesigned()
{
    const ProfileForm form;
    QCOMPARE(layoutText(*form.dialog.layout()),
        QString("V[H[Name:, stretch, QLineEdit], H[Descri, stretch, QLineEdit], 0x10, Select, 0x10, Lock p, "
                "0x10, Copy f, H[20x0, QComboBox, stretch], 0x20, H[stretch, OK, Cancel]]"));
    QCOMPARE(layoutText(*form.group()->layout()), QString("V[0x10, H[QLineEdit, ...], 0x10]"));
    QCOMPARE(form.dialog.layout()->contentsMargins(), QMargins(20, 20, 20, 20));
    QCOMPARE(form.dialog.layout()->spacing(), 5);
    QCOMPARE(form.dialog.minimumWidth(), 525);
    for (QLineEdit* const edit : {form.name(), form.description()}) {
        QCOMPARE(edit->contextMenuPolicy(), Qt::NoContextMenu);
        QCOMPARE(edit->minimumSize(), QSize(400, 27));
        QCOMPARE(edit->maximumSize(), QSize(400, 27));
    }
    QCOMPARE(form.executable()->contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(form.group()->title(), QString("Select Game Executable"));
    // Those that have no caption of their own.
    QCOMPARE(form.executable()->accessibleName(), QString("Select Game Executable"));
    QCOMPARE(form.browseButton()->accessibleName(), QString("Browse"));
    QCOMPARE(form.profiles()->accessibleName(), QString("Copy from an existing profile"));
    QCOMPARE(form.group()->styleSheet(), QString("QGroupBox { color: white; }"));
    QCOMPARE(form.browseButton()->property("uiType").toString(), QString("grayButton"));
    QCOMPARE(form.cancel()->property("uiType").toString(), QString("grayButton"));
    QVERIFY(!form.ok()->property("uiType").isValid());
    QVERIFY(form.ok()->isDefault());
    QVERIFY(!form.ok()->isEnabled());
    QVERIFY(!form.profiles()->isEnabled());
    QVERIFY(!form.lock()->isChecked());
    QVERIFY(!form.copy()->isChecked());
    QCOMPARE(form.executable()->text(), QString());
}

void EditProfileDialogTest::formWithDisplayIsLaidOutAsDesigned()
{
    setLcdDevices(1);
    const ProfileForm form;
    QCOMPARE(layoutText(*form.group()->layout()),
        QString("V[0x10, Browse, H[QLineEdit, ...], 0x10, Select, H[20x0, Run th]]"));
}

void EditProfileDialogTest::tabKeyGoesFromTopToBottom()
{
    setLcdDevices(1);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&form.dialog));
    QCOMPARE(form.dialog.focusWidget(), form.name());
    int lowest = -1;
    for (int i = 0; i < 8; ++i) {
        const QWidget* const focused = form.dialog.focusWidget();
        const QPoint place = focused->mapTo(&form.dialog, QPoint(0, 0));
        // Rows from top to bottom, and within a row from left to right.
        const int order = (place.y() + focused->height() / 2) / 12 * 1000 + place.x();
        QVERIFY2(order > lowest, focused->metaObject()->className());
        lowest = order;
        QTest::keyClick(&form.dialog, Qt::Key_Tab);
    }
    QCOMPARE(form.dialog.focusWidget(), form.cancel());
}

void EditProfileDialogTest::eventsAreHeardFromConstructionToDestruction()
{
    {
        const EditProfileDialog dialog(nullptr);
        QCOMPARE(m_host->takeLog(),
            QStringList({"require LCDMon.LCDMon 1", "LCDMon.LCDMon lcdDevices() -> cLCDDeviceListPtr",
                "subscribe ProfileMgr_Events on"}));
    }
    QCOMPARE(m_host->takeLog(), QStringList("unsubscribe ProfileMgr_Events"));
}

void EditProfileDialogTest::okIsEnabledByName_data()
{
    QTest::addColumn<int>("devices");
    QTest::addColumn<bool>("select");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("no display, name") << 0 << false << "Mine" << true;
    QTest::newRow("no display, no name") << 0 << false << "" << false;
    QTest::newRow("no display, blank") << 0 << false << " " << true;
    QTest::newRow("browse, name") << 1 << false << "Mine" << true;
    QTest::newRow("browse, no name") << 1 << false << "" << false;
    QTest::newRow("select, name") << 1 << true << "Mine" << true;
    QTest::newRow("select, no name") << 1 << true << "" << true;
}

void EditProfileDialogTest::okIsEnabledByName()
{
    QFETCH(int, devices);
    QFETCH(bool, select);
    QFETCH(QString, name);
    QFETCH(bool, enabled);
    setLcdDevices(devices);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    if (select)
        form.select()->click();
    form.name()->setText("Something else");
    QVERIFY(form.ok()->isEnabled());
    form.name()->setText(name);
    QCOMPARE(form.ok()->isEnabled(), enabled);
}

void EditProfileDialogTest::radioButtonsEnableTheExecutable()
{
    setLcdDevices(1);
    const ProfileForm form;
    QVERIFY(form.executable()->isEnabled());
    form.select()->click();
    QVERIFY(!form.executable()->isEnabled());
    QVERIFY(!form.browseButton()->isEnabled());
    form.browse()->click();
    QVERIFY(form.executable()->isEnabled());
    QVERIFY(form.browseButton()->isEnabled());
}

void EditProfileDialogTest::copyCheckEnablesTheCombo()
{
    const ProfileForm form;
    form.copy()->click();
    QVERIFY(form.profiles()->isEnabled());
    form.copy()->click();
    QVERIFY(!form.profiles()->isEnabled());
}

void EditProfileDialogTest::helpKeyOpensThePage()
{
    ProfileForm form;
    form.dialog.show();
    m_host->takeLog();
    QTest::keyClick(&form.dialog, Qt::Key_F1);
    QCOMPARE(m_host->takeLog(),
        QStringList({"require Help.HelpMgr 1",
            R"(Help.HelpMgr LaunchHelp(QString "com.veltrano.profile", QString "create_new_profile.htm"))"}));
    QVERIFY(form.dialog.isVisible());
}

VELTRANO_TEST_MAIN(EditProfileDialogTest)
#include "EditProfileDialogTest.moc"
