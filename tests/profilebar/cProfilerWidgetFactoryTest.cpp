#include "ProfileHost.h"

#include <cProfileBar.h>
#include <cProfileBarImpl.h>
#include <cProfileList.h>
#include <cProfilerWidgetFactory.h>
#include <cServiceClient.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QFrame>
#include <QGraphicsItem>

#include <memory>

namespace {

/// A bar as another module has it. It is never given back in earnest; here it is taken apart.
class Module
{
    Q_DISABLE_COPY(Module)

public:
    explicit Module(cProfilerWidgetFactory& factory)
        : bar(factory.getProfileBar())
        , list(bar->profileList())
        , item(bar->graphicsItem())
    { }
    ~Module() { delete static_cast<cProfileBarImpl*>(bar); }

    IProfileBar* const bar;
    std::unique_ptr<QListWidget> list;
    const std::unique_ptr<QGraphicsItem> item;
};

} // namespace

/// The service that hands out profile bars.
class cProfilerWidgetFactoryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void classInformation();
    void hostFindsItByName();
    void barIsFilledAndPlain();
    void operationsReachBarAndList();
    void dropsSetTheModeWhateverIsAsked();
    void twoBarsAreIndependent();
    void addedProfileComesToBothBars();
    void listMayGoBeforeTheBar();
};

void cProfilerWidgetFactoryTest::classInformation()
{
    const auto info = [](const QMetaObject& meta, const char* name) {
        return QByteArray(meta.classInfo(meta.indexOfClassInfo(name)).value());
    };
    QCOMPARE(info(IProfilerWidgetFactory::staticMetaObject, "version"), QByteArray("1"));
    QCOMPARE(info(cProfilerWidgetFactory::staticMetaObject, "service"), QByteArray("ProfilerWidgetFactory"));
}

void cProfilerWidgetFactoryTest::hostFindsItByName()
{
    ProfileHost on({"Default"});
    cProfilerWidgetFactory factory;
    on.host.registerService(&factory);
    IProfileBar* bar = nullptr;
    QVERIFY(IServiceMgr::instance()->invoke(
        "ProfilerWidgetFactory", "getProfileBar", Q_RETURN_ARG(IProfileBar*, bar)));
    QVERIFY(bar);
    const std::unique_ptr<QListWidget> list(bar->profileList());
    const std::unique_ptr<QGraphicsItem> item(bar->graphicsItem());
    QCOMPARE(list->count(), 1);
    delete static_cast<cProfileBarImpl*>(bar);
    on.host.unregisterService(&factory);
}

void cProfilerWidgetFactoryTest::barIsFilledAndPlain()
{
    ProfileHost on({"Alpha", "Default"});
    cProfilerWidgetFactory factory;
    const Module module(factory);
    QCOMPARE(module.item->boundingRect(), QRectF(0, 0, 593, 98));
    QVERIFY(!module.item->parentItem());
    QVERIFY(!module.list->parentWidget());
    QCOMPARE(module.list->count(), 2);
    QCOMPARE(module.bar->currentProfileId(), ProfileHost::idOf("Default"));
    QCOMPARE(module.bar->selectedProfileIds(), QStringList(ProfileHost::idOf("Default")));
}

void cProfilerWidgetFactoryTest::operationsReachBarAndList()
{
    ProfileHost on({"Alpha", "Default"});
    cProfilerWidgetFactory factory;
    const Module module(factory);
    static_cast<cProfileList*>(module.list.get())->selectProfile("{Alpha}");
    QCOMPARE(module.bar->currentProfileId(), QString("{Alpha}"));
    QCOMPARE(module.bar->selectedProfileIds(), QStringList("{Alpha}"));
    const cJsonValue record = on.put("Beta", "device-1").record();
    QVERIFY(module.bar->addProfile(record));
    QCOMPARE(module.list->count(), 3);
    QVERIFY(module.bar->setDeviceFilter("device-1"));
    QVERIFY(module.list->item(1)->isHidden());
    QVERIFY(module.bar->setButtons({1}));
    QVERIFY(!module.list->hasMouseTracking());
    QVERIFY(module.bar->setMenuOptions({0}));
    module.bar->setTileDragEnabled(true);
    const std::unique_ptr<QFrame> frame(module.bar->searchFrame());
    QVERIFY(frame);
}

