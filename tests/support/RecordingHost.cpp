#include "RecordingHost.h"

#include "ValueText.h"

#include <QMetaMethod>
#include <QtTest>

namespace {

QByteArray comparable(const QByteArray& type)
{
    return cServiceMgr::comparableType(type.constData());
}

/// The value behind a tagged argument.
QVariant toVariant(const QGenericArgument& argument)
{
    const QByteArray type = comparable(argument.name());
    if (type == "char*")
        return QByteArray(*static_cast<const char* const*>(argument.data()));
    const int id = QMetaType::type(type);
    if (id == QMetaType::UnknownType) {
        QTest::qFail(qPrintable(QStringLiteral("unknown type: ") + QLatin1String(type)), __FILE__, __LINE__);
        return QVariant();
    }
    return QVariant(id, argument.data());
}

/// Assigns a value to the variable of that type at the address.
void assign(const QByteArray& type, void* address, const QVariant& value)
{
    const int id = QMetaType::type(comparable(type));
    QVariant converted = value;
    if (converted.userType() != id && !converted.convert(id)) {
        QTest::qFail(qPrintable(QStringLiteral("a %1 can't stand for a %2")
                                    .arg(QLatin1String(value.typeName()), QLatin1String(type))),
            __FILE__, __LINE__);
        return;
    }
    QMetaType::destruct(id, address);
    QMetaType::construct(id, address, converted.constData());
}

/// Why the interface of a service has no such operation; empty if it has it.
QString mismatch(const QMetaObject& interface, const RecordedCall& call)
{
    for (int i = interface.methodOffset(); i < interface.methodCount(); ++i) {
        const QMetaMethod method = interface.method(i);
        if (method.name() != call.operation.toUtf8() || method.parameterCount() != call.typeNames.size())
            continue;
        bool same = call.resultType.isEmpty() ? method.returnType() == QMetaType::Void
                                              : comparable(method.typeName()) == comparable(call.resultType);
        for (int place = 0; place < method.parameterCount(); ++place)
            same =
                same && comparable(method.parameterTypes().at(place)) == comparable(call.typeNames.at(place));
        if (same)
            return QString();
    }
    return QStringLiteral("%1 has no operation %2").arg(QLatin1String(interface.className()), call.full());
}

QString argumentText(const QList<QByteArray>& typeNames, const QVariantList& values)
{
    QStringList texts;
    for (int i = 0; i < values.size(); ++i)
        texts.append(QLatin1String(typeNames[i]) + QLatin1Char(' ') + valueText(values[i]));
    return texts.join(QLatin1String(", "));
}

} // namespace

void RecordedCall::setOut(int place, const QVariant& value) const
{
    assign(typeNames.at(place), m_addresses.at(place), value);
}

QString RecordedCall::brief() const
{
    QStringList texts;
    for (const QVariant& value : values)
        texts.append(valueText(value));
    return QStringLiteral("%1(%2)").arg(operation, texts.join(QLatin1String(", ")));
}

QString RecordedCall::full() const
{
    const QString call = service + QLatin1Char(' ') + operation + QLatin1Char('(')
        + argumentText(typeNames, values) + QLatin1Char(')');
    return resultType.isEmpty() ? call : call + QLatin1String(" -> ") + QLatin1String(resultType);
}

RecordingHost::RecordingHost()
{
    registerServiceTypes();
    m_previous = IServiceMgr::setInstance(this);
}

RecordingHost::~RecordingHost()
{
    IServiceMgr::setInstance(m_previous);
}

void RecordingHost::remove(QLatin1String service)
{
    m_removed.insert(service);
}

void RecordingHost::restore(QLatin1String service)
{
    m_removed.remove(service);
}

QStringList RecordingHost::takeCalls()
{
    return std::exchange(m_briefCalls, {});
}

QStringList RecordingHost::takeLog()
{
    return std::exchange(m_log, {});
}

void RecordingHost::note(const QString& line)
{
    m_log.append(line);
}

void RecordingHost::clear()
{
    m_calls.clear();
    m_briefCalls.clear();
    m_log.clear();
}

void RecordingHost::requireService(const QString& serviceName, const QString& version)
{
    m_log.append(QStringLiteral("require %1 %2").arg(serviceName, version));
}

