#include <cMacroBindingView.h>
#include <JsonText.h>
#include <RecordingHost.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QDomDocument>
#include <QElapsedTimer>

#include <limits>
#include <memory>

namespace {

/// A manifest that uses every element and attribute, in an order of its own and among others.
const char* const FullManifest = R"(
<device model="K13" name="ignored">
  <!-- ignored --><picture image="ignored.png"/>
  <profiler category="Veltrano.Gaming.LeftHandedController" other="x"/>
  <macrobindingmetadata viewid="macrobinding_view" other="x">
    <controls other="x">
      <label id="before the first control"/>
      <control id="G1" other="x">
        <assignment_label x="11" y="12" min_width="13" max_width="14">
          <connect_line x1="21" y1="22" x2="-23" y2="-24"/>
        </assignment_label>
        <context_button><other x="1" y="1"/><point x="31" y="32"/><point x="33" y="34"/></context_button>
        <types><type name="keystroke"/><other name="x"/><type name="mouse"/></types>
        <generic_assignment type="uri/Media" name="Play" required="true" hidden="true"
            cannotbeunassigned="true"/>
        <pixmap image="g1.png" outline="g1_outline.png" x="41" y="-42"/>
        <points><point x="10" y="20"/><other x="500" y="500"/><point x="30" y="5"/><point x="20" y="40"/></points>
      </control>
      <control id="G2"/>
    </controls>
    <pulseGlows>
      <pulseGlow image="glow.png" x="51" y="52">
        <types><type name="keystroke"/><type name="text"/></types>
      </pulseGlow>
      <other image="x"/>
      <pulseGlow image="second.png" x="-1" y="-2"/>
    </pulseGlows>
    <mstates>
      <mstate id="M1" imageNormal="n1.png" imageHover="h1.png" imageOn="o1.png" top="61" left="62"/>
      <other id="x"/>
      <mstate id="M2" imageNormal="n2.png" imageHover="h2.png" imageOn="o2.png" top="-1" left="-2"/>
    </mstates>
    <transform scale="0.85" x="-120" y="44"/>
  </macrobindingmetadata>
</device>)";

/// In the record, numbers with a fraction are doubles and the others integers.
const char* const FullRecord = R"({
"device_model": "K13",
"profiler": {"category": "Veltrano.Gaming.LeftHandedController"},
"view_id": "macrobinding_view",
"scale": 0.85, "pos_x": -120, "pos_y": 44,
"mstates": [
  {"id": "M1", "normal_image": "n1.png", "hover_image": "h1.png", "on_image": "o1.png", "top": 61, "left": 62},
  {"id": "M2", "normal_image": "n2.png", "hover_image": "h2.png", "on_image": "o2.png", "top": -1, "left": -2}],
"pulseGlows": [
  {"pulse_glow_image": "glow.png", "pulse_glow_image_x": 51, "pulse_glow_image_y": 52,
   "pulse_glow_image_types": [{"type": "keystroke"}, {"type": "text"}]},
  {"pulse_glow_image": "second.png", "pulse_glow_image_x": -1, "pulse_glow_image_y": -2}],
"hotspots": [
  {"control_id": "G1",
   "points": [{"x": 10, "y": 20}, {"x": 30, "y": 5}, {"x": 20, "y": 40}],
   "x": 10.0, "y": 5.0, "polywidth": 20.0, "polyheight": 35.0,
   "pixmapPath": "g1.png", "outlinePath": "g1_outline.png", "pixmap_offset_x": 41, "pixmap_offset_y": -42,
   "generic_assignment_type": "uri/Media", "generic_assignment_name": "Play",
   "generic_assignment_required": true, "generic_assignment_hidden": true,
   "generic_assignment_cannotbeunassigned": true,
   "control_types": [{"control_type": "keystroke"}, {"control_type": "mouse"}],
   "context_button": [{"x": 31, "y": 32}],
   "assignment_label_x": 11, "assignment_label_y": 12,
   "assignment_label_w_min": 13, "assignment_label_w_max": 14,
   "assignment_label_line_x1": 21, "assignment_label_line_y1": 22,
   "assignment_label_line_x2": -23, "assignment_label_line_y2": -24},
  {"control_id": "G2"}]
})";

const char* const EmptyRecord = R"({"device_model": "", "profiler": {"category": ""}})";

} // namespace

