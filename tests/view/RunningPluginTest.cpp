#include "DeviceHost.h"

#include <FakePluginHost.h>
#include <FixedIds.h>
#include <IFeatureView.h>
#include <IPlugin.h>
#include <TestCase.h>

#include <QFrame>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLibrary>
#include <QListWidget>
#include <QPointer>
#include <QScopedPointer>

namespace {

const char* const Device = R"(
<mstates><mstate id="M1"/><mstate id="M2"/></mstates>
<controls>
  <control id="G1"><points><point x="400" y="200"/><point x="440" y="230"/></points></control>
  <control id="G2"><points><point x="500" y="200"/><point x="540" y="230"/></points></control>
</controls>)";

/// Two profiles; "{A}" is the last used one. The device stands in its second mode.
class Host : public DeviceHost
{
public:
    Host()
    {
        setManifest(makeManifest(Device));
        mode = MKey::M2;
        cJsonValue profiles;
        for (const char* id : {"{A}", "{B}"}) {
            cJsonValue profile;
            profile["uid"] = id;
            profile["name"] = id;
            profiles.append(profile);
            categories[id] = QStringList(category());
        }
        host.answer("profiles", profiles);
        host.answer("getPropertyString", "{A}");
        host.answer("getMacroTypeByID",
            [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({"key"})); });
        putMacro("{A}", makeMacro("{1}", "Jump"));
        assign("{A}", "G1", "{1}", MKey::M1);
        assign("{A}", "G2", "{1}", MKey::M2);
        putMacro("{B}", makeMacro("{2}", "Run"));
        assign("{B}", "G1", "{2}", MKey::M2);
    }
};

} // namespace

/// The plug-in from its library on the disk, as its host leads it: started, its view opened on a canvas, a
/// profile switched, the view closed, the plug-in stopped. A plug-in starts once in the life of its library,
/// so the cases share it; each opens the view for itself.
class RunningPluginTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void viewIsOpenedInOrder();
    void profileSwitchReachesTheLabelsBeforeTheList();
    void viewIsClosedInOrderAndThePanesFollow();

private:
    /// All items of that class, which lives in the library.
    QList<QGraphicsItem*> items(const char* type) const;
    QListWidget* commandList() const;
    int commandCount() const;
    bool beginToOpen();
    bool open();

    QScopedPointer<Host> m_host;
    QScopedPointer<FakePluginHost> m_pluginHost;
    QLibrary m_library {QStringLiteral(VELTRANO_PLUGIN_FILE)};
    IPlugin* m_plugin = nullptr;
    IFeatureView* m_view = nullptr;
    QScopedPointer<QGraphicsScene> m_scene;
    QScopedPointer<QGraphicsView> m_canvas;
};

void RunningPluginTest::initTestCase()
{
    TestCase::initTestCase();
    m_host.reset(new Host);
    m_pluginHost.reset(new FakePluginHost(m_host->host));
    QVERIFY2(m_library.load(), qPrintable(m_library.errorString()));
    const auto entryPoint = reinterpret_cast<PluginEntryPoint>(m_library.resolve("entrypoint"));
    QVERIFY(entryPoint);
    m_plugin = entryPoint();
    m_host->host.answer("registerView", [this](const RecordedCall& call) {
        // Not by a cast of Qt, which would look for the class of the test.
        m_view = *static_cast<IFeatureView* const*>(call.values.constFirst().constData());
        return QVariant(true);
    });
    m_host->host.clear();
    QVERIFY(m_plugin->init(m_pluginHost.data()));
    QCOMPARE(m_host->host.takeLog(), expectedInitLog());
    QVERIFY(m_view);
}

