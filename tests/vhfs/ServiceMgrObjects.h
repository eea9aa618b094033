#pragma once

#include <cJsonValue.h>
#include <IServiceMgr.h>

#include <QMetaType>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

struct Record
{
    int number = 0;
};
using RecordPtr = std::shared_ptr<Record>;
Q_DECLARE_METATYPE(RecordPtr)

/// A service that writes down its calls.
class TestService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("service", "Test.Service")
    Q_CLASSINFO("version", "1")

public:
    enum Colour { Red, Green };
    Q_ENUM(Colour)

    QStringList calls() const { return m_calls; }
    void plain() { note("plain"); }

    Q_INVOKABLE void nothing() { note("nothing"); }
    Q_INVOKABLE void take() { noteNumbers({}); }
    Q_INVOKABLE void take(int a) { noteNumbers({a}); }
    Q_INVOKABLE void take(int a, int b) { noteNumbers({a, b}); }
    Q_INVOKABLE void take(int a, int b, int c) { noteNumbers({a, b, c}); }
    Q_INVOKABLE void take(int a, int b, int c, int d) { noteNumbers({a, b, c, d}); }
    Q_INVOKABLE void take(int a, int b, int c, int d, int e) { noteNumbers({a, b, c, d, e}); }
    Q_INVOKABLE void take(int a, int b, int c, int d, int e, int f) { noteNumbers({a, b, c, d, e, f}); }
    Q_INVOKABLE void take(int a, int b, int c, int d, int e, int f, int g)
    {
        noteNumbers({a, b, c, d, e, f, g});
    }
    Q_INVOKABLE void take(int a, int b, int c, int d, int e, int f, int g, int h)
    {
        noteNumbers({a, b, c, d, e, f, g, h});
    }
    Q_INVOKABLE void take(int a, int b, int c, int d, int e, int f, int g, int h, int i)
    {
        noteNumbers({a, b, c, d, e, f, g, h, i});
    }
    Q_INVOKABLE void take(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j)
    {
        noteNumbers({a, b, c, d, e, f, g, h, i, j});
    }
    Q_INVOKABLE void byValue(QString text) { note("byValue " + text); }
    Q_INVOKABLE void byConstReference(const QString& text) { note("byConstReference " + text); }
    Q_INVOKABLE void byReference(QString& text) { note("byReference " + text); }
    Q_INVOKABLE void byPointer(QObject* object) { note("byPointer " + object->objectName()); }
    Q_INVOKABLE void overloaded(int number) { note(QStringLiteral("overloaded int %1").arg(number)); }
    Q_INVOKABLE void overloaded(double number) { note(QStringLiteral("overloaded double %1").arg(number)); }
    Q_INVOKABLE void overloaded(const QString& text) { note("overloaded QString " + text); }
    Q_INVOKABLE void overloaded(const QString& text, int number)
    {
        note(QStringLiteral("overloaded QString %1 int %2").arg(text).arg(number));
    }
    Q_INVOKABLE void withDefault(int a, int b = 7)
    {
        note(QStringLiteral("withDefault %1 %2").arg(a).arg(b));
    }
    Q_INVOKABLE void fill(QString& text, int& number)
    {
        note(QStringLiteral("fill %1 %2").arg(text).arg(number));
        text = "out";
        number = 2;
    }
    Q_INVOKABLE void mixed(TestService::Colour colour, const cJsonValue& value, const RecordPtr& record,
        QObject* object, const char* bytes)
    {
        note(QStringLiteral("mixed %1 %2 %3 %4 %5")
                 .arg(colour)
                 .arg(value["key"].toString())
                 .arg(record->number)
                 .arg(object->metaObject()->className(), bytes));
    }
    Q_INVOKABLE quint32 twice(quint32 number) { return 2 * number; }
    Q_INVOKABLE QString text() { return note("text"), "text"; }
    Q_INVOKABLE bool boolean() { return note("boolean"), true; }
    Q_INVOKABLE QObject* object() { return note("object"), this; }
    Q_INVOKABLE RecordPtr sharedRecord()
    {
        return note("sharedRecord"), std::make_shared<Record>(Record {5});
    }
    Q_INVOKABLE TestService::Colour colour() { return note("colour"), Green; }
    Q_INVOKABLE QStringList list(const QString& text) { return note("list"), QStringList({text, text}); }
    Q_INVOKABLE cJsonValue value()
    {
        note("value");
        cJsonValue result;
        result["key"] = 1;
        return result;
    }
    Q_INVOKABLE void nest(int depth)
    {
        note(QStringLiteral("nest %1").arg(depth));
        const int next = depth - 1;
        if (depth > 0)
            IServiceMgr::instance()->invoke("Test.Service", "nest", Q_ARG(int, next));
    }
    Q_INVOKABLE QString unregisterSelf()
    {
        IServiceMgr::instance()->unregisterService(this);
        return "done";
    }
    Q_INVOKABLE QString deleteSelf()
    {
        delete this; // The point of it.
        return "done";
    }
    Q_INVOKABLE virtual void virtualOperation() { note("virtualOperation"); }

