#include <cJsonValue.h>
#include <JsonText.h>

#include <QObject>
#include <QtTest>

namespace {

constexpr int Commands = 10'000;

cJsonValue command(int number)
{
    cJsonValue result;
    result["uid"] = QStringLiteral("{AAAAAAAA-0000-0000-0000-%1}").arg(number, 12, 10, QLatin1Char('0'));
    result["name"] = QStringLiteral("Command %1").arg(number);
    result["namespace"] = "keystroke";
    result["repeat"]["mode"] = "toggle";
    result["repeat"]["delay"] = 30;
    result["data"]["key"] = number;
    return result;
}

/// A profile with more commands than anybody has.
cJsonValue profile()
{
    cJsonValue result;
    result["name"] = "Game";
    for (int i = 0; i < Commands; ++i)
        result["macros"].append(command(i));
    return result;
}

} // namespace

/// What a large profile costs.
class cJsonValueBench : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void build();
    void copy();
    void copyAndReadOneCommand();
    void copyAndReadEverything();
    void editOneCommand();
    void copyAndEditOneCommand();
    void compareWithACopyThatWasRead();
    void write();
    void parse();

private:
    static int read(const cJsonValue& record);

    cJsonValue m_profile = profile();
};

int cJsonValueBench::read(const cJsonValue& record)
{
    const cJsonValue& macros = record["macros"];
    int sum = 0;
    for (int i = 0; i < int(macros.size()); ++i)
        sum += macros[i]["name"].toString().size() + macros[i]["repeat"]["delay"].toInt();
    return sum;
}

void cJsonValueBench::build()
{
    QBENCHMARK
    {
        const cJsonValue record = profile();
        QVERIFY(record.isObject());
    }
}

void cJsonValueBench::copy()
{
    QBENCHMARK
    {
        const cJsonValue record(m_profile);
        QVERIFY(record.isObject());
    }
}

void cJsonValueBench::copyAndReadOneCommand()
{
    QBENCHMARK
    {
        const cJsonValue record(m_profile);
        QVERIFY(record["macros"][Commands / 2].isObject());
    }
}

void cJsonValueBench::copyAndReadEverything()
{
    QBENCHMARK
    {
        const cJsonValue record(m_profile);
        QVERIFY(read(record) > 0);
    }
}

void cJsonValueBench::editOneCommand()
{
    int number = 0;
    QBENCHMARK
    {
        m_profile["macros"][Commands / 2]["name"] = ++number;
    }
}

void cJsonValueBench::copyAndEditOneCommand()
{
    QBENCHMARK
    {
        cJsonValue record(m_profile);
        record["macros"][Commands / 2]["name"] = 1;
    }
}

void cJsonValueBench::compareWithACopyThatWasRead()
{
    const cJsonValue record(m_profile);
    QVERIFY(read(record) > 0);
    QBENCHMARK
    {
        QVERIFY(record == m_profile);
    }
}

void cJsonValueBench::write()
{
    QBENCHMARK
    {
        QVERIFY(!HVS::toJsonText(m_profile).isEmpty());
    }
}

void cJsonValueBench::parse()
{
    const QByteArray text = HVS::toJsonText(m_profile);
    QBENCHMARK
    {
        cJsonValue record;
        QVERIFY(HVS::fromJsonText(text, record));
    }
}

QTEST_GUILESS_MAIN(cJsonValueBench)
#include "cJsonValueBench.moc"
