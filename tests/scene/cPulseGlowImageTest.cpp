#include <cPulseGlowImage.h>
#include <MetaMembers.h>
#include <PlainMacroType.h>
#include <RecordingHost.h>
#include <SceneEvents.h>
#include <ServiceNames.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QPropertyAnimation>

#include <utility>

namespace {

cJsonValue command(const cJsonValue& typeNamespace)
{
    cJsonValue macro;
    macro["namespace"] = typeNamespace;
    return macro;
}

bool isLit(const cPulseGlowImage& glow)
{
    return glow.isVisible() && glow.animation()->state() == QAbstractAnimation::Running;
}

bool isOut(const cPulseGlowImage& glow)
{
    return !glow.isVisible() && glow.animation()->state() == QAbstractAnimation::Stopped;
}

} // namespace

class cPulseGlowImageTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void hasItsPropertyOnly();
    void isNotHiddenByItself();
    void showsThePictureAtItsPath();
    void missingPictureDrawsNothing();
    void animationBreathes();
    void fittingCommandLightsTheGlow();
    void typeIsAskedByTheNamespace();
    void otherCommandsLeaveTheGlowOut_data();
    void otherCommandsLeaveTheGlowOut();
    void oneOfSeveralTypesSuffices();
    void emptyTypesFitEachOther();
    void glowWithoutTypesNeverLights();
    void unknownNamespaceDoesNothing();
    void failedCallDoesNothing();
    void strangeNamespaceIsAskedAsText_data();
    void strangeNamespaceIsAskedAsText();
    void strangeInfoDoesNothing_data();
    void strangeInfoDoesNothing();
    void secondPulseGoesOn();
    void otherCommandDoesNotPutTheGlowOut();
    void stopPutsTheGlowOut();

private:
    void hostHas(const cJsonValue& info);

    QScopedPointer<RecordingHost> m_host;
};

void cPulseGlowImageTest::init()
{
    m_host.reset(new RecordingHost);
}

void cPulseGlowImageTest::cleanup()
{
    m_host.reset();
}

void cPulseGlowImageTest::hostHas(const cJsonValue& info)
{
    m_host->answer("getMacroTypeByID", cMacroTypePtr(new PlainMacroType(info)));
}

void cPulseGlowImageTest::hasItsPropertyOnly()
{
    const QMetaObject& meta = cPulseGlowImage::staticMetaObject;
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"double opacity"}));
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void cPulseGlowImageTest::isNotHiddenByItself()
{
    const cPulseGlowImage glow(QString(), {"keys"});
    QVERIFY(glow.isVisible());
    QCOMPARE(glow.animation()->state(), QAbstractAnimation::Stopped);
}

void cPulseGlowImageTest::showsThePictureAtItsPath()
{
    TestPictures pictures;
    pictures.add("glow.png", filledPicture(5, 4, Qt::red));
    cPulseGlowImage glow("TestPictures:Resources/images/glow.png", {"keys"});
    QCOMPARE(inkExtent(SceneEvents::painted(glow, QSize(10, 10))), QRect(0, 0, 5, 4));
}

void cPulseGlowImageTest::missingPictureDrawsNothing()
{
    cPulseGlowImage glow("no/such/picture.png", {"keys"});
    QVERIFY(glow.pixmap().isNull());
    QVERIFY(inkExtent(SceneEvents::painted(glow, QSize(10, 10))).isNull());
}

void cPulseGlowImageTest::animationBreathes()
{
    hostHas(PlainMacroType::infoWith({"keys"}));
    cPulseGlowImage glow(QString(), {"keys"});
    QPropertyAnimation* animation = glow.animation();
    QCOMPARE(animation->duration(), 2000);
    QCOMPARE(animation->loopCount(), -1);
    QCOMPARE(animation->easingCurve(), QEasingCurve(QEasingCurve::SineCurve));
    QCOMPARE(animation->startValue().toReal(), 0.2);
    QCOMPARE(animation->endValue().toReal(), 1.0);
    glow.pulseFor(command("type"));
    // The curve is at its top in the middle of a round.
    for (const auto& [time, opacity] : {std::pair(500, 0.6), std::pair(1000, 1.0), std::pair(1500, 0.6)}) {
        animation->setCurrentTime(time);
        QCOMPARE(static_cast<QGraphicsItem&>(glow).opacity(), opacity);
        QCOMPARE(glow.property("opacity").toReal(), opacity);
    }
}

void cPulseGlowImageTest::fittingCommandLightsTheGlow()
{
    hostHas(PlainMacroType::infoWith({"keys"}));
    cPulseGlowImage glow(QString(), {"keys"});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isLit(glow));
}

void cPulseGlowImageTest::typeIsAskedByTheNamespace()
{
    cPulseGlowImage glow(QString(), {"keys"});
    glow.pulseFor(command("com.example.type"));
    QCOMPARE(m_host->takeCalls(), QStringList({"getMacroTypeByID(\"com.example.type\")"}));
}

void cPulseGlowImageTest::otherCommandsLeaveTheGlowOut_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::newRow("other type") << QStringList("stick");
    QTest::newRow("other case") << QStringList("Keys");
    QTest::newRow("part of a type") << QStringList("key");
    QTest::newRow("no types") << QStringList();
}

void cPulseGlowImageTest::otherCommandsLeaveTheGlowOut()
{
    QFETCH(QStringList, types);
    hostHas(PlainMacroType::infoWith(types));
    cPulseGlowImage glow(QString(), {"keys"});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isOut(glow));
}

