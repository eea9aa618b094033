#include <cMacroBindingView.h>
#include <EventNames.h>
#include <HVS.h>
#include <JsonText.h>
#include <MethodText.h>
#include <PluginFolder.h>
#include <RecordingHost.h>
#include <TestCase.h>

#include <QMetaClassInfo>
#include <QMetaMethod>
#include <QTemporaryDir>
#include <QTranslator>

#include <memory>

namespace {

/// Translates each text of one context to its context's name.
class ContextTranslator : public QTranslator
{
    Q_OBJECT

public:
    QString translate(const char* context, const char*, const char*, int) const override
    {
        return QString::fromLatin1(context);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class cMacroBindingViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsSlotsInOrder();
    void inheritsTheVersion();
    void handlersBearTheNamesOfTheirEvents_data();
    void handlersBearTheNamesOfTheirEvents();
    void constructionSubscribesAndShowsTheViewToScripts();
    void startsWithNothingShown();
    void destructionTakesItsHelpAway();
    void viewInfoNamesIconsByAbsolutePaths();
    void tooltipIsTranslatedInTheContextOfTheView();
    void helpIsRegisteredInRoundTenOnly_data();
    void helpIsRegisteredInRoundTenOnly();
    void accessorMakesOneView();
};

void cMacroBindingViewTest::hasItsSlotsInOrder()
{
    const QMetaObject& type = cMacroBindingView::staticMetaObject;
    QStringList found;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.typeName(), "void");
        const char* access = method.access() == QMetaMethod::Public ? "public " : "protected ";
        QVERIFY(method.access() != QMetaMethod::Private);
        found.append(access + methodText(method));
    }
    const QStringList expected {
        "public newCommand()",
        "public newProfile()",
        "public scanForGames()",
        "public selectProfile(QString profileID)",
        "public testProfile()",
        "public deleteSelectedProfiles()",
        // Qt resolves the alias qreal here and quint32 below.
        "protected onFade(double value)",
        "protected loadMacroEditor(cJsonValue macro)",
        "protected onSortIconClicked(QPoint point)",
        "protected sortMacroNameAscending()",
        "protected sortMacroNameDescending()",
        "protected sortMacroType()",
        "protected setAssignment(QString macroID, QString contextID)",
        "protected SwitchMState(QString MStateID)",
        "protected highlightAssignment(cJsonValue macro)",
        "protected unHighlightAssignment(cJsonValue macro)",
        "protected onEditAssignment(QString contextID)",
        "protected onUseGenericAssignment(QString contextID)",
        "protected onUnassignAssignment(QString contextID)",
        "protected onUseGenericForAllGkeys(QString profileID)",
        "protected onUnassignAllGkeys(QString profileID)",
        "protected onPrintProfile(QString profileID)",
        "protected onShowTooltip(QPointF pt, QString tip)",
        "protected onAutoScanForGames()",
        "protected onStartGkeyPulsate(cJsonValue macro)",
        "protected onAssignmentStartPulsate(QString macroID)",
        "protected onStopGkeyPulsate()",
        "protected onStartMkeyPulsate()",
        "protected onStopMkeyPulsate()",
        "protected onPaneAndMaskEnterAnimation()",
        "protected onPaneAndMaskExitAnimation()",
        "protected onPaneAndMaskAnimationExitFinished()",
        "protected onForceProfilesToGoSync()",
        "protected onUseDefaultForAllGkeys(QString profileID)",
        "protected onUseDefaultAssignment(QString contextID)",
        "protected deleteProfiles(QStringList profiles)",
        "protected deleteMacros(QStringList macros)",
        "protected deleteAssignments(QStringList contextIds)",
        "protected onmacroAdded(QString profileID, cJsonValue macro)",
        "protected onmacroDeleted(QString profileID, cJsonValue macro)",
        "protected onmacroChanged(QString profileID, cJsonValue macro)",
        "protected onMacroAssigned(QString profileID, QString deviceModel, QString macroID, MKey::MKey_t "
        "mode, QString contextID)",
        "protected onAssignmentRemoved(QString profileID, QString deviceModel, MKey::MKey_t mode, QString "
        "contextID, QString macroID)",
        "protected onMacroEditorClosed(QString macroID)",
        "protected onDeviceTransformEnd()",
        "protected onProfileSelectionChanging(QString profileID)",
        "protected onMStateChanged(MKey::MKey_t mkeyState, QString category)",
        "protected onProfilePropertyChanged(QString profileId)",
        "protected onRegisterHelpProvider(int index)",
        "protected onForegroundAppChange(QString appPath, uint processId)",
        "protected onMainWindowClosing()",
        "protected onPopulatingMacros()",
        "protected onPopulatedMacros()",
        "protected onProfilesToGoDeviceBusy(QString deviceName, QString deviceId)",
        "protected onProfilesToGoDeviceIdle(QString deviceId)",
    };
    QCOMPARE(expected.size(), 55);
    QCOMPARE(found, expected);
    QVERIFY(type.indexOfSlot("onFade(qreal)") >= 0);
    QVERIFY(type.indexOfSlot("onForegroundAppChange(QString,quint32)") >= 0);
}

