#pragma once

#include "IServiceMgr.h"
#include "VHFSExport.h"

#include <QByteArray>
#include <QHash>
#include <QMetaMethod>
#include <QPointer>

#include <memory>
#include <vector>

/// The service manager: a table of services, a table of subscriptions, and dispatch over the meta-objects of
/// both.
class VHFS_EXPORT cServiceMgr : public IServiceMgr
{
    Q_DISABLE_COPY(cServiceMgr)

public:
    cServiceMgr() = default;
    virtual ~cServiceMgr() = default;

    void requireService(const QString& serviceName, const QString& version) override;
    bool hasService(const QString& serviceName) const override;
    void registerService(QObject* service) override;
    void unregisterService(QObject* service) override;
    bool invoke(const QString& serviceName, const QString& operation, QGenericArgument value0,
        QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
        QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
        QGenericArgument value9) override;
    bool invoke(const QString& serviceName, const QString& operation, QGenericReturnArgument result,
        QGenericArgument value0, QGenericArgument value1, QGenericArgument value2, QGenericArgument value3,
        QGenericArgument value4, QGenericArgument value5, QGenericArgument value6, QGenericArgument value7,
        QGenericArgument value8, QGenericArgument value9) override;
    void subscribe(const QString& eventSource, QObject* subscriber, const QString& handlerPrefix) override;
    void unsubscribe(const QString& eventSource, QObject* subscriber) override;
    void publish(const QString& eventSource, const QString& eventName, QGenericArgument value0,
        QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
        QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
        QGenericArgument value9) override;

    /// The spelling of a type by which two tags are compared: normalised as Qt does it, without a leading
    /// "const " and a trailing "&", and for several names of one registered type always the same one.
    static QByteArray comparableType(const char* typeName);

private:
    struct Arguments;
    struct Subscription
    {
        QPointer<QObject> subscriber;
        QString handlerPrefix;
        bool ended = false;
    };
    using SubscriptionPtr = std::shared_ptr<Subscription>;

    bool call(const QString& serviceName, const QString& operation, const Arguments& arguments);
    static bool deliver(QObject* object, const QMetaMethod& method, const Arguments& arguments);
    QMetaMethod resolve(const QMetaObject* type, const QByteArray& name, const Arguments& arguments);

    QHash<QString, QPointer<QObject>> m_services;
    QHash<QString, std::vector<SubscriptionPtr>> m_subscriptions;
    /// What resolve() found, by class and by name with the argument types; an invalid method for what it
    /// didn't find.
    QHash<const QMetaObject*, QHash<QByteArray, QMetaMethod>> m_resolved;
};
