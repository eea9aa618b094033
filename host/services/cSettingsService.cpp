#include "cSettingsService.h"

#include "ServiceConstants.h"

#include <JsonText.h>

#include <algorithm>

namespace {

QStringList namesOf(const QString& path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

const cJsonValue& find(const cJsonValue& root, const QStringList& names)
{
    const cJsonValue* value = &root;
    for (const QString& name : names)
        value = &(*value)[name.toUtf8().constData()];
    return *value;
}

void store(cJsonValue& node, const QStringList& names, const cJsonValue& value)
{
    if (names.isEmpty()) {
        node = value;
        return;
    }
    if (!node.isObject())
        node = cJsonValue(cJsonValue::objectValue);
    store(node[names.first()], names.mid(1), value);
}

/// Number of levels of arrays and objects, counted no further than to `limit`.
int depth(const cJsonValue& value, int limit)
{
    int deepest = 0;
    if (limit > 0) {
        for (unsigned i = 0; i < value.size(); ++i)
            deepest = std::max(deepest, depth(value[int(i)], limit - 1));
        const QStringList keys = HVS::jsonKeys(value);
        for (const QString& key : keys)
            deepest = std::max(deepest, depth(value[key.toUtf8().constData()], limit - 1));
    }
    return value.isArray() || value.isObject() ? deepest + 1 : 0;
}

} // namespace

cSettingsService::cSettingsService(const QString& filePath, QObject* parent)
    : ISettings(parent)
    , m_file(filePath)
    , m_root(cJsonValue::objectValue)
    , m_retryTime(ServiceConstants::SettingsRetryTime)
{
    m_saveTimer.setSingleShot(true);
    connect(&m_saveTimer, SIGNAL(timeout()), this, SLOT(save()));
}

cSettingsService::~cSettingsService()
{
    flush();
}

void cSettingsService::load()
{
    QString problem;
    m_root = m_file.read(problem);
    if (!problem.isEmpty())
        Q_EMIT problemFound(problem);
}

bool cSettingsService::flush()
{
    m_saveTimer.stop();
    if (!m_isChanged)
        return true;
    QString problem;
    if (m_file.write(m_root, problem)) {
        m_isChanged = false;
        m_hasFailed = false;
        return true;
    }
    if (!std::exchange(m_hasFailed, true))
        Q_EMIT problemFound(problem);
    return false;
}

void cSettingsService::save()
{
    if (!flush())
        m_saveTimer.start(m_retryTime);
}

const cJsonValue& cSettingsService::valueAt(const QStringList& names) const
{
    return find(m_root, names);
}

cJsonValue cSettingsService::getProperty(const QString& path)
{
    return valueAt(namesOf(path));
}

int cSettingsService::getPropertyInt(const QString& path)
{
    return getPropertyInt(path, 0);
}

int cSettingsService::getPropertyInt(const QString& path, int defaultValue)
{
    const cJsonValue& value = valueAt(namesOf(path));
    const int number = value.toInt();
    return value == cJsonValue(number) ? number : defaultValue;
}

bool cSettingsService::getPropertyBool(const QString& path)
{
    return getPropertyBool(path, false);
}

bool cSettingsService::getPropertyBool(const QString& path, bool defaultValue)
{
    const cJsonValue& value = valueAt(namesOf(path));
    const bool flag = value.toBool();
    return value == cJsonValue(flag) ? flag : defaultValue;
}

QString cSettingsService::getPropertyString(const QString& path)
{
    return getPropertyString(path, QString());
}

QString cSettingsService::getPropertyString(const QString& path, const QString& defaultValue)
{
    const cJsonValue& value = valueAt(namesOf(path));
    const QString text = value.toString();
    return value == cJsonValue(text) ? text : defaultValue;
}

QStringList cSettingsService::getPropertyKeys(const QString& path)
{
    return HVS::jsonKeys(valueAt(namesOf(path)));
}

void cSettingsService::setPropertyInt(const QString& path, int val)
{
    change(path, cJsonValue(val));
}

void cSettingsService::setPropertyBool(const QString& path, bool val)
{
    change(path, cJsonValue(val));
}

void cSettingsService::setPropertyString(const QString& path, const QString& val)
{
    change(path, cJsonValue(val));
}

void cSettingsService::setProperty(const QString& path, const cJsonValue& val)
{
    if (val.isNull())
        removeProperty(path);
    else
        change(path, val);
}

void cSettingsService::removeProperty(const QString& path)
{
    QStringList names = namesOf(path);
    if (valueAt(names).isNull())
        return;
    if (names.isEmpty()) {
        change(QString(), cJsonValue(cJsonValue::objectValue));
        return;
    }
    const cJsonValue before = m_root;
    cJsonValue* parent = &m_root;
    const QString name = names.takeLast();
    for (const QString& step : qAsConst(names))
        parent = &(*parent)[step];
    parent->deleteKey(name);
    callListeners(before, path);
}

void cSettingsService::change(const QString& path, const cJsonValue& value)
{
    const QStringList names = namesOf(path);
    if (names.size() > MaxPathDepth || (names.isEmpty() && !value.isObject())
        || depth(value, HVS::MaxJsonDepth) > HVS::MaxJsonDepth - MaxPathDepth - 1) {
        // The file could not be read back with it.
        qWarning("Settings can't store a value at \"%s\"", qUtf8Printable(path.left(200)));
        return;
    }
    if (valueAt(names) == value)
        return;
    const cJsonValue before = m_root;
    store(m_root, names, value);
    callListeners(before, path);
}

void cSettingsService::callListeners(const cJsonValue& before, const QString& path)
{
    m_isChanged = true;
    // A retry that is due later waits no longer, now that there is more to save.
    m_saveTimer.start(ServiceConstants::SettingsSaveDelay);
    const QString changedPath = namesOf(path).join(QLatin1Char('/'));
    const cJsonValue after = m_root;
    // A slot may add and remove listeners and change settings in turn.
    const QList<Listener> listeners = m_listeners;
    for (const Listener& listener : listeners) {
        const bool isStillThere = std::any_of(m_listeners.begin(), m_listeners.end(),
            [&](const Listener& other) { return other.id == listener.id && other.receiver; });
        if (!isStillThere || find(before, listener.names) == find(after, listener.names))
            continue;
        if (listener.slot.parameterCount() == 0)
            listener.slot.invoke(listener.receiver);
        else
            listener.slot.invoke(listener.receiver, Q_ARG(QString, changedPath));
    }
}

void cSettingsService::addListener(const QString& path, QObject* receiver, const char* slotToCall)
{
    if (!receiver || !slotToCall)
        return;
    m_listeners.erase(std::remove_if(m_listeners.begin(), m_listeners.end(),
                          [](const Listener& listener) { return listener.receiver.isNull(); }),
        m_listeners.end());
    // SLOT() puts a digit in front of the signature.
    const QByteArray signature = *slotToCall == '\0' ? QByteArray() : QByteArray(slotToCall + 1);
    const QMetaObject* type = receiver->metaObject();
    const QMetaMethod slot =
        type->method(type->indexOfMethod(QMetaObject::normalizedSignature(signature.constData())));
    const QList<QByteArray> parameters = slot.isValid() ? slot.parameterTypes() : QList<QByteArray>();
    if (!slot.isValid() || parameters.size() > 1
        || (parameters.size() == 1 && parameters.first() != "QString")) {
        qWarning("Settings can't call the slot \"%s\" of a %s", slotToCall, type->className());
        return;
    }
    m_listeners.append({namesOf(path), receiver, slot, ++m_lastListenerId});
}

void cSettingsService::removeListener(QObject* receiver)
{
    m_listeners.erase(
        std::remove_if(m_listeners.begin(), m_listeners.end(),
            [&](const Listener& listener) { return !listener.receiver || listener.receiver == receiver; }),
        m_listeners.end());
}