void cProfilerWidgetFactoryTest::dropsSetTheModeWhateverIsAsked()
{
    ProfileHost on({"Default"});
    cProfilerWidgetFactory factory;
    for (const bool enabled : {true, false}) {
        const Module module(factory);
        module.bar->setDropsEnabled(enabled);
        QCOMPARE(module.list->dragDropMode(), QAbstractItemView::InternalMove);
        // By which it takes drops again.
        QVERIFY(module.list->acceptDrops());
    }
}

void cProfilerWidgetFactoryTest::twoBarsAreIndependent()
{
    ProfileHost on({"Alpha", "Beta", "Default"});
    cProfilerWidgetFactory factory;
    const Module one(factory);
    const Module other(factory);
    QVERIFY(one.bar != other.bar);
    QVERIFY(one.item != other.item);
    QVERIFY(one.list != other.list);
    const QStringList log = on.host.takeLog();
    QCOMPARE(log.filter("subscribe ProfileMgr_Events").size(), 4);
    QCOMPARE(log.filter(" profiles()").size(), 2);
    static_cast<cProfileList*>(one.list.get())->selectProfile("{Alpha}");
    QCOMPARE(one.bar->currentProfileId(), QString("{Alpha}"));
    QCOMPARE(other.bar->currentProfileId(), ProfileHost::idOf("Default"));
    // They overwrite each other's setting.
    QCOMPARE(on.settings["profiler/lastProfile"], QString("{Alpha}"));
    static_cast<cProfileList*>(other.list.get())->selectProfile("{Beta}");
    QCOMPARE(on.settings["profiler/lastProfile"], QString("{Beta}"));
    QCOMPARE(one.bar->selectedProfileIds(), QStringList("{Alpha}"));
    // What is deleted in one goes from the other as well, which finds itself another current profile.
    one.list->setCurrentItem(one.list->item(1));
    static_cast<cProfileList*>(one.list.get())->deleteSelectedProfiles();
    QCOMPARE(one.list->count(), 2);
    QCOMPARE(other.list->count(), 2);
    QTRY_COMPARE(one.bar->selectedProfileIds(), QStringList(ProfileHost::idOf("Default")));
    QTRY_COMPARE(other.bar->selectedProfileIds(), QStringList(ProfileHost::idOf("Default")));
}

void cProfilerWidgetFactoryTest::addedProfileComesToBothBars()
{
    ProfileHost on({"Default"});
    cProfilerWidgetFactory factory;
    const Module one(factory);
    const Module other(factory);
    on.add("Alpha");
    QCOMPARE(one.bar->selectedProfileIds(), QStringList("{Alpha}"));
    QCOMPARE(other.bar->selectedProfileIds(), QStringList("{Alpha}"));
}

void cProfilerWidgetFactoryTest::listMayGoBeforeTheBar()
{
    ProfileHost on({"Alpha", "Default"});
    cProfilerWidgetFactory factory;
    Module module(factory);
    module.list.reset();
    QVERIFY(!module.bar->profileList());
    QVERIFY(module.bar->addProfile(on.put("Beta").record()));
    QVERIFY(module.bar->setDeviceFilter("device-1"));
    module.bar->setTileDragEnabled(true);
    module.bar->setDropsEnabled(true);
    QVERIFY(module.bar->selectedProfileIds().isEmpty());
    QCOMPARE(module.bar->currentProfileId(), ProfileHost::idOf("Default"));
    QVERIFY(module.bar->setButtons({0, 1, 2}));
    QVERIFY(!module.bar->setMenuOptions({0}));
}

VELTRANO_TEST_MAIN(cProfilerWidgetFactoryTest)
#include "cProfilerWidgetFactoryTest.moc"
