#pragma once

#include <QApplication>
#include <QObject>
#include <QRegularExpression>
#include <QString>
#include <QtTest>

/// Base of all test classes.
///
/// Any message that Qt or our code prints fails the running test unless an ExpectedMessage announced it. A
/// test class that has an initTestCase() of its own calls this one from it.
class TestCase : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
};

/// Announces one message for as long as it lives. A message that did not come by then fails the test.
class ExpectedMessage
{
    Q_DISABLE_COPY(ExpectedMessage)

public:
    ExpectedMessage(QtMsgType type, const QString& text);
    ExpectedMessage(QtMsgType type, const QRegularExpression& pattern);
    ~ExpectedMessage();

    bool hasCome() const { return m_hasCome; }

private:
    friend class MessageGuard;

    QtMsgType m_type;
    QRegularExpression m_pattern;
    bool m_hasCome = false;
};

/// Runs a test class in an application of its own; fails if it leaves a top-level widget behind.
int runTest(QObject& test, int argc, char** argv);

/// The main() of a test executable.
#define VELTRANO_TEST_MAIN(TestClass)                                                                        \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        QApplication application(argc, argv);                                                                \
        TestClass test;                                                                                      \
        return runTest(test, argc, argv);                                                                    \
    }