void cPulseGlowImageTest::oneOfSeveralTypesSuffices()
{
    hostHas(PlainMacroType::infoWith({"wheel", "stick"}));
    cPulseGlowImage glow(QString(), {"keys", "stick"});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isLit(glow));
}

void cPulseGlowImageTest::emptyTypesFitEachOther()
{
    hostHas(PlainMacroType::infoWith({""}));
    cPulseGlowImage glow(QString(), {""});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isLit(glow));
}

void cPulseGlowImageTest::glowWithoutTypesNeverLights()
{
    hostHas(PlainMacroType::infoWith({"keys", ""}));
    cPulseGlowImage glow(QString(), {});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isOut(glow));
}

void cPulseGlowImageTest::unknownNamespaceDoesNothing()
{
    m_host->answer("getMacroTypeByID", cMacroTypePtr());
    cPulseGlowImage glow(QString(), {"keys", ""});
    glow.hide();
    glow.pulseFor(command("unknown"));
    QVERIFY(isOut(glow));
}

void cPulseGlowImageTest::failedCallDoesNothing()
{
    m_host->remove(ServiceNames::MacroTypeMgr);
    const ExpectedMessage message(
        QtCriticalMsg, "Failed to call 'getMacroTypeByID' on service Profiler.MacroTypeMgr");
    cPulseGlowImage glow(QString(), {"keys", ""});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isOut(glow));
}

void cPulseGlowImageTest::strangeNamespaceIsAskedAsText_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<QString>("asked");
    QTest::newRow("null record") << cJsonValue() << "";
    QTest::newRow("text for a record") << cJsonValue("macro") << "";
    QTest::newRow("array for a record") << cJsonValue(cJsonValue::arrayValue) << "";
    QTest::newRow("null namespace") << command(cJsonValue()) << "";
    QTest::newRow("number") << command(7) << "7";
    QTest::newRow("boolean") << command(true) << "true";
    QTest::newRow("array") << command(cJsonValue(cJsonValue::arrayValue)) << "";
    QTest::newRow("object") << command(cJsonValue(cJsonValue::objectValue)) << "";
}

void cPulseGlowImageTest::strangeNamespaceIsAskedAsText()
{
    QFETCH(cJsonValue, macro);
    QFETCH(QString, asked);
    m_host->answer("getMacroTypeByID", cMacroTypePtr());
    cPulseGlowImage glow(QString(), {"keys"});
    glow.hide();
    glow.pulseFor(macro);
    QCOMPARE(m_host->takeCalls(), QStringList({"getMacroTypeByID(\"" + asked + "\")"}));
    QVERIFY(isOut(glow));
}

void cPulseGlowImageTest::strangeInfoDoesNothing_data()
{
    QTest::addColumn<cJsonValue>("info");
    const auto withTypes = [](const cJsonValue& types) {
        cJsonValue info;
        info["control_types"] = types;
        return info;
    };
    QTest::newRow("null") << cJsonValue();
    QTest::newRow("text") << cJsonValue("keys");
    QTest::newRow("without the key") << cJsonValue(cJsonValue::objectValue);
    QTest::newRow("null types") << withTypes(cJsonValue());
    QTest::newRow("text for types") << withTypes("keys");
    QTest::newRow("number for types") << withTypes(3);
    QTest::newRow("object for types") << withTypes(PlainMacroType::infoWith({"keys"}));
    cJsonValue texts;
    texts.append("keys").append(5).append(cJsonValue());
    QTest::newRow("texts for entries") << withTypes(texts);
    cJsonValue entry;
    entry["control_type"] = texts;
    cJsonValue entries;
    entries.append(entry);
    QTest::newRow("array for a type") << withTypes(entries);
}

void cPulseGlowImageTest::strangeInfoDoesNothing()
{
    QFETCH(cJsonValue, info);
    hostHas(info);
    cPulseGlowImage glow(QString(), {"keys"});
    glow.hide();
    glow.pulseFor(command("type"));
    QVERIFY(isOut(glow));
}

void cPulseGlowImageTest::secondPulseGoesOn()
{
    hostHas(PlainMacroType::infoWith({"keys"}));
    cPulseGlowImage glow(QString(), {"keys"});
    glow.pulseFor(command("type"));
    glow.animation()->setCurrentTime(1200);
    glow.pulseFor(command("type"));
    QVERIFY(isLit(glow));
    QVERIFY(glow.animation()->currentTime() >= 1200);
}

void cPulseGlowImageTest::otherCommandDoesNotPutTheGlowOut()
{
    hostHas(PlainMacroType::infoWith({"keys"}));
    cPulseGlowImage glow(QString(), {"keys"});
    glow.pulseFor(command("type"));
    hostHas(PlainMacroType::infoWith({"stick"}));
    glow.pulseFor(command("type"));
    QVERIFY(isLit(glow));
}

void cPulseGlowImageTest::stopPutsTheGlowOut()
{
    hostHas(PlainMacroType::infoWith({"keys"}));
    cPulseGlowImage glow(QString(), {"keys"});
    glow.stopPulse();
    QVERIFY(isOut(glow));
    glow.pulseFor(command("type"));
    glow.stopPulse();
    QVERIFY(isOut(glow));
}

VELTRANO_TEST_MAIN(cPulseGlowImageTest)
#include "cPulseGlowImageTest.moc"
