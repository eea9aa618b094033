#include <cMacroTypeMgrService.h>
#include <FixedIds.h>
#include <HVS.h>
#include <JsonText.h>
#include <MacroTypes.h>
#include <ModeNames.h>
#include <ProfileDocument.h>
#include <TestCase.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>

namespace {

/// Fewest games that the database lists.
constexpr int FewestGames = 60;

QString attribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name));
}

template<typename Use>
void forEach(const QDomElement& parent, const char* name, const Use& use)
{
    for (QDomElement child = parent.firstChildElement(QLatin1String(name)); !child.isNull();
         child = child.nextSiblingElement(QLatin1String(name)))
        use(child);
}

} // namespace

/// The documents that come with the application: the profile of new users and the game database.
class ProfileDataTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void defaultProfileIsReadWhole();
    void itsCommandsRun();
    void itsAssignmentsFitTheDevices_data();
    void itsAssignmentsFitTheDevices();
    void itHoldsWhatAMouseDoesByNature();
    void databaseResolves();
    void gamesAreReadWhole();
    void gamesHaveAllShapes();
    void signaturesAreComplete();

private:
    MacroTypeLookup types()
    {
        return [this](const QString& macroNamespace) {
            return m_types.getMacroTypeByID(macroNamespace);
        };
    }
    void verifyCommands(const Profile& profile);

    cMacroTypeMgrService m_types;
    Profile m_default;
    QDomDocument m_database;
};

