#include <ApplicationLook.h>
#include <cLuaScript.h>
#include <cLuaScriptService.h>
#include <EventNames.h>
#include <IHostWindow.h>
#include <ProfilesTestCase.h>
#include <ScriptWindow.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QPushButton>

#include <Qsci/qsciscintilla.h>

using namespace TestIds;

/// The service by name, its editors, and the profiles that keep the scripts.
class cLuaScriptServiceTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void editorShowsTheScriptOfItsProfile();
    void profileHasOneEditor();
    void editorClosesOnRequest();
    void unknownProfileIsToldToTheUser();
    void textIsKeptOnEachWayOut_data();
    void textIsKeptOnEachWayOut();
    void unchangedTextIsNotWritten();
    void changeFromElsewhereIsFollowed();
    void deletedProfileTakesItsEditorAlong();
    void scriptSurvivesARestart();

    void outputAndEndAreShown();
    void failureIsShownAtItsLine();
    void endlessScriptIsStoppedByTheService();
    void secondScriptIsRefusedWhileOneRuns();
    void failureWithoutAnEditorIsTold();
    void outputThatIsMarkupIsText();
    void scriptOfTenMegabytesIsShownAndNotRun();
    void scriptThatCanNotBeEditedStaysAsItIs();

private:
    ScriptWindow& openEditor(const QString& profileId = P);
    void type(ScriptWindow& window, const QString& text);
    static QPushButton* button(ScriptWindow& window, const QString& text);
    void savePicture(ScriptWindow& window, const QString& name);

    std::unique_ptr<cLuaScriptService> m_scripts;
    QStringList m_told;

private Q_SLOTS:
    void onTold(const QString& text) { m_told.append(text); }
};

void cLuaScriptServiceTest::initTestCase()
{
    TestCase::initTestCase();
    ApplicationLook::apply();
    QDir::setSearchPaths("MainApp", {QStringLiteral(SHARE_FOLDER)});
    QFile sheet(QStringLiteral(SHARE_FOLDER "/Resources/style/veltrano.qss"));
    QVERIFY(sheet.open(QIODevice::ReadOnly));
    qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

void cLuaScriptServiceTest::init()
{
    ProfilesTestCase::init();
    m_told.clear();
    m_scripts = std::make_unique<cLuaScriptService>(QStringLiteral(SCRIPT_RUNNER), service());
    connect(m_scripts.get(), SIGNAL(problem(QString)), this, SLOT(onTold(QString)));
    IServiceMgr::instance()->registerService(m_scripts.get());
    QVERIFY(profiles().addProfile(profile(P, "Pilot")));
    QVERIFY(profiles().addProfile(profile(Q, "Quest")));
}

void cLuaScriptServiceTest::cleanup()
{
    m_scripts.reset();
    ProfilesTestCase::cleanup();
}

ScriptWindow& cLuaScriptServiceTest::openEditor(const QString& profileId)
{
    cLuaScript().showEditor(true, profileId);
    return *m_scripts->editor(profileId);
}

void cLuaScriptServiceTest::type(ScriptWindow& window, const QString& text)
{
    auto* const editor = window.findChild<QsciScintilla*>();
    editor->selectAll();
    editor->replaceSelectedText(text);
}

QPushButton* cLuaScriptServiceTest::button(ScriptWindow& window, const QString& text)
{
    for (QPushButton* each : window.findChildren<QPushButton*>()) {
        if (each->text().remove('&') == text)
            return each;
    }
    qFatal("no button %s", qUtf8Printable(text));
}

void cLuaScriptServiceTest::savePicture(ScriptWindow& window, const QString& name)
{
    QDir().mkpath(QStringLiteral(PICTURES_FOLDER));
    QVERIFY(window.grab().save(QStringLiteral(PICTURES_FOLDER "/") + name));
}

void cLuaScriptServiceTest::editorShowsTheScriptOfItsProfile()
{
    profiles().setProfileScript(P, "-- one\nprint('two')\n");
    ScriptWindow& window = openEditor();
    QVERIFY(window.isVisible());
    QCOMPARE(window.text(), QString("-- one\nprint('two')\n"));
    QCOMPARE(window.windowTitle(), QString("Script of Pilot"));
    QVERIFY(!button(window, "Save")->isEnabled());
    QVERIFY(!button(window, "Stop")->isEnabled());
}

void cLuaScriptServiceTest::profileHasOneEditor()
{
    ScriptWindow& window = openEditor();
    QCOMPARE(&openEditor(P.toLower()), &window);
    QVERIFY(&openEditor(Q) != &window);
}

void cLuaScriptServiceTest::editorClosesOnRequest()
{
    openEditor();
    cLuaScript().showEditor(false, Q);
    QVERIFY(m_scripts->editor(P));
    cLuaScript().showEditor(false, P);
    QTRY_VERIFY(!m_scripts->editor(P));
    openEditor(P);
    openEditor(Q);
    cLuaScript().showEditor(false, QString());
    QVERIFY(!m_scripts->editor(P));
    QVERIFY(!m_scripts->editor(Q));
}

void cLuaScriptServiceTest::unknownProfileIsToldToTheUser()
{
    cLuaScript().showEditor(true, Unknown);
    QCOMPARE(m_told, QStringList({"The script can't be opened: its profile is not there any more."}));
    QVERIFY(!cLuaScript().run(Unknown, "print(1)"));
    QCOMPARE(m_told.size(), 2);
}

void cLuaScriptServiceTest::textIsKeptOnEachWayOut_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Save") << 0;
    QTest::newRow("Run") << 1;
    QTest::newRow("closing the window") << 2;
    QTest::newRow("going to another window") << 3;
    QTest::newRow("end of the application") << 4;
}

