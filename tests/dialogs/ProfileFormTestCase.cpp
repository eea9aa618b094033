#include "ProfileFormTestCase.h"

#include "LcdDevices.h"

#include <QFile>

void ProfileFormTestCase::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->answer("profiles", listOf({profileRecord(OtherId, "Other")}));
    m_folder = std::make_unique<QTemporaryDir>();
    QFile file(existingFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void ProfileFormTestCase::cleanup()
{
    m_host.reset();
    m_folder.reset();
}

cJsonValue ProfileFormTestCase::profileRecord(const QString& uid, const QString& name)
{
    cJsonValue record;
    record["uid"] = uid;
    record["name"] = name;
    return record;
}

cJsonValue ProfileFormTestCase::listOf(const QVector<cJsonValue>& records)
{
    cJsonValue list(cJsonValue::arrayValue);
    for (const cJsonValue& record : records)
        list.append(record);
    return list;
}

void ProfileFormTestCase::setLcdDevices(int count)
{
    m_host->answer("lcdDevices", LcdDevices::make(count));
}

cJsonValue ProfileFormTestCase::stored(const QString& operation) const
{
    QVector<cJsonValue> records;
    for (const RecordedCall& call : m_host->calls()) {
        if (call.operation == operation)
            records.append(call.values.first().value<cJsonValue>());
    }
    return records.size() == 1 ? records.first() : cJsonValue();
}

void ProfileFormTestCase::fillIn(const ProfileForm& form) const
{
    form.name()->setText("Mine");
    form.executable()->setText(existingFile());
}