public Q_SLOTS:
    void aSlot() { note("aSlot"); }

Q_SIGNALS:
    void aSignal();

protected:
    void note(const QString& call) { m_calls.append(call); }

private:
    void noteNumbers(const QList<int>& numbers)
    {
        QString call = "take";
        for (int number : numbers)
            call += QStringLiteral(" %1").arg(number);
        note(call);
    }

    QStringList m_calls;
};

class DerivedService : public TestService
{
    Q_OBJECT

public:
    Q_INVOKABLE void byValue(QString text) { note("derived byValue " + text); }
    Q_INVOKABLE void virtualOperation() override { note("derived virtualOperation"); }
    Q_INVOKABLE void derivedOnly() { note("derivedOnly"); }
};

class OtherService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("service", "Other")
};

/// Unregisters when the class with the name is gone already.
class SelfUnregisteringBase : public QObject
{
    Q_OBJECT

public:
    bool* wasKnownAtTheEnd = nullptr;

    ~SelfUnregisteringBase() override
    {
        IServiceMgr::instance()->unregisterService(this);
        if (wasKnownAtTheEnd)
            *wasKnownAtTheEnd = IServiceMgr::instance()->hasService("SelfUnregistering");
    }
};

class SelfUnregisteringService : public SelfUnregisteringBase
{
    Q_OBJECT
    Q_CLASSINFO("service", "SelfUnregistering")
};

/// Writes the events that it gets to a list that all subscribers share, and does what the test wants.
class TestSubscriber : public QObject
{
    Q_OBJECT

public:
    TestSubscriber(const QString& name, QStringList& events)
        : m_events(events)
    {
        setObjectName(name);
    }

    /// Done at each Plain event, after it was written down.
    std::function<void()> reaction;

    Q_INVOKABLE void onPlain() { got("Plain"); }
    Q_INVOKABLE void onplain() { got("plain"); }
    Q_INVOKABLE void onOverloaded() { got("Overloaded"); }
    Q_INVOKABLE void onOverloaded(int number) { got(QStringLiteral("Overloaded int %1").arg(number)); }
    Q_INVOKABLE void onOverloaded(const QString& text) { got("Overloaded QString " + text); }
    Q_INVOKABLE int onAnswered() { return got("Answered"), 1; }
    Q_INVOKABLE void onTen(int a, const QString& b, double c, bool d, const cJsonValue& e, int f, int g,
        int h, const QString& i, quint32 j)
    {
        got(QStringLiteral("Ten %1 %2 %3 %4 %5 %6 %7 %8 %9 %10")
                .arg(a)
                .arg(b)
                .arg(c)
                .arg(d)
                .arg(e["key"].toInt())
                .arg(f)
                .arg(g)
                .arg(h)
                .arg(i)
                .arg(j));
    }
    Q_INVOKABLE void whenPlain() { got("when Plain"); }

private:
    void got(const QString& event)
    {
        // The reaction may delete this.
        const auto react = reaction;
        m_events.append(objectName() + ": " + event);
        if (react)
            react();
    }

    QStringList& m_events;
};
