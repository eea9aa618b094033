#include <cClickableLabel.h>
#include <MetaMembers.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QEnterEvent>
#include <QMouseEvent>
#include <QPointer>

namespace {

const QColor Normal(Qt::red);
const QColor Hover(Qt::green);
const QColor Pressed(Qt::blue);

QColor look(const cClickableLabel& label)
{
    return label.pixmap(Qt::ReturnByValue).toImage().pixelColor(0, 0);
}

/// Sends the event to the label alone and tells whether it accepted it.
bool send(QWidget& label, QEvent::Type type, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, QPointF(1, 2), QPointF(31, 42), QPointF(51, 62), button,
        type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&label, &event);
    return event.isAccepted();
}

void enter(QWidget& label)
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(&label, &event);
}

void leave(QWidget& label)
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(&label, &event);
}

} // namespace

class cClickableLabelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void hasItsSignalsInOrder();
    void startsWithItsPictureAndHand();
    void looksLikeItsState();
    void settersOnlyStore();
    void oneSignalForEachStep();
    void clickComesWithItsPlaceFirst();
    void otherButtonsDoNotClick_data();
    void otherButtonsDoNotClick();
    void labelWithOnePictureKeepsIt();
    void nullPictureIsHarmless();
    void receiverMayDeleteTheLabel();

private:
    QScopedPointer<cClickableLabel> m_label;
    QStringList m_heard;
};

void cClickableLabelTest::init()
{
    m_label.reset(new cClickableLabel(filledPicture(4, 4, Normal)));
    m_label->setHoverPixmap(filledPicture(4, 4, Hover));
    m_label->setPressedPixmap(filledPicture(4, 4, Pressed));
    m_heard.clear();
    connect(m_label.data(), QOverload<const QPoint&>::of(&cClickableLabel::clicked), this,
        [this](
            const QPoint& at) { m_heard.append(QStringLiteral("clicked(%1,%2)").arg(at.x()).arg(at.y())); });
    connect(m_label.data(), QOverload<>::of(&cClickableLabel::clicked), this,
        [this] { m_heard.append("clicked()"); });
    connect(m_label.data(), &cClickableLabel::hoverIn, this, [this] { m_heard.append("hoverIn()"); });
    connect(m_label.data(), &cClickableLabel::hoverOut, this, [this] { m_heard.append("hoverOut()"); });
}

void cClickableLabelTest::cleanup()
{
    m_label.reset();
}

void cClickableLabelTest::hasItsSignalsInOrder()
{
    QCOMPARE(MetaMembers::signalsOf(cClickableLabel::staticMetaObject),
        QStringList({"clicked(QPoint)", "clicked()", "hoverIn()", "hoverOut()"}));
}

void cClickableLabelTest::startsWithItsPictureAndHand()
{
    QCOMPARE(look(*m_label), Normal);
    QCOMPARE(m_label->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(m_label->sizeHint(), QSize(4, 4));
}

void cClickableLabelTest::looksLikeItsState()
{
    enter(*m_label);
    QCOMPARE(look(*m_label), Hover);
    send(*m_label, QEvent::MouseButtonPress);
    QCOMPARE(look(*m_label), Pressed);
    send(*m_label, QEvent::MouseButtonRelease);
    QCOMPARE(look(*m_label), Hover);
    leave(*m_label);
    QCOMPARE(look(*m_label), Normal);
}

void cClickableLabelTest::settersOnlyStore()
{
    m_label->setHoverPixmap(filledPicture(4, 4, Qt::yellow));
    m_label->setPressedPixmap(filledPicture(4, 4, Qt::yellow));
    QCOMPARE(look(*m_label), Normal);
    enter(*m_label);
    m_label->setHoverPixmap(filledPicture(4, 4, Qt::cyan));
    QCOMPARE(look(*m_label), QColor(Qt::yellow));
}

void cClickableLabelTest::oneSignalForEachStep()
{
    enter(*m_label);
    QCOMPARE(m_heard, QStringList({"hoverIn()"}));
    QVERIFY(!send(*m_label, QEvent::MouseButtonPress));
    QCOMPARE(m_heard.size(), 1);
    QVERIFY(send(*m_label, QEvent::MouseButtonRelease));
    QCOMPARE(m_heard.size(), 3);
    leave(*m_label);
    QCOMPARE(m_heard.size(), 4);
    QCOMPARE(m_heard.last(), QString("hoverOut()"));
}

void cClickableLabelTest::clickComesWithItsPlaceFirst()
{
    send(*m_label, QEvent::MouseButtonPress);
    send(*m_label, QEvent::MouseButtonRelease);
    QCOMPARE(m_heard, QStringList({"clicked(51,62)", "clicked()"}));
}

void cClickableLabelTest::otherButtonsDoNotClick_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void cClickableLabelTest::otherButtonsDoNotClick()
{
    QFETCH(int, button);
    QVERIFY(!send(*m_label, QEvent::MouseButtonPress, Qt::MouseButton(button)));
    QCOMPARE(look(*m_label), Normal);
    QVERIFY(send(*m_label, QEvent::MouseButtonRelease, Qt::MouseButton(button)));
    QCOMPARE(look(*m_label), Normal);
    QCOMPARE(m_heard, QStringList());
}

void cClickableLabelTest::labelWithOnePictureKeepsIt()
{
    cClickableLabel label(filledPicture(4, 4, Normal));
    const QSignalSpy in(&label, SIGNAL(hoverIn()));
    const QSignalSpy out(&label, SIGNAL(hoverOut()));
    const QSignalSpy clickedAt(&label, SIGNAL(clicked(QPoint)));
    const QSignalSpy clicked(&label, SIGNAL(clicked()));
    enter(label);
    QCOMPARE(look(label), Normal);
    send(label, QEvent::MouseButtonPress);
    QCOMPARE(look(label), Normal);
    send(label, QEvent::MouseButtonRelease);
    QCOMPARE(look(label), Normal);
    leave(label);
    QCOMPARE(look(label), Normal);
    QCOMPARE(in.size() + out.size() + clickedAt.size() + clicked.size(), 4);
}

void cClickableLabelTest::nullPictureIsHarmless()
{
    cClickableLabel label {QPixmap()};
    const QSignalSpy clicked(&label, SIGNAL(clicked()));
    enter(label);
    send(label, QEvent::MouseButtonPress);
    send(label, QEvent::MouseButtonRelease);
    leave(label);
    QCOMPARE(clicked.size(), 1);
    label.resize(5, 5);
    label.grab();
}

void cClickableLabelTest::receiverMayDeleteTheLabel()
{
    QPointer<cClickableLabel> label = new cClickableLabel(filledPicture(4, 4, Normal));
    connect(label, QOverload<const QPoint&>::of(&cClickableLabel::clicked), this, [&label] { delete label; });
    send(*label, QEvent::MouseButtonRelease);
    QVERIFY(!label);
}

VELTRANO_TEST_MAIN(cClickableLabelTest)
#include "cClickableLabelTest.moc"