/// cMacroBindingView::readDeviceMetadata().
class DeviceMetadataTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void askingIsOneCall();
    void fullManifestKeyByKey();

    void manifestWithoutContent_data();
    void manifestWithoutContent();
    void onlyTheFirstOfItsNameIsRead();
    void missingDeviceManagerGivesTheEmptyRecord();

    void integers_data();
    void integers();
    void scales_data();
    void scales();
    void flags_data();
    void flags();

    void everyElementBehindTheFirstControlIsOne();
    void listsWithoutTheirElementsGiveNoArray();
    void keysOfAControlComeWithTheirElement_data();
    void keysOfAControlComeWithTheirElement();
    void absentKeysReadAsEmpty();
    void bounds_data();
    void bounds();
    void idsAreNotChecked();

    void tenThousandControlsAreReadInTime();
    void deepNestingInIgnoredElementsIsHarmless();

private:
    cJsonValue read(const QByteArray& manifest);
    /// The record of one control with that content.
    cJsonValue readControl(const QByteArray& content);

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<cMacroBindingView> m_view;
    /// Keeps the elements that the host hands out.
    QDomDocument m_document;
};

namespace {

QByteArray text(const cJsonValue& value)
{
    return HVS::toJsonText(value, true);
}

/// JSON text in the form that text() gives it.
QByteArray expected(const QByteArray& json)
{
    cJsonValue value;
    QString error;
    if (!HVS::fromJsonText(json, value, &error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return text(value);
}

QByteArray manifestWith(const QByteArray& content)
{
    return "<device><macrobindingmetadata>" + content + "</macrobindingmetadata></device>";
}

} // namespace

void DeviceMetadataTest::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_view = std::make_unique<cMacroBindingView>();
    m_host->clear();
}

void DeviceMetadataTest::cleanup()
{
    m_view.reset();
    m_host.reset();
    m_document = QDomDocument();
}

cJsonValue DeviceMetadataTest::read(const QByteArray& manifest)
{
    QString error;
    m_document = QDomDocument();
    if (!m_document.setContent(manifest, &error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    m_host->answer("metaData", m_document.documentElement());
    return m_view->readDeviceMetadata("K13");
}

cJsonValue DeviceMetadataTest::readControl(const QByteArray& content)
{
    return read(
        manifestWith("<controls><control id='G1'>" + content + "</control></controls>"))["hotspots"][0];
}

void DeviceMetadataTest::askingIsOneCall()
{
    read("<device/>");
    QCOMPARE(m_host->takeLog(),
        QStringList(
            {"require DevMgr.DevMgr 1", "DevMgr.DevMgr metaData(const QString \"K13\") -> QDomElement"}));
}

void DeviceMetadataTest::fullManifestKeyByKey()
{
    QCOMPARE(text(read(FullManifest)), expected(FullRecord));
}

void DeviceMetadataTest::manifestWithoutContent_data()
{
    QTest::addColumn<QByteArray>("manifest");
    QTest::addColumn<QByteArray>("record");
    const auto row = [](const char* name, const char* manifest, const char* record) {
        QTest::newRow(name) << QByteArray(manifest) << QByteArray(record);
    };
    row("empty root", "<device/>", EmptyRecord);
    row("root of another tag", "<mouse model='m'/>",
        R"({"device_model": "m", "profiler": {"category": ""}})");
    row("model that was not asked for", "<device model='other'><profiler category='c'/></device>",
        R"({"device_model": "other", "profiler": {"category": "c"}})");
    row("tags in other capitals",
        "<device Model='m'><Profiler category='c'/><MacroBindingMetadata viewid='v'/></device>", EmptyRecord);
    row("metadata below another element",
        "<device><a><profiler category='c'/><macrobindingmetadata viewid='v'/></a></device>", EmptyRecord);
    row("empty metadata", "<device><macrobindingmetadata/></device>",
        R"({"device_model": "", "profiler": {"category": ""}, "view_id": ""})");
    row("empty transform", "<device><macrobindingmetadata><transform/></macrobindingmetadata></device>",
        R"({"device_model": "", "profiler": {"category": ""}, "view_id": "", "scale": 0.0, "pos_x": 0,
            "pos_y": 0})");
    row("text only", "<device>text<![CDATA[<profiler category='c'/>]]></device>", EmptyRecord);
    row("elements without attributes",
        "<device><profiler/><macrobindingmetadata><mstates><mstate/></mstates>"
        "<pulseGlows><pulseGlow/></pulseGlows><controls><control/></controls></macrobindingmetadata></"
        "device>",
        R"({"device_model": "", "profiler": {"category": ""}, "view_id": "",
            "mstates": [{"id": "", "normal_image": "", "hover_image": "", "on_image": "", "top": 0, "left": 0}],
            "pulseGlows": [{"pulse_glow_image": "", "pulse_glow_image_x": 0, "pulse_glow_image_y": 0}],
            "hotspots": [{"control_id": ""}]})");
}

void DeviceMetadataTest::manifestWithoutContent()
{
    QFETCH(QByteArray, manifest);
    QFETCH(QByteArray, record);
    QCOMPARE(text(read(manifest)), expected(record));
}

void DeviceMetadataTest::onlyTheFirstOfItsNameIsRead()
{
    const cJsonValue record =
        read("<device><profiler category='first'/><profiler category='second'/>"
             "<macrobindingmetadata viewid='first'><transform x='1'/><transform x='2'/>"
             "<controls><control id='first'/></controls><controls><control id='second'/></controls>"
             "</macrobindingmetadata><macrobindingmetadata viewid='second'/></device>");
    QCOMPARE(record["profiler"]["category"].toString(), QString("first"));
    QCOMPARE(record["view_id"].toString(), QString("first"));
    QCOMPARE(record["pos_x"].toInt(), 1);
    QCOMPARE(record["hotspots"].size(), 1u);
    QCOMPARE(record["hotspots"][0]["control_id"].toString(), QString("first"));
}

void DeviceMetadataTest::missingDeviceManagerGivesTheEmptyRecord()
{
    // An unknown model comes as a null element, without a message.
    QCOMPARE(text(m_view->readDeviceMetadata("unknown")), expected(EmptyRecord));
    QCOMPARE(text(m_view->readDeviceMetadata(QString())), expected(EmptyRecord));
    m_host->remove(ServiceNames::DevMgr);
    const ExpectedMessage line(QtCriticalMsg, "Failed to call 'metaData' on service DevMgr.DevMgr");
    QCOMPARE(text(m_view->readDeviceMetadata("K13")), expected(EmptyRecord));
}

void DeviceMetadataTest::integers_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("") << 0;
    QTest::newRow("7") << 7;
    QTest::newRow("-7") << -7;
    QTest::newRow("+7") << 7;
    QTest::newRow("007") << 7;
    QTest::newRow("2147483647") << std::numeric_limits<int>::max();
    QTest::newRow("-2147483648") << std::numeric_limits<int>::min();
    for (const char* malformed : {"2147483648", "-2147483649", "99999999999999999999", "1.5", "1e3", "0x10",
             "ten", "7px", "7 8", "1,000", "--7", "true"})
        QTest::newRow(malformed) << 0;
}