void cLuaScriptServiceTest::textIsKeptOnEachWayOut()
{
    QFETCH(int, way);
    ScriptWindow& window = openEditor();
    type(window, "print('kept')");
    QVERIFY(button(window, "Save")->isEnabled());
    QCOMPARE(profiles().getProfileScript(P), QString());
    QEvent deactivation(QEvent::ActivationChange);
    switch (way) {
    case 0:
        QTest::mouseClick(button(window, "Save"), Qt::LeftButton);
        QVERIFY(!button(window, "Save")->isEnabled());
        break;
    case 1:
        QTest::mouseClick(button(window, "Run"), Qt::LeftButton);
        break;
    case 2:
        window.close();
        break;
    case 3: {
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        QTRY_COMPARE(profiles().getProfileScript(P), QString("print('kept')"));
        break;
    }
    default:
        m_scripts->setWindow(nullptr);
    }
    QCOMPARE(profiles().getProfileScript(P), QString("print('kept')"));
}

void cLuaScriptServiceTest::unchangedTextIsNotWritten()
{
    profiles().setProfileScript(P, "print(1)\r\nprint(2)");
    ScriptWindow& window = openEditor();
    events().take();
    QTest::mouseClick(button(window, "Run"), Qt::LeftButton);
    window.close();
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().getProfileScript(P), QString("print(1)\r\nprint(2)"));
}

void cLuaScriptServiceTest::changeFromElsewhereIsFollowed()
{
    ScriptWindow& window = openEditor();
    profiles().setProfileScript(Q, "-- of another");
    QCOMPARE(window.text(), QString());
    profiles().setProfileScript(P, "-- from elsewhere");
    QCOMPARE(window.text(), QString("-- from elsewhere"));
    QVERIFY(!button(window, "Save")->isEnabled());
    type(window, "-- own");
    profiles().setProfileScript(P, "-- from elsewhere again");
    QCOMPARE(window.text(), QString("-- own"));
    cJsonValue renamed = profile(P, "Renamed");
    profiles().editProfileProperty(renamed);
    QCOMPARE(window.windowTitle(), QString("Script of Renamed"));
}

void cLuaScriptServiceTest::deletedProfileTakesItsEditorAlong()
{
    type(openEditor(), "-- lost with its profile");
    openEditor(Q);
    QVERIFY(profiles().deleteProfileByID(P));
    QTRY_VERIFY(!m_scripts->editor(P));
    QVERIFY(m_scripts->editor(Q));
}

void cLuaScriptServiceTest::scriptSurvivesARestart()
{
    const QString script = QString::fromUtf8("-- \u00e4 <b> ]]> &amp;\nprint(\"\\0\")\t");
    type(openEditor(), script);
    m_scripts.reset();
    restart();
    QCOMPARE(profiles().getProfileScript(P), script);
}

void cLuaScriptServiceTest::outputAndEndAreShown()
{
    ScriptWindow& window = openEditor();
    QVERIFY(cLuaScript().run(P, "for i = 1, 3 do print(i, profile.name) end"));
    QVERIFY(m_scripts->isRunning());
    QVERIFY(!button(window, "Run")->isEnabled());
    QVERIFY(button(window, "Stop")->isEnabled());
    QTRY_COMPARE(window.output(), QString("1\tPilot\n2\tPilot\n3\tPilot\nDone.\n"));
    QVERIFY(button(window, "Run")->isEnabled());
    QVERIFY(cLuaScript().run(P, "print('again')"));
    QTRY_COMPARE(window.output(), QString("again\nDone.\n"));
}