void RunningPluginTest::cleanupTestCase()
{
    m_host->host.clear();
    m_plugin->deinit(m_pluginHost.data());
    // The view was open before; what it leaves behind it leaves once more.
    QStringList expected = expectedDeinitLog(m_pluginHost->helpFolder());
    const int scene = expected.indexOf("unsubscribe MainUI_Events");
    for (const char* source :
        {"ProfilesToGo_Events", "DevMgr_Events", "Profiler_Events", "ProfileMgr_Events"})
        expected.insert(scene, QStringLiteral("unsubscribe ") + source);
    QCOMPARE(m_host->host.takeLog(), expected);
    QVERIFY2(m_library.unload(), qPrintable(m_library.errorString()));
    m_pluginHost.reset();
    m_host.reset();
    TestCase::cleanupTestCase();
}

void RunningPluginTest::init()
{
    m_scene.reset(new QGraphicsScene);
    m_canvas.reset(new QGraphicsView(m_scene.data()));
    m_canvas->setSceneRect(0, 0, 980, 620);
    m_host->host.clear();
}

void RunningPluginTest::cleanup()
{
    m_view->deinit(cJsonValue(), nullptr);
    QTRY_VERIFY(m_scene->items().isEmpty());
    // The host's canvas and scene are still there.
    m_canvas.reset();
    m_scene.reset();
}

QList<QGraphicsItem*> RunningPluginTest::items(const char* type) const
{
    QList<QGraphicsItem*> found;
    for (QGraphicsItem* item : m_scene->items(Qt::AscendingOrder)) {
        const auto* const object = dynamic_cast<const QObject*>(item);
        if (object && object->inherits(type))
            found.append(item);
    }
    return found;
}

QListWidget* RunningPluginTest::commandList() const
{
    for (QListWidget* list : m_canvas->findChildren<QListWidget*>()) {
        if (list->inherits("cMacroList"))
            return list;
    }
    return nullptr;
}

int RunningPluginTest::commandCount() const
{
    const QListWidget* const list = commandList();
    return list ? list->count() : -1;
}

bool RunningPluginTest::beginToOpen()
{
    cJsonValue info;
    info["device_model"] = "Model";
    return m_view->init(info, m_canvas.data());
}

bool RunningPluginTest::open()
{
    return beginToOpen() && QTest::qWaitFor([this] { return items("cPanel").size() == 2; })
        && (m_host->host.publishDeviceTransformEnd(), m_host->host.clear(), true);
}

void RunningPluginTest::viewIsOpenedInOrder()
{
    QVERIFY(beginToOpen());
    const QStringList begin = m_host->takeBriefLog();
    QCOMPARE(
        begin.mid(0, 3), QStringList({"metaData(\"Model\")", "subscribe MainUI on", "subscribe MainApp on"}));
    QCOMPARE(begin.size(), 4);
    QVERIFY(
        begin[3].startsWith("publish MainUI DeviceTransformBegin(cJsonValue {\"device_model\":\"Model\","));
    // The scene waits for the end of the transform; the panes do not.
    QCOMPARE(m_scene->items().size(), 1);
    QTRY_COMPARE(items("cPanel").size(), 2);
    QVERIFY(items("Gkey").isEmpty());
    QCOMPARE(m_host->takeBriefLog(), QStringList({"subscribe MainUI on", "subscribe MainUI on"}));
    // Activation has no part in it.
    QVERIFY(m_view->activate(cJsonValue()));
    QVERIFY(m_view->deactivate(cJsonValue()));
    QCOMPARE(m_host->takeBriefLog(), QStringList());

    m_host->host.publishDeviceTransformEnd();
    QCOMPARE(m_host->takeBriefLog(),
        QStringList({"subscribe ProfileMgr on", "subscribe Profiler on", "subscribe DevMgr on",
            "subscribe ProfilesToGo on", R"(getMState("pad"))",
            // The list of commands.
            "subscribe Profiler on", "subscribe ProfileMgr on",
            // The list of profiles, which selects the last used one.
            "subscribe ProfileMgr on", "profiles()", R"(profileIcon("{A}"))", R"(getProfileDeviceId("{A}"))",
            R"(profileIcon("{B}"))", R"(getProfileDeviceId("{B}"))",
            QString(R"(getPropertyString("profiler/lastProfile", "%1"))").arg(FixedIds::DefaultProfile),
            // That comes back to the view, which draws the labels of the mode, and then to the commands.
            R"(publish Profiler ProfileSelectionChanging("{A}"))", R"(macros("{A}"))",
            R"(getAssignment("{A}", "pad", 1, "G1"))", R"(getAssignment("{A}", "pad", 1, "G2"))",
            R"(getMacroByID("{A}", "{1}"))", R"(getMacroByID("{A}", "{1}"))",
            R"(containsDevCategory("{A}", "pad"))", R"(getProfileDeviceId("{A}"))",
            R"(publish Profiler ProfileSelectionChanged("{A}"))", R"(macros("{A}"))",
            R"(setPropertyString("profiler/lastProfile", "{A}"))",
            // The bar around the list.
            "subscribe ProfileMgr on",
            // The modes, the scan and the end.
            "inForeground()", "mKeyToString(1)", R"(getPropertyBool("profiler/autoScannedForGames", false))",
            "raiseDeviceBar()"}));
    QCOMPARE(items("Gkey").size(), 2);
    QCOMPARE(items("MagnetTextItem").size(), 1);
    // The bar came into its pane.
    QCOMPARE(items("cProfileBar").size(), 1);
    QVERIFY(items("cPanel").contains(items("cProfileBar").constFirst()->parentItem()));
}

