#pragma once

#include "Samples.h"
#include "ServiceTable.h"

#include <RecordingHost.h>

#include <QString>
#include <QVariant>
#include <QVariantList>

#include <tuple>
#include <type_traits>
#include <utility>

/// Calls one member of a client class with samples.
template<typename Client, typename Result, typename... Args>
class ServiceCaller
{
public:
    using Member = Result (Client::*)(Args...);

    ServiceCaller(Member member, const QString& operation)
        : m_member(member)
        , m_operation(operation)
    { }

    ServiceTable::Outcome call(RecordingHost& host) const { return call(host, Places()); }
    bool comesBackEmpty() const { return comesBackEmpty(Places()); }

private:
    using Values = std::tuple<std::decay_t<Args>...>;
    using Places = std::index_sequence_for<Args...>;
    /// Void stands for "nothing to return", so that it can be compared like any other result.
    struct Void
    {
        friend bool operator==(Void, Void) { return true; }
    };
    using Answer = std::conditional_t<std::is_void_v<Result>, Void, Result>;

    template<typename Arg>
    static constexpr bool IsOut =
        std::is_lvalue_reference_v<Arg> && !std::is_const_v<std::remove_reference_t<Arg>>;

    /// Samples of odd seeds go in and of even seeds come out, so that the booleans among them differ.
    enum Direction { In = 1, Out = 2 };
    static constexpr int ResultSeed = 101;

    template<std::size_t... Place>
    static Values values([[maybe_unused]] Direction direction, std::index_sequence<Place...>)
    {
        return Values {Samples::sample<std::decay_t<Args>>(2 * int(Place) + direction)...};
    }

    template<typename Arg, typename T>
    static void writeOut(const RecordedCall& call, int place, const T& value)
    {
        if constexpr (IsOut<Arg>) {
            if (place < call.values.size())
                call.setOut(place, QVariant::fromValue(value));
        }
    }

    template<std::size_t... Place>
    ServiceTable::Outcome call(RecordingHost& host, std::index_sequence<Place...> places) const
    {
        const Values sent = values(In, places);
        const Values written = values(Out, places);
        const Answer answer = answerSample();
        host.answer(m_operation, [written, answer](const RecordedCall& call) -> QVariant {
            (writeOut<Args>(call, int(Place), std::get<Place>(written)), ...);
            if constexpr (std::is_void_v<Result>)
                return QVariant();
            else
                return QVariant::fromValue(answer);
        });

        Values passed = sent;
        ServiceTable::Outcome outcome;
        outcome.resultCameBack = Samples::same(invoke(passed, places), answer);
        const QVariantList arrived =
            host.calls().isEmpty() ? QVariantList() : host.calls().constLast().values;
        outcome.argumentsArrived = arrived.size() == int(sizeof...(Args))
            && (Samples::holds(arrived[int(Place)], std::get<Place>(sent)) && ...);
        outcome.outParametersWritten =
            (Samples::same(std::get<Place>(passed), std::get<Place>(IsOut<Args> ? written : sent)) && ...);
        return outcome;
    }

    template<std::size_t... Place>
    bool comesBackEmpty(std::index_sequence<Place...> places) const
    {
        const Values sent = values(In, places);
        Values passed = sent;
        return Samples::same(invoke(passed, places), Answer {})
            && (Samples::same(std::get<Place>(passed), std::get<Place>(sent)) && ...);
    }

    template<std::size_t... Place>
    Answer invoke([[maybe_unused]] Values& values, std::index_sequence<Place...>) const
    {
        Client client;
        if constexpr (std::is_void_v<Result>)
            return (client.*m_member)(std::get<Place>(values)...), Void();
        else
            return (client.*m_member)(std::get<Place>(values)...);
    }

    static Answer answerSample()
    {
        if constexpr (std::is_void_v<Result>)
            return Void();
        else
            return Samples::sample<Result>(ResultSeed);
    }

    Member m_member;
    QString m_operation;
};