void cMacroBindingViewTest::inheritsTheVersion()
{
    const QMetaObject& type = cMacroBindingView::staticMetaObject;
    QCOMPARE(type.superClass(), &IFeatureView::staticMetaObject);
    QCOMPARE(type.classInfoCount(), 1);
    QCOMPARE(type.classInfo(0).name(), "version");
    QCOMPARE(type.classInfo(0).value(), "1");
}

void cMacroBindingViewTest::handlersBearTheNamesOfTheirEvents_data()
{
    QTest::addColumn<QString>("event");
    const auto row = [](QLatin1String event, const char* handler) {
        QTest::newRow(handler) << QString(event);
    };
    row(Events::ProfilePropertyChanged, "onProfilePropertyChanged(QString)");
    row(Events::MacroAdded, "onmacroAdded(QString,cJsonValue)");
    row(Events::MacroDeleted, "onmacroDeleted(QString,cJsonValue)");
    row(Events::MacroChanged, "onmacroChanged(QString,cJsonValue)");
    row(Events::MacroAssigned, "onMacroAssigned(QString,QString,QString,MKey::MKey_t,QString)");
    row(Events::AssignmentRemoved, "onAssignmentRemoved(QString,QString,MKey::MKey_t,QString,QString)");
    row(Events::ProfileSelectionChanging, "onProfileSelectionChanging(QString)");
    row(Events::MStateChanged, "onMStateChanged(MKey::MKey_t,QString)");
    row(Events::DeviceTransformEnd, "onDeviceTransformEnd()");
    row(Events::ForegroundAppChange, "onForegroundAppChange(QString,quint32)");
    row(Events::MainWindowClosing, "onMainWindowClosing()");
    row(Events::ProfilesToGoDeviceBusy, "onProfilesToGoDeviceBusy(QString,QString)");
    row(Events::ProfilesToGoDeviceIdle, "onProfilesToGoDeviceIdle(QString)");
    row(Events::RegisterHelpProvider, "onRegisterHelpProvider(int)");
}

void cMacroBindingViewTest::handlersBearTheNamesOfTheirEvents()
{
    // A handler of another name would be passed over without a word.
    QFETCH(QString, event);
    const QByteArray handler = QTest::currentDataTag();
    QCOMPARE(QString::fromLatin1(handler.left(handler.indexOf('('))), Events::HandlerPrefix + event);
    QVERIFY(cMacroBindingView::staticMetaObject.indexOfSlot(handler) >= 0);
}

void cMacroBindingViewTest::constructionSubscribesAndShowsTheViewToScripts()
{
    RecordingHost host;
    const cMacroBindingView view;
    QCOMPARE(host.takeLog(),
        QStringList({"subscribe HelpMgrEvent on", "require ECMAScript.ECMAScriptMgr 1",
            "ECMAScript.ECMAScriptMgr newObject(QObject * cMacroBindingView, const QString "
            "\"MacroBindingView\")"}));
    QCOMPARE(host.calls().constFirst().values.constFirst().value<QObject*>(), &view);
    QCOMPARE(view.parent(), nullptr);
}