void cLuaScriptServiceTest::failureIsShownAtItsLine()
{
    ScriptWindow& window = openEditor();
    type(window,
        "-- Lights the lamp that stands on the left.\nlocal lamp = nil\n\nlocal function light(number)\n"
        "    local colors = {\"red\", 'green', [[blue]]}\n    for i, color in ipairs(colors) do\n"
        "        print(i * 2 + 0x10, color, math.floor(number))\n    end\n    lamp.on = "
        "true\nend\n\nlight(3.5)\n");
    QTest::mouseClick(button(window, "Run"), Qt::LeftButton);
    QTRY_VERIFY(!m_scripts->isRunning());
    QVERIFY2(window.output().endsWith("Line 9: attempt to index a nil value (upvalue 'lamp')\n"),
        qPrintable(window.output()));
    int line = 0;
    int column = 0;
    auto* const editor = window.findChild<QsciScintilla*>();
    editor->getCursorPosition(&line, &column);
    QCOMPARE(line, 8);
    QCOMPARE(editor->markersAtLine(8), 1U << 1);
    savePicture(window, "script-failed.png");
    type(window, "print('mended')");
    QCOMPARE(editor->markerFindNext(0, 1U << 1), -1);
}

void cLuaScriptServiceTest::endlessScriptIsStoppedByTheService()
{
    ScriptWindow& window = openEditor();
    QVERIFY(cLuaScript().run(P, "print('on') while true do end"));
    QTRY_COMPARE(window.output(), QString("on\n"));
    savePicture(window, "script-running.png");
    cLuaScript().stop();
    QTRY_COMPARE(window.output(), QString("on\nStopped.\n"));
    QVERIFY(!m_scripts->isRunning());
    cLuaScript().stop();

    QVERIFY(cLuaScript().run(P, "while true do end"));
    QTest::mouseClick(button(window, "Stop"), Qt::LeftButton);
    QTRY_COMPARE(window.output(), QString("Stopped.\n"));
}

void cLuaScriptServiceTest::secondScriptIsRefusedWhileOneRuns()
{
    ScriptWindow& window = openEditor();
    ScriptWindow& other = openEditor(Q);
    QVERIFY(cLuaScript().run(P, "while true do end"));
    QVERIFY(!button(other, "Run")->isEnabled());
    QVERIFY(button(other, "Stop")->isEnabled());
    QVERIFY(!cLuaScript().run(Q, "print(1)"));
    QCOMPARE(other.output(), QString("The script was not run: another one is running.\n"));
    cLuaScript().stop();
    QTRY_VERIFY(!m_scripts->isRunning());
    QVERIFY(cLuaScript().run(Q, "print(1)"));
    QTRY_VERIFY(other.output().endsWith("1\nDone.\n"));
    QCOMPARE(window.output(), QString("Stopped.\n"));
}

void cLuaScriptServiceTest::failureWithoutAnEditorIsTold()
{
    QVERIFY(cLuaScript().run(P, "print('unseen')\nerror('seen')"));
    QTRY_COMPARE(m_told, QStringList({"The script of Pilot failed. Line 2: seen"}));
    QVERIFY(cLuaScript().run(P, "print('unseen')"));
    QTRY_VERIFY(!m_scripts->isRunning());
    QCOMPARE(m_told.size(), 1);
}

void cLuaScriptServiceTest::outputThatIsMarkupIsText()
{
    ScriptWindow& window = openEditor();
    QVERIFY(cLuaScript().run(P, "print('<b>x</b>') error('<i>y</i>', 0)"));
    QTRY_COMPARE(window.output(), QString("<b>x</b>\n<i>y</i>\n"));
}

void cLuaScriptServiceTest::scriptOfTenMegabytesIsShownAndNotRun()
{
    const QString line = QStringLiteral("print('a line of a script that somebody has made far too long')\n");
    const QString script = line.repeated(10 * 1024 * 1024 / line.size());
    profiles().setProfileScript(P, script);
    QElapsedTimer timer;
    timer.start();
    ScriptWindow& window = openEditor();
    window.grab();
    QVERIFY2(timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(window.text() == script);
    QTest::mouseClick(button(window, "Run"), Qt::LeftButton);
    QCOMPARE(window.output(), QString("The script is too large to be run: it may have 1024 KB.\n"));
    QVERIFY(!m_scripts->isRunning());
    QVERIFY(profiles().saveAllProfiles());
    m_scripts.reset();
    restart();
    QVERIFY(profiles().getProfileScript(P) == script);
}

void cLuaScriptServiceTest::scriptThatCanNotBeEditedStaysAsItIs()
{
    const QString script = QStringLiteral("print(1)") + QChar(0) + QStringLiteral("print(2)");
    profiles().setProfileScript(P, script);
    ScriptWindow& window = openEditor();
    QVERIFY(window.output().contains("can't be edited"));
    QVERIFY(window.findChild<QsciScintilla*>()->isReadOnly());
    window.close();
    QCOMPARE(profiles().getProfileScript(P), script);
}

VELTRANO_TEST_MAIN(cLuaScriptServiceTest)
#include "cLuaScriptServiceTest.moc"