void DeviceMetadataTest::integers()
{
    QFETCH(int, value);
    const QByteArray attribute = QTest::currentDataTag();
    const cJsonValue record = read(manifestWith("<transform x='" + attribute
        + "'/><controls><control><points><point y='" + attribute + "'/></points></control></controls>"));
    QCOMPARE(record["pos_x"], cJsonValue(value));
    QCOMPARE(record["hotspots"][0]["points"][0]["y"], cJsonValue(value));
    QCOMPARE(record["hotspots"][0]["y"], cJsonValue(double(value)));
}

void DeviceMetadataTest::scales_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("") << 0.0;
    QTest::newRow("1") << 1.0;
    QTest::newRow("0.85") << 0.85;
    QTest::newRow("-2.5") << -2.5;
    QTest::newRow("1e-3") << 0.001;
    for (const char* malformed : {"0,85", "half", "50%", "0.5x"})
        QTest::newRow(malformed) << 0.0;
}

void DeviceMetadataTest::scales()
{
    QFETCH(double, value);
    const QByteArray attribute = QTest::currentDataTag();
    QCOMPARE(read(manifestWith("<transform scale='" + attribute + "'/>"))["scale"], cJsonValue(value));
}

void DeviceMetadataTest::flags_data()
{
    QTest::addColumn<bool>("value");
    QTest::newRow("true") << true;
    for (const char* text : {"", "TRUE", "True", "1", "yes", " true", "true ", "false"})
        QTest::newRow(text) << false;
}