void RunningPluginTest::profileSwitchReachesTheLabelsBeforeTheList()
{
    QVERIFY(open());
    QTRY_COMPARE(commandCount(), 1);
    m_host->host.clear();
    // Whoever has asked for it: what the bar hears it publishes as the pair that the others act on.
    m_host->host.publishCurrentProfileSwitched("{B}");
    QCOMPARE(m_host->takeBriefLog(),
        QStringList({R"(publish Profiler ProfileSelectionChanging("{B}"))",
            // The old label goes, and its key is told.
            R"(getMacroByID("{B}", ""))", R"(macros("{B}"))", R"(getAssignment("{B}", "pad", 1, "G1"))",
            R"(getMacroByID("{B}", "{2}"))", R"(getMacroByID("{B}", "{2}"))",
            R"(getAssignment("{B}", "pad", 1, "G2"))", R"(containsDevCategory("{B}", "pad"))",
            R"(getProfileDeviceId("{B}"))", R"(publish Profiler ProfileSelectionChanged("{B}"))",
            R"(macros("{B}"))"}));
    QTRY_COMPARE(commandCount(), 1);
}

void RunningPluginTest::viewIsClosedInOrderAndThePanesFollow()
{
    QVERIFY(open());
    const QPointer<QWidget> list = commandList();
    QVERIFY(list);
    m_host->host.clear();
    QVERIFY(m_view->deinit(cJsonValue(), nullptr));
    QCOMPARE(m_host->takeBriefLog(),
        QStringList({// The label's key is told.
            R"(getMacroByID("{A}", ""))",
            // The list of commands, then that of profiles.
            "unsubscribe Profiler", "unsubscribe ProfileMgr", "unsubscribe ProfileMgr",
            // The view.
            "unsubscribe ProfileMgr", "unsubscribe Profiler", "unsubscribe DevMgr",
            "unsubscribe ProfilesToGo", "unsubscribe MainUI", "unsubscribe MainApp"}));
    QVERIFY(!list);
    QVERIFY(m_canvas->findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
    // The panes with the bar and the mask slide out.
    QCOMPARE(items("cPanel").size(), 2);
    QCOMPARE(items("cProfileBar").size(), 1);
    QVERIFY(items("Gkey").isEmpty());
    QTRY_VERIFY(m_scene->items().isEmpty());
    QCOMPARE(m_host->takeBriefLog(),
        QStringList({"unsubscribe MainUI", "unsubscribe MainUI", "unsubscribe ProfileMgr"}));
}

VELTRANO_TEST_MAIN(RunningPluginTest)
#include "RunningPluginTest.moc"
