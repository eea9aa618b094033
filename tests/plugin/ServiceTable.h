#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector>

#include <cstddef>
#include <functional>

class RecordingHost;
struct QMetaObject;

/// The contract of the thirteen services in one table. It is written down a second time on purpose:
/// interfaces and clients are checked against it.
namespace ServiceTable {

/// What came of one call of a client member.
struct Outcome
{
    /// Each place of the call held the value that was passed, and no others were used.
    bool argumentsArrived = false;
    /// The member returned what the service answered.
    bool resultCameBack = false;
    /// Each out-parameter holds what the service wrote to it, and nothing else was changed.
    bool outParametersWritten = false;
};

class Operation
{
public:
    /// As the contract has it: "bool addMacro(QString profileID, cJsonValue macro)".
    QString signature;
    /// The type names that the client passes, place by place.
    QList<QByteArray> tags;
    /// Calls the client member with a sample in each place, while the host answers with further samples.
    std::function<Outcome(RecordingHost&)> call;
    /// Calls the client member while the host lacks its service; true if it returns the empty value of its
    /// type and leaves the out-parameters alone.
    std::function<bool()> comesBackEmpty;
    /// Where the member stands in its class's table of virtual functions, in bytes.
    std::ptrdiff_t virtualOffset = 0;

    QString name() const;
    /// The tag of the result; empty where the operation returns nothing.
    QByteArray resultType() const;
};

class Service
{
public:
    QString name;
    const QMetaObject* interface = nullptr;
    const QMetaObject* client = nullptr;
    /// Makes a client and lets it go; true if it had no parent.
    std::function<bool()> makeClient;
    /// In the order of declaration.
    QVector<Operation> operations;
};

const QVector<Service>& services();

} // namespace ServiceTable