void cMacroBindingViewTest::startsWithNothingShown()
{
    RecordingHost host;
    const cMacroBindingView view;
    QCOMPARE(view.getDeviceCategory(), QString());
    QCOMPARE(view.getProfileId(), QString());
    QCOMPARE(view.getControlIds(), QStringList());
    QCOMPARE(int(view.getCurrentMState()), 0);
}

void cMacroBindingViewTest::destructionTakesItsHelpAway()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("Help"));
    const PluginFolder mounted(folder.path());
    RecordingHost host;
    auto view = std::make_unique<cMacroBindingView>();
    host.clear();
    view.reset();
    QCOMPARE(host.takeLog(),
        QStringList({"unsubscribe HelpMgrEvent", "require Help.HelpMgr 1",
            "Help.HelpMgr unRegisterHelp(QString \"" + folder.filePath("Help") + "\") -> bool",
            "unsubscribe MainUI_Events", "unsubscribe MainApp_Events"}));
    // Nobody is left to answer.
    host.publishRegisterHelpProvider(10);
    QCOMPARE(host.takeLog(), QStringList());
}

void cMacroBindingViewTest::viewInfoNamesIconsByAbsolutePaths()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("Resources/images"));
    const PluginFolder mounted(folder.path(), "AnyAlias");
    RecordingHost host;
    cMacroBindingView view;
    host.clear();
    const cJsonValue info = view.viewInfo();
    QCOMPARE(HVS::jsonKeys(info),
        QStringList({"icon_hover_path", "icon_off_path", "icon_on_path", "tooltip", "view_id"}));
    QCOMPARE(info["view_id"].toString(), QString("macrobinding_view"));
    QCOMPARE(info["tooltip"].toString(), QString("Customize G-keys"));
    const QDir images(folder.filePath("Resources/images"));
    QCOMPARE(info["icon_on_path"].toString(), images.filePath("gkey_on.png"));
    QCOMPARE(info["icon_off_path"].toString(), images.filePath("gkey_off.png"));
    QCOMPARE(info["icon_hover_path"].toString(), images.filePath("gkey_hover.png"));
    QCOMPARE(host.takeLog(), QStringList());
}

void cMacroBindingViewTest::tooltipIsTranslatedInTheContextOfTheView()
{
    RecordingHost host;
    cMacroBindingView view;
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(view.viewInfo()["tooltip"].toString(), QString("cMacroBindingView"));
    QCoreApplication::removeTranslator(&translator);
}

void cMacroBindingViewTest::helpIsRegisteredInRoundTenOnly_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("answers");
    for (int index : {-10, 0, 1, 9, 11, 100})
        QTest::newRow(qPrintable(QString::number(index))) << index << false;
    QTest::newRow("10") << 10 << true;
}

void cMacroBindingViewTest::helpIsRegisteredInRoundTenOnly()
{
    QFETCH(int, index);
    QFETCH(bool, answers);
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("Help"));
    const PluginFolder mounted(folder.path());
    RecordingHost host;
    const cMacroBindingView view;
    host.clear();
    host.publishRegisterHelpProvider(index);
    const QString locale = HVS::currentLocaleLanguage() + "_" + HVS::currentLocaleCountry();
    const QStringList expected {"require Help.HelpMgr 1",
        "Help.HelpMgr registerHelp(QString \"macrobinding_view\", QString "
        "\"qthelp://com.veltrano.profile/doc/"
            + locale + "/customizing_gkeys.htm\", QString \"" + folder.filePath("Help") + "\") -> bool"};
    QCOMPARE(host.takeLog(), answers ? expected : QStringList());
}

void cMacroBindingViewTest::accessorMakesOneView()
{
    RecordingHost host;
    const std::unique_ptr<cMacroBindingView> view(cMacroBindingView::instance());
    QVERIFY(view);
    QCOMPARE(cMacroBindingView::instance(), view.get());
    // One construction.
    QCOMPARE(host.calls().size(), 1);
}

VELTRANO_TEST_MAIN(cMacroBindingViewTest)
#include "cMacroBindingViewTest.moc"
