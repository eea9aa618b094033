#include "ProfileFormTestCase.h"

#include <QUuid>

/// What the dialog shows of a record in each of its three modes, and what it stores.
class ProfileStoringTest : public ProfileFormTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newProfileListsProfilesToCopyFrom();
    void newProfileWithoutAListHasNothingToCopyFrom();
    void newProfileIsStoredWithAnIdOfItsOwn();
    void editFillsTheForm();
    void editHasNothingToCopyFrom();
    void editKeepsWhatTheFormDoesNotShow();
    void saveAsStartsBlankAndKeepsOnlyFiveKeys();
    void selectedDisplayNeedsNoExecutable();
    void withoutDisplayUseLcdIsFalse();
    void copyTakesTheWholeRecordUnderANewId();
    void copyOfAProfileThatHasGoneHasNoId();
    void resultOfTheHostIsNotRead();
    void enterAcceptsWhatIsComplete();
};

void ProfileStoringTest::newProfileListsProfilesToCopyFrom()
{
    m_host->answer(
        "profiles", listOf({profileRecord("{2}", "Zeta"), profileRecord("{1}", "Alpha"), cJsonValue()}));
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    QCOMPARE(form.dialog.windowTitle(), QString("New Profile"));
    QCOMPARE(form.profiles()->count(), 3);
    QCOMPARE(form.profiles()->itemText(0), QString("Zeta"));
    QCOMPARE(form.profiles()->itemData(0).toString(), QString("{2}"));
    QCOMPARE(form.profiles()->itemText(1), QString("Alpha"));
    QCOMPARE(form.profiles()->itemData(1).toString(), QString("{1}"));
    form.dialog.show();
    QVERIFY(form.copy()->isVisible());
    QVERIFY(form.profiles()->isVisible());
}

void ProfileStoringTest::newProfileWithoutAListHasNothingToCopyFrom()
{
    m_host->answer("profiles", cJsonValue("not a list"));
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    QCOMPARE(form.profiles()->count(), 0);
    fillIn(form);
    form.copy()->click();
    form.ok()->click();
    // There is no current profile, so an unknown one is asked for.
    QVERIFY(m_host->takeCalls().contains("getProfileByID(\"\")"));
    QCOMPARE(stored("addProfile")["name"].toString(), QString("Mine"));
}

void ProfileStoringTest::newProfileIsStoredWithAnIdOfItsOwn()
{
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.description()->setText("About it");
    form.lock()->click();
    form.dialog.show();
    m_host->takeLog();
    form.ok()->click();
    QVERIFY(!form.dialog.isVisible());

    const cJsonValue record = stored("addProfile");
    const QUuid uid(record["uid"].toString());
    QVERIFY(!uid.isNull());
    cJsonValue expected;
    expected["name"] = "Mine";
    expected["description"] = "About it";
    expected["uid"] = uid.toString().toUpper();
    expected["target"] = existingFile();
    expected["script"] = "";
    expected["uselcd"] = false;
    expected["lock"] = true;
    QCOMPARE(record, expected);
    const QStringList log = m_host->takeLog();
    QCOMPARE(log.size(), 4);
    QCOMPARE(log[1], QString("Profiler.ProfileMgr profiles() -> cJsonValue"));
    QVERIFY(log[3].startsWith("Profiler.ProfileMgr addProfile(const cJsonValue "));
}

void ProfileStoringTest::editFillsTheForm()
{
    setLcdDevices(1);
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["description"] = "About it";
    record["target"] = "/games/mine.exe";
    record["uselcd"] = true;
    record["lock"] = true;
    ProfileForm form;
    form.dialog.setProfile(record, false);
    QCOMPARE(form.dialog.windowTitle(), QString("Edit Profile"));
    QCOMPARE(form.name()->text(), QString("Mine"));
    QCOMPARE(form.description()->text(), QString("About it"));
    QCOMPARE(form.executable()->text(), QString("/games/mine.exe"));
    QVERIFY(form.select()->isChecked());
    QVERIFY(!form.browse()->isChecked());
    QVERIFY(form.lock()->isChecked());
    QVERIFY(form.ok()->isEnabled());

    ProfileForm plain;
    plain.dialog.setProfile(profileRecord(OwnId, "Plain"), false);
    QVERIFY(plain.browse()->isChecked());
    QVERIFY(!plain.lock()->isChecked());
}

void ProfileStoringTest::editHasNothingToCopyFrom()
{
    ProfileForm form;
    form.dialog.setProfile(profileRecord(OwnId, "Mine"), false);
    form.dialog.show();
    QVERIFY(!form.copy()->isVisible());
    QVERIFY(!form.profiles()->isVisible());
    QCOMPARE(form.profiles()->count(), 0);
}