void DeviceMetadataTest::flags()
{
    QFETCH(bool, value);
    const QByteArray attribute = "='" + QByteArray(QTest::currentDataTag()) + "'";
    const QList<QByteArray> names {"required", "hidden", "cannotbeunassigned"};
    for (const QByteArray& name : names) {
        const cJsonValue control = readControl("<generic_assignment " + name + attribute + "/>");
        for (const QByteArray& key : names) {
            // The others are absent, which is false; the key is there all the same.
            QCOMPARE(control[("generic_assignment_" + key).constData()], cJsonValue(key == name && value));
        }
    }
}

void DeviceMetadataTest::everyElementBehindTheFirstControlIsOne()
{
    const cJsonValue hotspots = read(manifestWith(
        "<controls><separator id='S0'/>text<control id='G1'/><!-- comment --><separator id='S1'/>text"
        "<separator><pixmap image='s2.png'/></separator><control id='G2'/></controls>"))["hotspots"];
    QStringList ids;
    for (unsigned i = 0; i < hotspots.size(); ++i)
        ids.append(hotspots[int(i)]["control_id"].toString());
    QCOMPARE(ids, QStringList({"G1", "S1", "", "G2"}));
    QCOMPARE(hotspots[2]["pixmapPath"].toString(), QString("s2.png"));
}

void DeviceMetadataTest::listsWithoutTheirElementsGiveNoArray()
{
    const cJsonValue record = read(manifestWith("<mstates><other/></mstates><pulseGlows/>"
                                                "<controls><separator/></controls>"));
    QCOMPARE(text(record), expected(R"({"device_model": "", "profiler": {"category": ""}, "view_id": ""})"));
    const cJsonValue glow =
        read(manifestWith("<pulseGlows><pulseGlow><types/></pulseGlow></pulseGlows>"))["pulseGlows"][0];
    QVERIFY(!glow.contains("pulse_glow_image_types"));
}

void DeviceMetadataTest::keysOfAControlComeWithTheirElement_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("keys");
    const auto row = [](const char* content, const char* keys) {
        QTest::newRow(content) << QByteArray(content) << QByteArray(keys);
    };
    row("", "");
    row("<points/>", "polyheight polywidth x y");
    row("<points><other/></points>", "polyheight polywidth x y");
    row("<points><point/></points>", "points polyheight polywidth x y");
    row("<pixmap/>", "outlinePath pixmapPath pixmap_offset_x pixmap_offset_y");
    row("<generic_assignment/>",
        "generic_assignment_cannotbeunassigned generic_assignment_hidden generic_assignment_name "
        "generic_assignment_required generic_assignment_type");
    row("<types/>", "");
    row("<types><type/></types>", "control_types");
    row("<type name='outside'/>", "");
    row("<context_button/>", "");
    row("<context_button><other/></context_button>", "");
    row("<context_button><point/></context_button>", "context_button");
    row("<point x='1' y='1'/>", "");
    row("<assignment_label/>",
        "assignment_label_w_max assignment_label_w_min assignment_label_x assignment_label_y");
    row("<assignment_label><connect_line/></assignment_label>",
        "assignment_label_line_x1 assignment_label_line_x2 assignment_label_line_y1 assignment_label_line_y2 "
        "assignment_label_w_max assignment_label_w_min assignment_label_x assignment_label_y");
    row("<connect_line x1='1' y1='2' x2='3' y2='4'/>", "");
}

void DeviceMetadataTest::keysOfAControlComeWithTheirElement()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, keys);
    QStringList expectedKeys = QString::fromLatin1(keys).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    expectedKeys.append("control_id");
    expectedKeys.sort();
    QStringList found = HVS::jsonKeys(readControl(content));
    found.sort();
    QCOMPARE(found, expectedKeys);
}

void DeviceMetadataTest::absentKeysReadAsEmpty()
{
    const cJsonValue control = readControl("");
    QCOMPARE(control["generic_assignment_type"].toString(), QString());
    QCOMPARE(control["generic_assignment_name"].toString(), QString());
    QVERIFY(!control["generic_assignment_required"].toBool());
}

