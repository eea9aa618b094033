#include "MessageStrip.h"

#include "AppConstants.h"

#include <TestCase.h>

#include <QLabel>
#include <QPushButton>

class MessageStripTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void messageIsShownUntilItIsDismissed();
    void messagesWaitTheirTurn();
    void sameMessageIsNotAddedTwice();
    void emptyMessageShowsNothing();
    void textIsPlain();
    void longMessageFitsTheArea();
    void itIsDismissedByKeyboard();
};

namespace {

constexpr QRect Area(0, 40, 980, 620);

QString shownText(const MessageStrip& strip)
{
    return strip.findChild<QLabel*>()->text();
}

} // namespace

void MessageStripTest::messageIsShownUntilItIsDismissed()
{
    QWidget window;
    window.resize(980, 700);
    MessageStrip strip(&window);
    strip.placeIn(Area);
    window.show();
    QVERIFY(!strip.isVisible());
    strip.addMessage("one");
    QVERIFY(strip.isVisible());
    QCOMPARE(shownText(strip), QString("one"));
    QCOMPARE(strip.accessibleName(), QString("one"));
    QCOMPARE(strip.geometry().bottom(), Area.bottom() - AppConstants::StripMargin);
    strip.dismiss();
    QVERIFY(!strip.isVisible());
    strip.dismiss();
}

void MessageStripTest::messagesWaitTheirTurn()
{
    QWidget window;
    MessageStrip strip(&window);
    strip.addMessage("one");
    strip.addMessage("two");
    QCOMPARE(strip.messages(), QStringList({"one", "two"}));
    QCOMPARE(shownText(strip), QString("one"));
    strip.dismiss();
    QCOMPARE(shownText(strip), QString("two"));
    QVERIFY(!strip.isHidden());
    strip.dismiss();
    QVERIFY(strip.isHidden());
}

void MessageStripTest::sameMessageIsNotAddedTwice()
{
    QWidget window;
    MessageStrip strip(&window);
    strip.addMessage("one");
    strip.addMessage("one");
    QCOMPARE(strip.messages().size(), 1);
    strip.dismiss();
    strip.addMessage("one");
    QCOMPARE(strip.messages().size(), 1);
}

void MessageStripTest::emptyMessageShowsNothing()
{
    QWidget window;
    MessageStrip strip(&window);
    strip.addMessage(QString());
    QVERIFY(strip.isHidden());
}

void MessageStripTest::textIsPlain()
{
    QWidget window;
    MessageStrip strip(&window);
    strip.addMessage("<b>x</b>");
    QCOMPARE(strip.findChild<QLabel*>()->textFormat(), Qt::PlainText);
}

void MessageStripTest::longMessageFitsTheArea()
{
    QWidget window;
    window.resize(980, 700);
    MessageStrip strip(&window);
    strip.placeIn(Area);
    window.show();
    strip.addMessage("short");
    const int oneLine = strip.height();
    strip.dismiss();
    strip.addMessage(QStringLiteral("a message of several lines ").repeated(20));
    QVERIFY(strip.height() > oneLine);
    QVERIFY(Area.contains(strip.geometry()));
    const auto* const label = strip.findChild<QLabel*>();
    QVERIFY(label->height() >= label->heightForWidth(label->width()));
}

void MessageStripTest::itIsDismissedByKeyboard()
{
    QWidget window;
    window.resize(980, 700);
    MessageStrip strip(&window);
    strip.placeIn(Area);
    strip.addMessage("one");
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto* const button = strip.findChild<QPushButton*>();
    QVERIFY(button->focusPolicy() & Qt::TabFocus);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(strip.isHidden());
}

VELTRANO_TEST_MAIN(MessageStripTest)
#include "MessageStripTest.moc"
