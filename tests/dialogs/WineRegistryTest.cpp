#include "WineHome.h"

#include <GameLocator.h>
#include <TestCase.h>
#include <WineHive.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QVector>

namespace {

/// Longest wait for the first start in a new prefix, in milliseconds.
constexpr int Patience = 180000;

/// A program of Wine, on the path or where distributions put it; empty if Wine is not installed.
QString wineProgram(const QStringList& names)
{
    for (const QString& name : names) {
        const QStringList places {
            QString(), QStringLiteral("/usr/lib/wine"), QStringLiteral("/opt/wine/bin")};
        for (const QString& place : places) {
            const QString found =
                QStandardPaths::findExecutable(name, place.isEmpty() ? QStringList() : QStringList(place));
            if (!found.isEmpty())
                return found;
        }
    }
    return QString();
}

/// A question that was put to the registry on Windows, and its answer.
class Question
{
public:
    QString root;
    QString key;
    QString value;
    QString view;
    /// The characters in hexadecimal numbers, or "none".
    QString answer;
};

QString numbers(const QString& text)
{
    QString result;
    for (const QChar character : text)
        result += QStringLiteral("%1").arg(int(character.unicode()), 4, 16, QLatin1Char('0'));
    return result;
}

} // namespace

/// The calls of the registry, run under Wine, and the reading of the prefix that Wine wrote meanwhile.
class WineRegistryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void registryAnswersAsItShould();
    void hivesGiveTheSameAnswers();
    void installedGameIsFound();

private:
    WineHome m_home;
    int m_exitCode = -1;
    QString m_output;
    QVector<Question> m_questions;
};

void WineRegistryTest::initTestCase()
{
    TestCase::initTestCase();
    const QString probe = QStringLiteral(REGISTRY_PROBE);
    if (!QFileInfo::exists(probe))
        QSKIP("there is no compiler for Windows (Debian: g++-mingw-w64-x86-64-posix)");
    const QString wine = wineProgram({"wine64", "wine"});
    const QString server = wineProgram({"wineserver", "wineserver64"});
    if (wine.isEmpty() || server.isEmpty())
        QSKIP("Wine is not installed (Debian: wine64)");

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", m_home.path());
    environment.insert("WINEPREFIX", m_home.path(".wine"));
    environment.insert("WINEARCH", "win64");
    environment.insert("WINEDEBUG", "-all");
    // Neither a window that offers more to install, nor entries in menus.
    environment.insert("WINEDLLOVERRIDES", "mscoree,mshtml,winemenubuilder.exe=");
    environment.remove("DISPLAY");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(wine, {probe});
    QVERIFY(process.waitForFinished(Patience));
    m_exitCode = process.exitCode();
    m_output = QString::fromLatin1(process.readAllStandardOutput());
    // The registry is on the disk when the server has ended.
    process.start(server, {"--wait"});
    QVERIFY(process.waitForFinished(Patience));
    for (const QString& line : m_output.split('\n')) {
        const QStringList parts = line.trimmed().split('|');
        if (parts.size() == 5)
            m_questions.append({parts[0], parts[1], parts[2], parts[3], parts[4]});
    }
}

void WineRegistryTest::registryAnswersAsItShould()
{
    QVERIFY2(m_exitCode == 0, qPrintable(m_output));
    QVERIFY(m_questions.size() > 30);
}

void WineRegistryTest::hivesGiveTheSameAnswers()
{
    const auto never = [] {
        return false;
    };
    int found = 0;
    // The default value is asked for before it is there and again behind that; the hive knows the later.
    QSet<QString> seen;
    for (int i = m_questions.size() - 1; i >= 0; --i) {
        const Question& question = m_questions[i];
        if (!question.root.startsWith("HKEY_LOCAL_MACHINE") && !question.root.startsWith("HKEY_CURRENT_USER"))
            continue;
        const QString id = question.root + question.key + question.value + question.view;
        if (seen.contains(id))
            continue;
        seen.insert(id);
        QString key = WineHive::folded(question.key);
        if (question.view == "512")
            key.replace("software\\", "software\\wow6432node\\");
        const QString value = WineHive::folded(question.value);
        const QString hive = question.root == "HKEY_LOCAL_MACHINE" ? "system.reg" : "user.reg";
        const WineHive::Texts texts =
            WineHive::read(m_home.path(".wine/" + hive), WineHive::Names {{key, {value}}}, never);
        const QString answer =
            texts.value(key).contains(value) ? numbers(texts[key][value]) : QString("none");
        QVERIFY2(answer == question.answer,
            qPrintable(question.key + ' ' + question.value + ": " + answer + ", not " + question.answer));
        found += answer == "none" ? 0 : 1;
    }
    QVERIFY(found > 15);
}

void WineRegistryTest::installedGameIsFound()
{
    const GameSignature signature {
        "HKEY_LOCAL_MACHINE\\SOFTWARE\\Veltrano Test\\Installed", "dir", "BIN/game.exe"};
    const auto never = [] {
        return false;
    };
    QCOMPARE(GameLocator({signature}, never).locate(signature), QString());
    const QString game = m_home.write(".wine/drive_c/Games/Installed Game/bin/Game.EXE");
    QCOMPARE(GameLocator({signature}, never).locate(signature), game);
    // What Wine itself brings along is there too.
    const GameSignature windows {"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion",
        "SystemRoot", "SYSTEM32\\Notepad.exe"};
    QCOMPARE(GameLocator({windows}, never).locate(windows).toLower(),
        m_home.path(".wine/drive_c/windows/system32/notepad.exe").toLower());
}

VELTRANO_TEST_MAIN(WineRegistryTest)
#include "WineRegistryTest.moc"
