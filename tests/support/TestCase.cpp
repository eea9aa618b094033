#include "TestCase.h"

#include <QGuiApplication>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <vector>

/// Looks at every message while tests run.
class MessageGuard
{
public:
    static void install() { s_next = qInstallMessageHandler(&handle); }
    static void remove() { qInstallMessageHandler(s_next); }

    static void announce(ExpectedMessage* message) { s_expected.push_back(message); }
    static void withdraw(ExpectedMessage* message)
    {
        s_expected.erase(std::remove(s_expected.begin(), s_expected.end(), message), s_expected.end());
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (isRemarkOfOffscreenPlatform(text) || isRemarkOnSearchBox(text))
            return;
        for (ExpectedMessage* message : s_expected) {
            if (!message->m_hasCome && message->m_type == type && message->m_pattern.match(text).hasMatch()) {
                message->m_hasCome = true;
                return;
            }
        }
        // The offscreen platform says this of each dialog.
        if (text == QLatin1String("This plugin does not support propagateSizeHints()"))
            return;
        s_next(type, context, text);
        if (type != QtFatalMsg)
            QTest::qFail(
                qPrintable(QStringLiteral("unannounced message: ") + text), context.file, context.line);
    }

    /// The platform without a screen remarks on each thing that only windows on a screen have.
    static bool isRemarkOfOffscreenPlatform(const QString& text)
    {
        return text.startsWith(QLatin1String("This plugin does not support "))
            && QGuiApplication::platformName() == QLatin1String("offscreen");
    }

    /// The search box's style sheets are fixed down to a brace too many, which Qt remarks on each time and
    /// passes over.
    static bool isRemarkOnSearchBox(const QString& text)
    {
        return text.startsWith(QLatin1String("Could not parse stylesheet of object cSearchBox("));
    }

    static QtMessageHandler s_next;
    static std::vector<ExpectedMessage*> s_expected;
};

QtMessageHandler MessageGuard::s_next = nullptr;
std::vector<ExpectedMessage*> MessageGuard::s_expected;

void TestCase::initTestCase()
{
    MessageGuard::install();
}

void TestCase::cleanupTestCase()
{
    MessageGuard::remove();
}

ExpectedMessage::ExpectedMessage(QtMsgType type, const QString& text)
    : ExpectedMessage(
        type, QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(text))))
{ }

ExpectedMessage::ExpectedMessage(QtMsgType type, const QRegularExpression& pattern)
    : m_type(type)
    , m_pattern(pattern)
{
    MessageGuard::announce(this);
}

ExpectedMessage::~ExpectedMessage()
{
    MessageGuard::withdraw(this);
    if (!m_hasCome) {
        QTest::qFail(qPrintable(QStringLiteral("announced message did not come: ") + m_pattern.pattern()),
            __FILE__, __LINE__);
    }
}

int runTest(QObject& test, int argc, char** argv)
{
    const int failures = QTest::qExec(&test, argc, argv);
    const QWidgetList left = QApplication::topLevelWidgets();
    for (const QWidget* widget : left)
        std::fprintf(stderr, "left behind: a %s \"%s\"\n", widget->metaObject()->className(),
            qPrintable(widget->objectName()));
    return failures == 0 && left.isEmpty() ? 0 : 1;
}
