#include "ProfileFormTestCase.h"

/// What the dialog objects to, and the ways out of it that store nothing.
class ProfileFormErrorsTest : public ProfileFormTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wrongFormIsToldAndStaysOpen_data();
    void wrongFormIsToldAndStaysOpen();
    void nameIsTaken_data();
    void nameIsTaken();
    void nameIsFreeWhenThereIsNoList();
    void selectedDisplayWithoutNameIsCaughtByOk();
    void cancelStoresNothing_data();
    void cancelStoresNothing();
    void deletionElsewhereClosesTheDialog_data();
    void deletionElsewhereClosesTheDialog();
    void deletionWhileAMessageIsOpenClosesTheDialog();
};

void ProfileFormErrorsTest::wrongFormIsToldAndStaysOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("told");

    QTest::newRow("no name")
        << ""
        << ""
        << R"(info("Profile Name Error", "You need to specify a name for the profile."))";
    QTest::newRow("taken name")
        << "Other"
        << ""
        << R"(info("Profile Name Error", "A profile with that name already exists."))";
    QTest::newRow("no executable")
        << "Mine"
        << ""
        << R"(info("Missing Target Error", "You need to specify the executable."))";
    QTest::newRow("missing executable") << "Mine"
                                        << "/none/game.exe"
                                        << R"(info("Profile Properties", "/none/game.exe does not exist."))";
    QTest::newRow("percent sign") << "Mine"
                                  << "/none/%1.exe"
                                  << R"(info("Profile Properties", "/none/%1.exe does not exist."))";
}

void ProfileFormErrorsTest::wrongFormIsToldAndStaysOpen()
{
    QFETCH(QString, name);
    QFETCH(QString, executable);
    QFETCH(QString, told);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    form.name()->setText(name);
    form.executable()->setText(executable);
    form.dialog.show();
    m_host->takeCalls();
    // Also when the button is disabled, since its state follows the name alone.
    QVERIFY(QMetaObject::invokeMethod(&form.dialog, "OnOK"));
    QVERIFY(form.dialog.isVisible());
    QStringList calls = m_host->takeCalls();
    QCOMPARE(calls.takeLast(), told);
    calls.removeAll("profiles()");
    QCOMPARE(calls, QStringList());

    // What was wrong can be mended in the open form.
    fillIn(form);
    form.ok()->click();
    QVERIFY(!form.dialog.isVisible());
    QCOMPARE(stored("addProfile")["name"].toString(), QString("Mine"));
}

void ProfileFormErrorsTest::nameIsTaken_data()
{
    QTest::addColumn<cJsonValue>("own");
    QTest::addColumn<cJsonValue>("other");
    QTest::addColumn<bool>("isTaken");

    const auto onDevice = [](cJsonValue record, const QString& device) {
        record["deviceid"] = device;
        return record;
    };
    const cJsonValue own = profileRecord(OwnId, "Own");
    const cJsonValue other = profileRecord(OtherId, "Mine");
    QTest::newRow("both local") << own << other << true;
    QTest::newRow("both on a device") << onDevice(own, "a") << onDevice(other, "b") << true;
    QTest::newRow("other on a device") << own << onDevice(other, "a") << false;
    QTest::newRow("own on a device") << onDevice(own, "a") << other << false;
    QTest::newRow("empty device counts as local") << own << onDevice(other, "") << true;
    QTest::newRow("empty device of the own") << onDevice(own, "") << other << true;
    QTest::newRow("the own record") << own << profileRecord(OwnId, "Mine") << false;
    QTest::newRow("another case") << own << profileRecord(OtherId, "mine") << false;
    QTest::newRow("another name") << own << profileRecord(OtherId, "Mine 2") << false;
}

void ProfileFormErrorsTest::nameIsTaken()
{
    QFETCH(cJsonValue, own);
    QFETCH(cJsonValue, other);
    QFETCH(bool, isTaken);
    m_host->answer("profiles", listOf({profileRecord("{}", "First"), other}));
    ProfileForm form;
    form.dialog.setProfile(own, false);
    fillIn(form);
    form.ok()->click();
    const bool wasTold = m_host->takeCalls().contains(
        R"(info("Profile Name Error", "A profile with that name already exists."))");
    QCOMPARE(wasTold, isTaken);
    QCOMPARE(stored("editProfileProperty").isNull(), isTaken);
}

void ProfileFormErrorsTest::nameIsFreeWhenThereIsNoList()
{
    m_host->answer("profiles", profileRecord(OtherId, "Mine"));
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.ok()->click();
    QVERIFY(!stored("addProfile").isNull());
}

void ProfileFormErrorsTest::selectedDisplayWithoutNameIsCaughtByOk()
{
    setLcdDevices(1);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    form.name()->setText("M");
    form.select()->click();
    form.name()->clear();
    QVERIFY(form.ok()->isEnabled());
    m_host->takeCalls();
    form.dialog.show();
    form.ok()->click();
    QCOMPARE(m_host->takeCalls(),
        QStringList(R"(info("Profile Name Error", "You need to specify a name for the profile."))"));
    QVERIFY(form.dialog.isVisible());
}

void ProfileFormErrorsTest::cancelStoresNothing_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << "button";
    QTest::newRow("escape") << "escape";
    QTest::newRow("close") << "close";
}

void ProfileFormErrorsTest::cancelStoresNothing()
{
    QFETCH(QString, way);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.dialog.show();
    m_host->takeCalls();
    if (way == "button")
        form.cancel()->click();
    else if (way == "escape")
        QTest::keyClick(&form.dialog, Qt::Key_Escape);
    else
        form.dialog.close();
    QVERIFY(!form.dialog.isVisible());
    QCOMPARE(form.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(m_host->takeCalls(), QStringList());
}

void ProfileFormErrorsTest::deletionElsewhereClosesTheDialog_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<bool>("closes");

    const cJsonValue record = profileRecord(OwnId, "Mine");
    QTest::newRow("the edited one") << record << OwnId << true;
    QTest::newRow("the edited one in another case") << record << OwnId.toLower() << true;
    QTest::newRow("another one") << record << OtherId << false;
    cJsonValue withoutId;
    withoutId["name"] = "Mine";
    QTest::newRow("no id") << withoutId << "" << false;
    QTest::newRow("a new profile") << cJsonValue() << OtherId << false;
}

void ProfileFormErrorsTest::deletionElsewhereClosesTheDialog()
{
    QFETCH(cJsonValue, record);
    QFETCH(QString, deleted);
    QFETCH(bool, closes);
    ProfileForm form;
    form.dialog.setProfile(record, false);
    form.dialog.show();
    m_host->takeCalls();
    m_host->publishProfileDeleted(deleted);
    QCOMPARE(form.dialog.isVisible(), !closes);
    QCOMPARE(m_host->takeCalls(), QStringList());
}

void ProfileFormErrorsTest::deletionWhileAMessageIsOpenClosesTheDialog()
{
    m_host->answer("info", [this](const RecordedCall&) { m_host->publishProfileDeleted(OwnId); });
    ProfileForm form;
    form.dialog.setProfile(profileRecord(OwnId, ""), false);
    form.dialog.show();
    QVERIFY(QMetaObject::invokeMethod(&form.dialog, "OnOK"));
    QVERIFY(!form.dialog.isVisible());
    QVERIFY(stored("editProfileProperty").isNull());
}

VELTRANO_TEST_MAIN(ProfileFormErrorsTest)
#include "ProfileFormErrorsTest.moc"
