#include <HVS.h>
#include <KeySheet.h>
#include <TestCase.h>

#include <QDomDocument>

namespace {

const QString Category = QStringLiteral("Test.Category");

const char Manifest[] = R"(
<device model="Test.Model">
  <presentation name="The Device" picture="Test:/images/device.png"/>
  <profiler category="Test.Category"/>
  <macrobindingmetadata>
    <transform scale="0.5" x="340" y="150"/>
    <mstates><mstate id="M1"/><mstate id="M2"/><mstate id="M9"/></mstates>
    <controls>
      <control id="G2" name="Second">
        <assignment_label x="400" y="214" max_width="90"><connect_line x1="1" y1="20" x2="3" y2="40"/></assignment_label>
      </control>
      <control id="G1"/>
    </controls>
  </macrobindingmetadata>
</device>)";

cJsonValue command(const QString& uid, const QString& displayName, const QString& name = {})
{
    cJsonValue record;
    record["uid"] = uid;
    record["display_name"] = displayName;
    record["name"] = name;
    return record;
}

} // namespace

class KeySheetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachModeHasAllKeysInTheOrderOfTheManifest();
    void keysAreThoseThatAreAskedFor();
    void commandIsTheOneOfItsMode();
    void labelsStandWhereTheManifestPutsThem();
    void deviceWithoutModesHasOneWithoutAName();
    void categoryWithoutADeviceStillHasItsKeys();
    void realDevicesHaveALabelForEachKey_data();
    void realDevicesHaveALabelForEachKey();

private:
    /// "M1: G2  Second=Fire, G1=" and so on.
    static QString textOf(const KeySheet::Mode& mode);

    QDomDocument m_document;
    Profile m_profile;
};

void KeySheetTest::init()
{
    QVERIFY(m_document.setContent(QByteArray(Manifest)));
    m_profile = Profile();
    m_profile.properties["name"] = "Pilot";
    m_profile.properties["description"] = "Flies";
    m_profile.macros = {command("{A}", "Fire"), command("{B}", "", "Reload")};
    m_profile.assignments[{Category, MKey::M1, "G2"}] = "{a}";
    m_profile.assignments[{Category, MKey::M2, "G1"}] = "{B}";
    m_profile.assignments[{Category, MKey::M2, "G2"}] = "{GONE}";
    m_profile.assignments[{"Another.Category", MKey::M1, "G1"}] = "{B}";
}

QString KeySheetTest::textOf(const KeySheet::Mode& mode)
{
    QStringList rows;
    for (const KeySheet::Row& row : mode.rows)
        rows.append(row.key + '=' + row.command);
    return mode.name + ": " + rows.join(", ");
}

void KeySheetTest::eachModeHasAllKeysInTheOrderOfTheManifest()
{
    const KeySheet sheet = KeySheet::make(m_profile, Category, {}, m_document.documentElement());
    QCOMPARE(sheet.profileName, QString("Pilot"));
    QCOMPARE(sheet.description, QString("Flies"));
    QCOMPARE(sheet.deviceName, QString("The Device"));
    QCOMPARE(sheet.picturePath, QString("Test:/images/device.png"));
    QCOMPARE(sheet.picturePosition, QPointF(340, 150));
    QCOMPARE(sheet.pictureScale, 0.5);
    // A mode that does not exist is no mode.
    QCOMPARE(sheet.modes.size(), 2);
    QCOMPARE(textOf(sheet.modes[0]), QString("M1: G2  Second=Fire, G1="));
}

void KeySheetTest::keysAreThoseThatAreAskedFor()
{
    const KeySheet sheet = KeySheet::make(m_profile, Category, {"G1", "G7"}, m_document.documentElement());
    QCOMPARE(textOf(sheet.modes[1]), QString("M2: G1=Reload, G7="));
    QCOMPARE(sheet.labels.size(), 0);
}

void KeySheetTest::commandIsTheOneOfItsMode()
{
    const KeySheet sheet = KeySheet::make(m_profile, Category, {}, m_document.documentElement());
    // A command that is gone leaves the key empty, one without a display name is called by its name.
    QCOMPARE(textOf(sheet.modes[1]), QString("M2: G2  Second=, G1=Reload"));
}

void KeySheetTest::labelsStandWhereTheManifestPutsThem()
{
    const KeySheet sheet = KeySheet::make(m_profile, Category, {}, m_document.documentElement());
    QCOMPARE(sheet.labels.size(), 1);
    QCOMPARE(sheet.labels[0].contextId, QString("G2"));
    QCOMPARE(sheet.labels[0].box, QRectF(400, 200, 100, 19));
    QCOMPARE(sheet.labels[0].line, QLineF(1, 14, 3, 34));
}

void KeySheetTest::deviceWithoutModesHasOneWithoutAName()
{
    QDomElement binding = m_document.documentElement().firstChildElement("macrobindingmetadata");
    binding.removeChild(binding.firstChildElement("mstates"));
    const KeySheet sheet = KeySheet::make(m_profile, Category, {}, m_document.documentElement());
    QCOMPARE(sheet.modes.size(), 1);
    QCOMPARE(textOf(sheet.modes[0]), QString(": G2  Second=Fire, G1="));
}

void KeySheetTest::categoryWithoutADeviceStillHasItsKeys()
{
    const KeySheet sheet = KeySheet::make(m_profile, Category, {}, QDomElement());
    QCOMPARE(sheet.deviceName, Category);
    QCOMPARE(textOf(sheet.modes.value(0)), QString(": G2=Fire, G1="));
    QCOMPARE(textOf(KeySheet::make(Profile(), Category, {}, QDomElement()).modes.value(0)), QString(": "));
}

void KeySheetTest::realDevicesHaveALabelForEachKey_data()
{
    QTest::addColumn<int>("keys");
    QTest::addColumn<int>("modes");
    QTest::newRow("K13Device") << 27 << 3;
    QTest::newRow("M5Device") << 10 << 1;
    QTest::newRow("B18Device") << 18 << 3;
}

void KeySheetTest::realDevicesHaveALabelForEachKey()
{
    QFETCH(int, keys);
    QFETCH(int, modes);
    QDomDocument manifest;
    QVERIFY(HVS::FileReadDom(
        QStringLiteral(DEVICES_FOLDER "/%1/manifest.xml").arg(QTest::currentDataTag()), manifest, false));
    const KeySheet sheet = KeySheet::make(m_profile, Category, {}, manifest.documentElement());
    QCOMPARE(sheet.modes.size(), modes);
    QCOMPARE(sheet.modes[0].rows.size(), keys);
    QCOMPARE(sheet.labels.size(), keys);
    for (const KeySheet::Label& label : sheet.labels)
        QVERIFY(QRectF(330, 140, 650, 480).contains(label.box));
}

VELTRANO_TEST_MAIN(KeySheetTest)
#include "KeySheetTest.moc"
