#include "VirtualOffset.h"

#include <cProfilerWidgetFactory.h>
#include <IFeatureView.h>
#include <IMacroEditor.h>
#include <IMacroType.h>
#include <IPlugin.h>
#include <IPluginHost.h>
#include <IProfileBar.h>
#include <IServiceMgr.h>
#include <TestCase.h>

#include <QMetaClassInfo>
#include <QMetaMethod>

#include <type_traits>
#include <vector>

namespace {

using Offsets = std::vector<std::ptrdiff_t>;

/// The offsets of as many virtual functions that stand one behind the other from `first` on.
Offsets consecutive(std::ptrdiff_t first, std::size_t count)
{
    Offsets offsets;
    for (std::size_t i = 0; i < count; ++i)
        offsets.push_back(first + std::ptrdiff_t(i * sizeof(void*)));
    return offsets;
}

template<typename... Members>
Offsets offsetsOf(Members... members)
{
    return {virtualOffset(members)...};
}

/// Class information "key=value" of the class itself, without that of its base.
QStringList ownClassInfo(const QMetaObject& type)
{
    QStringList texts;
    for (int i = type.classInfoOffset(); i < type.classInfoCount(); ++i) {
        texts.append(QStringLiteral("%1=%2").arg(
            QLatin1String(type.classInfo(i).name()), QLatin1String(type.classInfo(i).value())));
    }
    return texts;
}

} // namespace

/// The interfaces that are called directly, through their tables of virtual functions.
class InterfacesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void featureViewHasItsVersion();
    void pluginInterfacesHaveNoVirtualDestructor();
    void virtualFunctionsStandInOrder();
    void widgetFactoryIsAServiceWithOneOperation();
};

void InterfacesTest::featureViewHasItsVersion()
{
    const QMetaObject& view = IFeatureView::staticMetaObject;
    QCOMPARE(view.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ownClassInfo(view), QStringList({"version=1"}));
    // The host calls a view directly; nothing of the interface can be called by name.
    QCOMPARE(view.methodCount(), QObject::staticMetaObject.methodCount());
}

void InterfacesTest::pluginInterfacesHaveNoVirtualDestructor()
{
    QVERIFY(!std::has_virtual_destructor_v<IPlugin>);
    QVERIFY(!std::has_virtual_destructor_v<IPluginHost>);
    QVERIFY(!std::has_virtual_destructor_v<IServiceMgr>);
    // The caller keeps its bar.
    QVERIFY(!std::has_virtual_destructor_v<IProfileBar>);
}

void InterfacesTest::virtualFunctionsStandInOrder()
{
#ifndef Q_PROCESSOR_X86_64
    QSKIP("pointers to members have another form here");
#endif
    QCOMPARE(offsetsOf(&IPlugin::init, &IPlugin::deinit), consecutive(0, 2));
    QCOMPARE(offsetsOf(&IPluginHost::serviceMgr, &IPluginHost::pluginAlias, &IPluginHost::pluginFolder,
                 &IPluginHost::log),
        consecutive(0, 4));

    using Arg = QGenericArgument;
    using Invoke = bool (IServiceMgr::*)(
        const QString&, const QString&, Arg, Arg, Arg, Arg, Arg, Arg, Arg, Arg, Arg, Arg);
    using InvokeWithResult = bool (IServiceMgr::*)(const QString&, const QString&, QGenericReturnArgument,
        Arg, Arg, Arg, Arg, Arg, Arg, Arg, Arg, Arg, Arg);
    QCOMPARE(offsetsOf(&IServiceMgr::requireService, &IServiceMgr::hasService, &IServiceMgr::registerService,
                 &IServiceMgr::unregisterService, Invoke(&IServiceMgr::invoke),
                 InvokeWithResult(&IServiceMgr::invoke), &IServiceMgr::subscribe, &IServiceMgr::unsubscribe,
                 &IServiceMgr::publish),
        consecutive(0, 9));

    QCOMPARE(
        offsetsOf(&IProfileBar::graphicsItem, &IProfileBar::profileList, &IProfileBar::addProfile,
            &IProfileBar::setDeviceFilter, &IProfileBar::setTileDragEnabled, &IProfileBar::setDropsEnabled,
            &IProfileBar::selectedProfileIds, &IProfileBar::currentProfileId, &IProfileBar::setButtons,
            &IProfileBar::setMenuOptions, &IProfileBar::searchFrame),
        consecutive(0, 11));

    // Those that derive from a class of Qt begin behind its functions.
    QCOMPARE(offsetsOf(&IFeatureView::init, &IFeatureView::deinit, &IFeatureView::activate,
                 &IFeatureView::deactivate, &IFeatureView::viewInfo),
        consecutive(virtualOffset(&IFeatureView::init), 5));
    QCOMPARE(offsetsOf(&IMacroType::info, &IMacroType::editor, &IMacroType::XmlToJson, &IMacroType::JsonToXml,
                 &IMacroType::createPlayState, &IMacroType::isRepeatable, &IMacroType::isPrivate,
                 &IMacroType::isFixedName, &IMacroType::getPriority),
        consecutive(virtualOffset(&IMacroType::info), 9));
    QCOMPARE(offsetsOf(&IMacroEditor::data, &IMacroEditor::getMacroTypeID, &IMacroEditor::showMacroName,
                 &IMacroEditor::defaultMacroName, &IMacroEditor::setMacroName, &IMacroEditor::onOK,
                 &IMacroEditor::onCancel, &IMacroEditor::onHelp, &IMacroEditor::onClearForm,
                 &IMacroEditor::canAddMacro),
        consecutive(virtualOffset(&IMacroEditor::data), 10));
}

void InterfacesTest::widgetFactoryIsAServiceWithOneOperation()
{
    const QMetaObject& factory = cProfilerWidgetFactory::staticMetaObject;
    QCOMPARE(factory.classInfo(factory.indexOfClassInfo("service")).value(), "ProfilerWidgetFactory");
    QCOMPARE(factory.classInfo(factory.indexOfClassInfo("version")).value(), "1");
    QCOMPARE(factory.methodCount(), QObject::staticMetaObject.methodCount() + 1);
    const QMetaMethod operation = factory.method(factory.indexOfMethod("getProfileBar()"));
    QCOMPARE(operation.methodType(), QMetaMethod::Method);
    QCOMPARE(operation.typeName(), "IProfileBar*");
}

VELTRANO_TEST_MAIN(InterfacesTest)
#include "InterfacesTest.moc"
