#include "cServiceMgr.h"

#include <QDebug>
#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace {

IServiceMgr* s_replacement = nullptr;

QString classInfo(const QObject* object, const char* key)
{
    const QMetaObject* type = object->metaObject();
    const int index = type->indexOfClassInfo(key);
    return index < 0 ? QString() : QString::fromUtf8(type->classInfo(index).value());
}

} // namespace

IServiceMgr* IServiceMgr::instance()
{
    // Never destroyed: services and subscribers with static storage may still use it while the process ends.
    static auto* const own = new cServiceMgr;
    return s_replacement ? s_replacement : own;
}

IServiceMgr* IServiceMgr::setInstance(IServiceMgr* manager)
{
    return std::exchange(s_replacement, manager);
}

/// The places of one call, and the result if one is asked for.
struct cServiceMgr::Arguments
{
    std::array<QGenericArgument, 10> values;
    QGenericReturnArgument result;

    int count() const
    {
        const auto used = [](const QGenericArgument& value) {
            return value.name() && *value.name();
        };
        return int(std::find_if_not(values.begin(), values.end(), used) - values.begin());
    }

    /// Name and tags as they stand, to look up what was resolved before.
    QByteArray key(const QByteArray& name) const
    {
        QByteArray text = name;
        for (int i = 0, n = count(); i < n; ++i)
            text.append(',').append(values[std::size_t(i)].name());
        return text.append(">").append(result.name());
    }
};

void cServiceMgr::requireService(const QString& serviceName, const QString& version)
{
    const QObject* service = m_services.value(serviceName);
    if (service && classInfo(service, "version") != version) {
        qWarning("Service %s has version %s, wanted is %s", qUtf8Printable(serviceName),
            qUtf8Printable(classInfo(service, "version")), qUtf8Printable(version));
    }
}

bool cServiceMgr::hasService(const QString& serviceName) const
{
    return !m_services.value(serviceName).isNull();
}

void cServiceMgr::registerService(QObject* service)
{
    if (!service)
        return;
    const QString name = classInfo(service, "service");
    if (name.isEmpty()) {
        qWarning("A %s is no service: its class has no class information \"service\"",
            service->metaObject()->className());
        return;
    }
    QPointer<QObject>& entry = m_services[name];
    if (entry && entry != service) {
        qWarning("Service %s is registered already", qUtf8Printable(name));
        return;
    }
    entry = service;
}

void cServiceMgr::unregisterService(QObject* service)
{
    if (!service)
        return;
    // Not looked up by its name: while the service is being destroyed, its class information is that of a
    // base.
    for (auto entry = m_services.begin(); entry != m_services.end();)
        entry = entry.value() == service ? m_services.erase(entry) : std::next(entry);
    // The library that holds the class may be unloaded next.
    m_resolved.remove(service->metaObject());
}

bool cServiceMgr::invoke(const QString& serviceName, const QString& operation, QGenericArgument value0,
    QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
    QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
    QGenericArgument value9)
{
    return call(serviceName, operation,
        {{value0, value1, value2, value3, value4, value5, value6, value7, value8, value9},
            QGenericReturnArgument()});
}

bool cServiceMgr::invoke(const QString& serviceName, const QString& operation, QGenericReturnArgument result,
    QGenericArgument value0, QGenericArgument value1, QGenericArgument value2, QGenericArgument value3,
    QGenericArgument value4, QGenericArgument value5, QGenericArgument value6, QGenericArgument value7,
    QGenericArgument value8, QGenericArgument value9)
{
    return call(serviceName, operation,
        {{value0, value1, value2, value3, value4, value5, value6, value7, value8, value9}, result});
}

void cServiceMgr::subscribe(const QString& eventSource, QObject* subscriber, const QString& handlerPrefix)
{
    if (!subscriber)
        return;
    std::vector<SubscriptionPtr>& subscriptions = m_subscriptions[eventSource];
    const auto isGone = [](const SubscriptionPtr& subscription) {
        return subscription->subscriber.isNull();
    };
    subscriptions.erase(
        std::remove_if(subscriptions.begin(), subscriptions.end(), isGone), subscriptions.end());
    subscriptions.push_back(std::make_shared<Subscription>(Subscription {subscriber, handlerPrefix, false}));
}

