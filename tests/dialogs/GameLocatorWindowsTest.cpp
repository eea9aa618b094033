#include <GameLocator.h>
#include <TestCase.h>
#include <WindowsRegistry.h>

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <map>

// Of the locator for Windows all but the calls of the registry runs anywhere: this test is linked with its
// file and answers in the registry's place.

namespace {

std::map<WindowsRegistry::View, std::optional<std::wstring>> registry;
QStringList questions;

} // namespace

std::optional<std::wstring> WindowsRegistry::readText(
    const std::wstring& key, const std::wstring& value, View view)
{
    questions.append(
        QStringLiteral("%1 %2 %3")
            .arg(QString::fromStdWString(key), QString::fromStdWString(value), QString::number(int(view))));
    return registry[view];
}

class GameLocatorWindowsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nativeViewGoesFirst();
    void otherViewIsAskedWhenNothingExists_data();
    void otherViewIsAskedWhenNothingExists();
    void candidateIsMadeOfDirectoryAndExecutable_data();
    void candidateIsMadeOfDirectoryAndExecutable();

private:
    QString locate(const QString& executable = QStringLiteral("game.exe")) const;
    std::wstring folder(const QString& name = QString()) const;

    QTemporaryDir m_folder;
};

void GameLocatorWindowsTest::init()
{
    registry.clear();
    questions.clear();
    for (const char* const name : {"game.exe", "game 2.exe"}) {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

QString GameLocatorWindowsTest::locate(const QString& executable) const
{
    const GameSignature signature {"HKEY_LOCAL_MACHINE\\Game", "Dir", executable};
    return GameLocator({signature}, [] { return false; }).locate(signature);
}

std::wstring GameLocatorWindowsTest::folder(const QString& name) const
{
    return (name.isEmpty() ? m_folder.path() : m_folder.filePath(name)).toStdWString();
}

void GameLocatorWindowsTest::nativeViewGoesFirst()
{
    registry[WindowsRegistry::View::Native] = folder();
    registry[WindowsRegistry::View::Bits32] = L"/none";
    QCOMPARE(locate(), m_folder.filePath("game.exe"));
    QCOMPARE(questions, QStringList("HKEY_LOCAL_MACHINE\\Game Dir 0"));
}

void GameLocatorWindowsTest::otherViewIsAskedWhenNothingExists_data()
{
    QTest::addColumn<bool>("hasValue");

    QTest::newRow("no value") << false;
    QTest::newRow("stale value") << true;
}

void GameLocatorWindowsTest::otherViewIsAskedWhenNothingExists()
{
    QFETCH(bool, hasValue);
    if (hasValue)
        registry[WindowsRegistry::View::Native] = L"/none";
    registry[WindowsRegistry::View::Bits32] = folder();
    QCOMPARE(locate(), m_folder.filePath("game.exe"));
    QCOMPARE(questions, QStringList({"HKEY_LOCAL_MACHINE\\Game Dir 0", "HKEY_LOCAL_MACHINE\\Game Dir 512"}));
    registry.clear();
    QCOMPARE(locate(), QString());
}

void GameLocatorWindowsTest::candidateIsMadeOfDirectoryAndExecutable_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("found");

    QTest::newRow("file") << ""
                          << "game.exe"
                          << "game.exe";
    QTest::newRow("missing file") << ""
                                  << "none.exe"
                                  << "";
    QTest::newRow("no executable") << ""
                                   << ""
                                   << "";
    QTest::newRow("text to add") << "game"
                                 << " 2.exe"
                                 << "game 2.exe";
    QTest::newRow("text to add to the folder") << ""
                                               << " game.exe"
                                               << "";
    QTest::newRow("missing folder") << "none"
                                    << "game.exe"
                                    << "";
}

void GameLocatorWindowsTest::candidateIsMadeOfDirectoryAndExecutable()
{
    QFETCH(QString, directory);
    QFETCH(QString, executable);
    QFETCH(QString, found);
    registry[WindowsRegistry::View::Native] = folder(directory);
    QCOMPARE(locate(executable), found.isEmpty() ? "" : m_folder.filePath(found));
}

VELTRANO_TEST_MAIN(GameLocatorWindowsTest)
#include "GameLocatorWindowsTest.moc"