bool RecordingHost::hasService(const QString& serviceName) const
{
    return !m_removed.contains(serviceName)
        && (serviceInterface(serviceName) != nullptr || m_manager.hasService(serviceName));
}

void RecordingHost::registerService(QObject* service)
{
    m_log.append(QStringLiteral("register %1").arg(serviceNameOf(service)));
    m_manager.registerService(service);
}

void RecordingHost::unregisterService(QObject* service)
{
    m_log.append(QStringLiteral("unregister %1").arg(serviceNameOf(service)));
    m_manager.unregisterService(service);
}

bool RecordingHost::invoke(const QString& serviceName, const QString& operation, QGenericArgument value0,
    QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
    QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
    QGenericArgument value9)
{
    return receive(serviceName, operation, QGenericReturnArgument(),
        {value0, value1, value2, value3, value4, value5, value6, value7, value8, value9});
}

bool RecordingHost::invoke(const QString& serviceName, const QString& operation,
    QGenericReturnArgument result, QGenericArgument value0, QGenericArgument value1, QGenericArgument value2,
    QGenericArgument value3, QGenericArgument value4, QGenericArgument value5, QGenericArgument value6,
    QGenericArgument value7, QGenericArgument value8, QGenericArgument value9)
{
    return receive(serviceName, operation, result,
        {value0, value1, value2, value3, value4, value5, value6, value7, value8, value9});
}

void RecordingHost::subscribe(const QString& eventSource, QObject* subscriber, const QString& handlerPrefix)
{
    m_log.append(QStringLiteral("subscribe %1 %2").arg(eventSource, handlerPrefix));
    m_manager.subscribe(eventSource, subscriber, handlerPrefix);
}

void RecordingHost::unsubscribe(const QString& eventSource, QObject* subscriber)
{
    m_log.append(QStringLiteral("unsubscribe %1").arg(eventSource));
    m_manager.unsubscribe(eventSource, subscriber);
}

void RecordingHost::publish(const QString& eventSource, const QString& eventName, QGenericArgument value0,
    QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
    QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
    QGenericArgument value9)
{
    QList<QByteArray> typeNames;
    QVariantList values;
    for (const QGenericArgument& value :
        {value0, value1, value2, value3, value4, value5, value6, value7, value8, value9}) {
        if (!value.name())
            break;
        typeNames.append(value.name());
        values.append(toVariant(value));
    }
    m_log.append(QStringLiteral("publish %1 %2(").arg(eventSource, eventName)
        + argumentText(typeNames, values) + QLatin1Char(')'));
    m_manager.publish(eventSource, eventName, value0, value1, value2, value3, value4, value5, value6, value7,
        value8, value9);
}

bool RecordingHost::receive(const QString& service, const QString& operation,
    const QGenericReturnArgument& result, const Places& places)
{
    RecordedCall call;
    call.service = service;
    call.operation = operation;
    call.resultType = result.name();
    bool ended = false;
    for (const QGenericArgument& place : places) {
        if (!place.name()) {
            ended = true;
            continue;
        }
        if (ended)
            QTest::qFail("an argument stands behind an empty place", __FILE__, __LINE__);
        call.typeNames.append(place.name());
        call.values.append(toVariant(place));
        call.m_addresses.append(place.data());
    }
    m_calls.append(call);
    m_briefCalls.append(call.brief());
    m_log.append(call.full());

    const QMetaObject* interface = serviceInterface(service);
    if (m_removed.contains(service) || (!interface && !m_manager.hasService(service)))
        return false;
    if (!interface) {
        return m_manager.invoke(service, operation, result, places[0], places[1], places[2], places[3],
            places[4], places[5], places[6], places[7], places[8], places[9]);
    }
    if (const QString reason = mismatch(*interface, call); !reason.isEmpty()) {
        QTest::qFail(qPrintable(reason), __FILE__, __LINE__);
        return false;
    }
    if (const auto answer = m_answers.constFind(operation); answer != m_answers.constEnd()) {
        const QVariant value = (*answer)(call);
        if (!call.resultType.isEmpty() && value.isValid())
            assign(call.resultType, result.data(), value);
    }
    return true;
}