void cServiceMgr::unsubscribe(const QString& eventSource, QObject* subscriber)
{
    const auto found = m_subscriptions.find(eventSource);
    if (!subscriber || found == m_subscriptions.end())
        return;
    const auto isTheirs = [subscriber](const SubscriptionPtr& subscription) {
        // A delivery that is under way holds the subscription too and has to see its end.
        if (subscription->subscriber == subscriber)
            subscription->ended = true;
        return subscription->ended;
    };
    found->erase(std::remove_if(found->begin(), found->end(), isTheirs), found->end());
    m_resolved.remove(subscriber->metaObject());
}

void cServiceMgr::publish(const QString& eventSource, const QString& eventName, QGenericArgument value0,
    QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
    QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
    QGenericArgument value9)
{
    const Arguments arguments {
        {value0, value1, value2, value3, value4, value5, value6, value7, value8, value9},
        QGenericReturnArgument()};
    // Handlers may subscribe, unsubscribe, publish and delete each other: the list is walked as it is now,
    // and each entry is looked at again when its turn comes.
    const std::vector<SubscriptionPtr> subscriptions = m_subscriptions.value(eventSource);
    for (const SubscriptionPtr& subscription : subscriptions) {
        QObject* subscriber = subscription->subscriber;
        if (subscription->ended || !subscriber)
            continue;
        const QByteArray handler = (subscription->handlerPrefix + eventName).toUtf8();
        deliver(subscriber, resolve(subscriber->metaObject(), handler, arguments), arguments);
    }
}

bool cServiceMgr::call(const QString& serviceName, const QString& operation, const Arguments& arguments)
{
    QObject* service = m_services.value(serviceName);
    return service
        && deliver(service, resolve(service->metaObject(), operation.toUtf8(), arguments), arguments);
}

bool cServiceMgr::deliver(QObject* object, const QMetaMethod& method, const Arguments& arguments)
{
    if (!method.isValid())
        return false;
    // The types were compared when the method was resolved; the result goes under the name that Qt expects.
    const QGenericReturnArgument result(
        arguments.result.data() ? method.typeName() : nullptr, arguments.result.data());
    const auto& values = arguments.values;
    return method.invoke(object, Qt::DirectConnection, result, values[0], values[1], values[2], values[3],
        values[4], values[5], values[6], values[7], values[8], values[9]);
}

QMetaMethod cServiceMgr::resolve(const QMetaObject* type, const QByteArray& name, const Arguments& arguments)
{
    QHash<QByteArray, QMetaMethod>& resolved = m_resolved[type];
    const QByteArray key = arguments.key(name);
    const auto known = resolved.constFind(key);
    if (known != resolved.constEnd())
        return *known;

    const auto matches = [&](const QMetaMethod& method) {
        if (method.name() != name || method.parameterCount() != arguments.count())
            return false;
        if (arguments.result.data()
            && comparableType(method.typeName()) != comparableType(arguments.result.name()))
            return false;
        const QList<QByteArray> types = method.parameterTypes();
        for (int i = 0; i < types.size(); ++i) {
            if (comparableType(types[i]) != comparableType(arguments.values[std::size_t(i)].name()))
                return false;
        }
        return true;
    };
    QMetaMethod result;
    // From the end, so that a class's own member is found before one that it inherits.
    for (int i = type->methodCount() - 1; i >= 0 && !result.isValid(); --i) {
        const QMetaMethod method = type->method(i);
        if (method.methodType() != QMetaMethod::Signal && matches(method))
            result = method;
    }
    resolved.insert(key, result);
    return result;
}

QByteArray cServiceMgr::comparableType(const char* typeName)
{
    QByteArray type = QMetaObject::normalizedType(typeName);
    if (type.startsWith("const "))
        type.remove(0, int(qstrlen("const ")));
    if (type.endsWith('&'))
        type.chop(1);
    // Meta-objects name the parameters of a built-in type as QMetaType does, "uint" for a quint32.
    const int id = QMetaType::type(type);
    return id == QMetaType::UnknownType ? type : QByteArray(QMetaType::typeName(id));
}