void DeviceMetadataTest::bounds_data()
{
    QTest::addColumn<QByteArray>("points");
    QTest::addColumn<QByteArray>("bounds");
    const auto row = [](const char* points, const char* bounds) {
        QByteArray elements;
        for (const QByteArray& point : QByteArray(points).split(' ')) {
            const QList<QByteArray> xy = point.split(',');
            if (xy.size() == 2)
                elements += "<point x='" + xy[0] + "' y='" + xy[1] + "'/>";
        }
        QTest::newRow(points) << elements << QByteArray(bounds);
    };
    row("", "0.0 0.0 0.0 0.0");
    row("10,20 30,5 20,40", "10.0 5.0 20.0 35.0");
    row("7,9", "7.0 9.0 0.0 0.0");
    row("-30,-5 -10,-20", "-30.0 -20.0 20.0 15.0");
    row("5,5 5,5", "5.0 5.0 0.0 0.0");
    // What is no number is 0, and the bounds see that.
    row("100,100 ten,200", "0.0 100.0 100.0 100.0");
    row("ten,100 100,200", "0.0 100.0 100.0 100.0");
    // The difference of two integers need not fit in one.
    row("-2147483648,2147483647 2147483647,-2147483648",
        "-2147483648.0 -2147483648.0 4294967295.0 4294967295.0");
}

void DeviceMetadataTest::bounds()
{
    QFETCH(QByteArray, points);
    QFETCH(QByteArray, bounds);
    const cJsonValue control = readControl("<points>" + points + "</points>");
    QList<QByteArray> found;
    for (const char* key : {"x", "y", "polywidth", "polyheight"})
        found.append(HVS::toJsonText(control[key]));
    QCOMPARE(found.join(' '), bounds);
    QCOMPARE(control.contains("points"), !points.isEmpty());
}

void DeviceMetadataTest::idsAreNotChecked()
{
    const cJsonValue hotspots = read(manifestWith("<controls><control id='G1'/><control id='G1'/>"
                                                  "<control id=''/></controls>"))["hotspots"];
    QCOMPARE(text(hotspots), expected(R"([{"control_id": "G1"}, {"control_id": "G1"}, {"control_id": ""}])"));
}

void DeviceMetadataTest::tenThousandControlsAreReadInTime()
{
    constexpr int Count = 10000;
    QByteArray controls;
    for (int i = 1; i <= Count; ++i) {
        controls += "<control id='G" + QByteArray::number(i)
            + "'><points><point x='1' y='2'/><point x='3' y='4'/></points>"
              "<types><type name='keystroke'/></types></control>";
    }
    const QByteArray manifest = manifestWith("<controls>" + controls + "</controls>");
    read(manifest);
    QElapsedTimer timer;
    timer.start();
    const cJsonValue hotspots = m_view->readDeviceMetadata("K13")["hotspots"];
    const qint64 elapsed = timer.elapsed();
    QCOMPARE(hotspots.size(), unsigned(Count));
    QCOMPARE(hotspots[Count - 1]["control_id"].toString(), QStringLiteral("G%1").arg(Count));
    // A wide margin, for sanitizers and machines under load: it takes a fifth of a second.
    QVERIFY2(elapsed < 10000, qPrintable(QStringLiteral("%1 ms").arg(elapsed)));
}

void DeviceMetadataTest::deepNestingInIgnoredElementsIsHarmless()
{
    constexpr int Depth = 5000;
    read("<device model='K13'><ignored/><macrobindingmetadata><controls><control id='G1'><ignored/></control>"
         "</controls></macrobindingmetadata></device>");
    // Made by hand: a parser would refuse it.
    const QDomNodeList ignored = m_document.elementsByTagName("ignored");
    for (int i = 0; i < 2; ++i) {
        QDomElement innermost = ignored.at(0).toElement();
        innermost.setTagName("deep");
        for (int depth = 0; depth < Depth; ++depth)
            innermost = innermost.appendChild(m_document.createElement("points")).toElement();
    }
    const cJsonValue record = m_view->readDeviceMetadata("K13");
    QCOMPARE(record["device_model"].toString(), QString("K13"));
    QCOMPARE(text(record["hotspots"]), expected(R"([{"control_id": "G1"}])"));
}

VELTRANO_TEST_MAIN(DeviceMetadataTest)
#include "DeviceMetadataTest.moc"
