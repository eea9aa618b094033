#pragma once

#include <IServiceMgr.h>

#include <QGenericArgument>
#include <QLatin1String>
#include <QString>

#include <memory>

/// The one way in which the client classes call a service.
///
/// A client is a local variable of the function that needs it. It has no fields: each member is one call by
/// name, and the service manager is fetched anew for it. A call that does not reach its service writes one
/// critical line and comes back with an empty result.
namespace ServiceClient {

/// What every client's constructor does.
void requireService(QLatin1String service);

/// An argument in place, with the type name that the service manager matches. The value has to outlive the
/// call; out-parameters are passed in the same way, and the service writes through the address.
template<typename T>
QGenericArgument tagged(const char* typeName, const T& value)
{
    return QGenericArgument(typeName, std::addressof(value));
}

/// Writes the line for a call that did not arrive.
void reportFailedCall(const char* operation, QLatin1String service);

/// Calls an operation that returns nothing.
template<typename... Args>
void callService(QLatin1String service, const char* operation, const Args&... args)
{
    static_assert(sizeof...(Args) <= 10, "a call has ten places");
    if (!IServiceMgr::instance()->invoke(service, QLatin1String(operation), args...))
        reportFailedCall(operation, service);
}

/// Calls an operation and returns its result; a value-initialised one if the call failed.
template<typename Result, typename... Args>
Result askService(QLatin1String service, const char* operation, const char* resultType, const Args&... args)
{
    static_assert(sizeof...(Args) <= 10, "a call has ten places");
    Result result {};
    if (!IServiceMgr::instance()->invoke(service, QLatin1String(operation),
            QGenericReturnArgument(resultType, std::addressof(result)), args...))
        reportFailedCall(operation, service);
    return result;
}

} // namespace ServiceClient
