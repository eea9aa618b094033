#pragma once

#include "VHFSExport.h"

#include <QGenericArgument>
#include <QString>

class QObject;

/// Calls to services and events, both by name.
///
/// A service is a QObject whose class has the class information "service", its name, and invokable members,
/// its operations. An operation is found by its name, the number of its parameters and their types as the
/// tags of the arguments give them; a leading "const " and a trailing "&" make no difference, nor does which
/// of the names of a type is used ("quint32", "uint"). Arguments fill the ten places from the first; unused
/// places are empty.
///
/// All operations are called on the GUI thread and may be called from within each other.
class VHFS_EXPORT IServiceMgr
{
public:
    /// The manager of the process, never null. Fetch it at each use.
    static IServiceMgr* instance();
    /// Puts another manager in the place of the process's own, which null brings back. Returns the one
    /// before.
    static IServiceMgr* setInstance(IServiceMgr* manager);

    /// Announces that the caller needs a service in a version of its interface.
    virtual void requireService(const QString& serviceName, const QString& version) = 0;
    /// True if a service of that name can be called now.
    virtual bool hasService(const QString& serviceName) const = 0;
    /// Makes a service known. The manager does not own it and notices when it is deleted.
    virtual void registerService(QObject* service) = 0;
    virtual void unregisterService(QObject* service) = 0;

    /// Calls an operation; a result that it has is dropped. False if the call did not reach the service.
    virtual bool invoke(const QString& serviceName, const QString& operation,
        QGenericArgument value0 = QGenericArgument(), QGenericArgument value1 = QGenericArgument(),
        QGenericArgument value2 = QGenericArgument(), QGenericArgument value3 = QGenericArgument(),
        QGenericArgument value4 = QGenericArgument(), QGenericArgument value5 = QGenericArgument(),
        QGenericArgument value6 = QGenericArgument(), QGenericArgument value7 = QGenericArgument(),
        QGenericArgument value8 = QGenericArgument(), QGenericArgument value9 = QGenericArgument()) = 0;
    /// Calls an operation that returns a value of the result's type, which is written to the result's
    /// address.
    virtual bool invoke(const QString& serviceName, const QString& operation, QGenericReturnArgument result,
        QGenericArgument value0 = QGenericArgument(), QGenericArgument value1 = QGenericArgument(),
        QGenericArgument value2 = QGenericArgument(), QGenericArgument value3 = QGenericArgument(),
        QGenericArgument value4 = QGenericArgument(), QGenericArgument value5 = QGenericArgument(),
        QGenericArgument value6 = QGenericArgument(), QGenericArgument value7 = QGenericArgument(),
        QGenericArgument value8 = QGenericArgument(), QGenericArgument value9 = QGenericArgument()) = 0;

    /// Delivers the events of a source to the subscriber's invokable members that are named `handlerPrefix`
    /// and the event's name and take the event's parameters. A subscriber without such a member is passed
    /// over. Who subscribes twice is called twice.
    virtual void subscribe(const QString& eventSource, QObject* subscriber, const QString& handlerPrefix) = 0;
    /// Ends all delivery of the source's events to the subscriber, also of the one that is under way.
    virtual void unsubscribe(const QString& eventSource, QObject* subscriber) = 0;
    /// Delivers an event to all who are subscribed at this moment, in the order in which they subscribed, and
    /// returns when they are done with it.
    virtual void publish(const QString& eventSource, const QString& eventName,
        QGenericArgument value0 = QGenericArgument(), QGenericArgument value1 = QGenericArgument(),
        QGenericArgument value2 = QGenericArgument(), QGenericArgument value3 = QGenericArgument(),
        QGenericArgument value4 = QGenericArgument(), QGenericArgument value5 = QGenericArgument(),
        QGenericArgument value6 = QGenericArgument(), QGenericArgument value7 = QGenericArgument(),
        QGenericArgument value8 = QGenericArgument(), QGenericArgument value9 = QGenericArgument()) = 0;

protected:
    ~IServiceMgr() = default;
};