void ProfileStoringTest::editKeepsWhatTheFormDoesNotShow()
{
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["deviceid"] = "device";
    record["script"] = "print()";
    record["future"]["key"] = 5;
    ProfileForm form;
    form.dialog.setProfile(record, false);
    form.name()->setText("Renamed");
    form.executable()->setText(existingFile());
    form.ok()->click();
    record["name"] = "Renamed";
    record["description"] = "";
    record["target"] = existingFile();
    record["uselcd"] = false;
    record["lock"] = false;
    QCOMPARE(stored("editProfileProperty"), record);
    QVERIFY(stored("addProfile").isNull());
}

void ProfileStoringTest::saveAsStartsBlankAndKeepsOnlyFiveKeys()
{
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["description"] = "About it";
    record["target"] = "/games/mine.exe";
    record["script"] = "print()";
    record["deviceid"] = "device";
    record["macros"].append(cJsonValue("macro"));
    record["lock"] = true;
    ProfileForm form;
    form.dialog.setProfile(record, true);
    QCOMPARE(form.dialog.windowTitle(), QString("Save As"));
    QCOMPARE(form.name()->text(), QString());
    QCOMPARE(form.description()->text(), QString());
    QCOMPARE(form.executable()->text(), QString());
    QVERIFY(!form.lock()->isChecked());
    form.dialog.show();
    QVERIFY(!form.copy()->isVisible());
    QVERIFY(!form.profiles()->isVisible());
    QVERIFY(!form.ok()->isEnabled());

    fillIn(form);
    form.ok()->click();
    const cJsonValue stored = this->stored("addProfile");
    const QUuid uid(stored["uid"].toString());
    QVERIFY(!uid.isNull());
    QVERIFY(stored["uid"].toString() != OwnId);
    cJsonValue expected;
    expected["name"] = "Mine";
    expected["uid"] = uid.toString().toUpper();
    expected["description"] = "";
    expected["target"] = existingFile();
    expected["script"] = "print()";
    expected["uselcd"] = false;
    expected["lock"] = false;
    QCOMPARE(stored, expected);
}

void ProfileStoringTest::selectedDisplayNeedsNoExecutable()
{
    setLcdDevices(1);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    form.name()->setText("Mine");
    form.executable()->setText("/none/game.exe");
    form.select()->click();
    form.ok()->click();
    const cJsonValue record = stored("addProfile");
    QCOMPARE(record["target"], cJsonValue(""));
    QCOMPARE(record["uselcd"], cJsonValue(true));
}

void ProfileStoringTest::withoutDisplayUseLcdIsFalse()
{
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["uselcd"] = true;
    ProfileForm form;
    form.dialog.setProfile(record, false);
    form.executable()->setText(existingFile());
    form.ok()->click();
    QCOMPARE(stored("editProfileProperty")["uselcd"], cJsonValue(false));
    QCOMPARE(stored("editProfileProperty")["target"], cJsonValue(existingFile()));
}

void ProfileStoringTest::copyTakesTheWholeRecordUnderANewId()
{
    cJsonValue source = profileRecord("{2}", "Source");
    source["macros"].append(profileRecord("{M}", "macro"));
    source["assignments"]["Mouse"].append(profileRecord("{A}", "assignment"));
    source["script"] = "print()";
    source["description"] = "of the source";
    m_host->answer("profiles", listOf({profileRecord("{1}", "First"), source}));
    m_host->answer("getProfileByID", source);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.copy()->click();
    form.profiles()->setCurrentIndex(1);
    form.ok()->click();
    QVERIFY(m_host->takeCalls().contains("getProfileByID(\"{2}\")"));

    const cJsonValue record = stored("addProfile");
    const QUuid uid(record["uid"].toString());
    QVERIFY(!uid.isNull());
    cJsonValue expected = source;
    expected["uid"] = uid.toString().toUpper();
    expected["name"] = "Mine";
    expected["description"] = "";
    expected["target"] = existingFile();
    expected["uselcd"] = false;
    expected["lock"] = false;
    QCOMPARE(record, expected);
}

void ProfileStoringTest::copyOfAProfileThatHasGoneHasNoId()
{
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.copy()->click();
    form.ok()->click();
    const cJsonValue record = stored("addProfile");
    QVERIFY(!record.contains("uid"));
    QCOMPARE(record["name"].toString(), QString("Mine"));
    QCOMPARE(record["target"].toString(), existingFile());
}

void ProfileStoringTest::resultOfTheHostIsNotRead()
{
    m_host->answer("addProfile", false);
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.dialog.show();
    form.ok()->click();
    QVERIFY(!form.dialog.isVisible());
}

void ProfileStoringTest::enterAcceptsWhatIsComplete()
{
    ProfileForm form;
    form.dialog.setProfile(cJsonValue(), false);
    form.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&form.dialog));
    QTest::keyClick(form.name(), Qt::Key_Return);
    QVERIFY(form.dialog.isVisible());
    QTest::keyClicks(form.name(), "Mine");
    form.executable()->setText(existingFile());
    QTest::keyClick(form.name(), Qt::Key_Return);
    QVERIFY(!form.dialog.isVisible());
    QCOMPARE(stored("addProfile")["name"].toString(), QString("Mine"));
}

VELTRANO_TEST_MAIN(ProfileStoringTest)
#include "ProfileStoringTest.moc"