void ProfileDataTest::initTestCase()
{
    TestCase::initTestCase();
    QVERIFY(MacroTypes::registerAll(m_types));
    QDir::setSearchPaths(QStringLiteral("Profiler"), {QStringLiteral(PROFILER_FOLDER)});
    QFile file(QStringLiteral("Profiler:/DefaultProfile.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const ProfileDocument::ReadResult result = ProfileDocument::read(file.readAll(), types());
    QCOMPARE(result.error, QString());
    QCOMPARE(result.profiles.size(), std::size_t(1));
    m_default = result.profiles.front();
    QVERIFY(HVS::FileReadDom(QStringLiteral("Profiler:/GameDatabase.xml"), m_database, true));
}

/// Ids of their own, types that know the data, and assignments to commands that are there.
void ProfileDataTest::verifyCommands(const Profile& profile)
{
    QSet<QString> ids;
    for (const cJsonValue& macro : profile.macros) {
        const QString id = macro["uid"].toString();
        QVERIFY(!QUuid(id).isNull());
        QVERIFY2(!ids.contains(id), qPrintable(id));
        ids.insert(id);
        const QString name = macro["display_name"].toString();
        QVERIFY(!name.isEmpty());
        QVERIFY(!macro["name"].toString().isEmpty());
        QVERIFY2(!macro["data"].isNull() && !macro["data"].contains("raw_xml"), qPrintable(name));
        const cMacroTypePtr type = m_types.getMacroTypeByID(macro["namespace"].toString());
        QVERIFY(type);
        QVERIFY2(type->createPlayState(macro), qPrintable(name));
    }
    for (const auto& [control, id] : profile.assignments)
        QVERIFY2(ids.contains(id), qPrintable(control.contextId));
    QVERIFY(profile.extensions.elements.isEmpty());
    QVERIFY(profile.extensions.attributes.empty());
}

void ProfileDataTest::defaultProfileIsReadWhole()
{
    QCOMPARE(m_default.uid(), QString(FixedIds::DefaultProfile));
    QVERIFY(!m_default.name().isEmpty());
    verifyCommands(m_default);
    QCOMPARE(m_default.categories.size(), 3);
    QVERIFY(m_default.backup.empty());
}

void ProfileDataTest::itsCommandsRun()
{
    QSet<QString> shown;
    for (const cJsonValue& macro : m_default.macros) {
        if (!macro["hidden"].toBool())
            shown.insert(macro["display_name"].toString());
    }
    for (const char* name : {"Copy", "Paste", "Undo", "Play/Pause", "Volume Up", "Left Click", "Back"})
        QVERIFY2(shown.contains(name), name);
}

void ProfileDataTest::itsAssignmentsFitTheDevices_data()
{
    QTest::addColumn<QString>("manifest");
    const QDir devices(QStringLiteral(DEVICES_FOLDER));
    for (const QString& name : devices.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        QTest::newRow(qPrintable(name)) << devices.filePath(name + QStringLiteral("/manifest.xml"));
}

void ProfileDataTest::itsAssignmentsFitTheDevices()
{
    QFETCH(QString, manifest);
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(manifest, document, true));
    const QDomElement device = document.documentElement();
    const QDomElement view = device.firstChildElement("macrobindingmetadata");
    const QString category = attribute(device.firstChildElement("profiler"), "category");
    QSet<QString> controls;
    forEach(view.firstChildElement("controls"), "control",
        [&](const QDomElement& control) { controls.insert(attribute(control, "id")); });
    QSet<int> modes;
    forEach(view.firstChildElement("mstates"), "mstate",
        [&](const QDomElement& mode) { modes.insert(int(*ModeNames::parse(attribute(mode, "id")))); });
    if (modes.isEmpty())
        modes.insert(int(MKey::M1));
    QSet<int> assigned;
    for (const auto& entry : m_default.assignments) {
        const ControlKey& control = entry.first;
        if (control.category != category)
            continue;
        QVERIFY2(controls.contains(control.contextId), qPrintable(control.contextId));
        assigned.insert(int(control.mode));
    }
    QCOMPARE(assigned, modes);
}

void ProfileDataTest::itHoldsWhatAMouseDoesByNature()
{
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(QStringLiteral(DEVICES_FOLDER "/M5Device/manifest.xml"), document, true));
    const QDomElement view = document.documentElement().firstChildElement("macrobindingmetadata");
    int count = 0;
    forEach(view.firstChildElement("controls"), "control", [&](const QDomElement& control) {
        const QDomElement generic = control.firstChildElement("generic_assignment");
        const auto entry =
            m_default.assignments.find({DeviceIds::MouseCategory, MKey::M1, attribute(control, "id")});
        QVERIFY(entry != m_default.assignments.end());
        for (const cJsonValue& macro : m_default.macros) {
            if (macro["uid"].toString() == entry->second) {
                QCOMPARE(macro["name"].toString(), attribute(generic, "name"));
                QCOMPARE(macro["namespace"].toString(), attribute(generic, "type"));
                QVERIFY(macro["hidden"].toBool());
                ++count;
            }
        }
    });
    QCOMPARE(count, 10);
}

void ProfileDataTest::databaseResolves()
{
    QVERIFY(QFile::exists(QStringLiteral("Profiler:/GameDatabase.xml")));
    QCOMPARE(m_database.documentElement().tagName(), QStringLiteral("profiles"));
    QSet<QString> names;
    forEach(m_database.documentElement(), "profile",
        [&](const QDomElement& game) { names.insert(attribute(game, "name")); });
    QVERIFY2(names.size() >= FewestGames, qPrintable(QString::number(names.size())));
    QVERIFY(!names.contains(QString()));
    QCOMPARE(m_database.documentElement().childNodes().size(), names.size());
}

void ProfileDataTest::gamesAreReadWhole()
{
    forEach(m_database.documentElement(), "profile", [&](const QDomElement& game) {
        const ProfileDocument::ReadResult result = ProfileDocument::readElement(game, types());
        QCOMPARE(result.error, QString());
        QCOMPARE(result.profiles.size(), std::size_t(1));
        verifyCommands(result.profiles.front());
    });
}

void ProfileDataTest::gamesHaveAllShapes()
{
    QHash<QString, int> shapes;
    forEach(m_database.documentElement(), "profile", [&](const QDomElement& game) {
        int signatures = 0;
        bool isEdition = false;
        forEach(game, "signature", [&](const QDomElement& signature) {
            ++signatures;
            isEdition = isEdition || !attribute(signature, "name").isEmpty();
            const QString executable = attribute(signature, "executable");
            ++shapes[attribute(signature, "key").section('\\', 0, 0)];
            shapes["joined"] += executable.startsWith(' ') ? 1 : 0;
            shapes["without executable"] += executable.isEmpty() ? 1 : 0;
            shapes["default value"] += attribute(signature, "value").isEmpty() ? 1 : 0;
        });
        shapes["one"] += signatures == 1 ? 1 : 0;
        shapes["several"] += signatures > 1 ? 1 : 0;
        shapes["edition"] += isEdition ? 1 : 0;
        shapes["commands"] += game.firstChildElement("macros").isNull() ? 0 : 1;
        shapes["assignments"] += game.firstChildElement("assignments").isNull() ? 0 : 1;
    });
    for (const char* shape : {"HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER", "joined", "without executable",
             "default value", "one", "several", "edition", "commands", "assignments"})
        QVERIFY2(shapes[shape] >= 3, shape);
}

void ProfileDataTest::signaturesAreComplete()
{
    forEach(m_database.documentElement(), "profile", [&](const QDomElement& game) {
        int signatures = 0;
        forEach(game, "signature", [&](const QDomElement& signature) {
            ++signatures;
            const QString key = attribute(signature, "key");
            QVERIFY2(key.startsWith("HKEY_LOCAL_MACHINE\\") || key.startsWith("HKEY_CURRENT_USER\\"),
                qPrintable(key));
            for (const char* name : {"value", "executable", "name"})
                QVERIFY(signature.hasAttribute(QLatin1String(name)));
            // Paths that every system can join.
            QVERIFY(!attribute(signature, "executable").contains('\\'));
        });
        QVERIFY2(signatures > 0, qPrintable(attribute(game, "name")));
    });
}

VELTRANO_TEST_MAIN(ProfileDataTest)
#include "ProfileDataTest.moc"
