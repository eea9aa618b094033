#include "DropEvents.h"

#include <cProfileTrashcanWidget.h>
#include <DragFormats.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDragEnterEvent>
#include <QSignalSpy>

namespace {

/// The colour that the widget shows; invalid if it has no picture.
QColor shown(const cProfileTrashcanWidget& widget)
{
    const QPixmap picture = widget.pixmap(Qt::ReturnByValue);
    return picture.isNull() ? QColor() : picture.toImage().pixelColor(0, 0);
}

void send(QWidget& widget, QEvent::Type type)
{
    QEvent event(type);
    QApplication::sendEvent(&widget, &event);
}

class Trashcan : public cProfileTrashcanWidget
{
public:
    Trashcan()
        : cProfileTrashcanWidget(nullptr)
    { }

    /// Whether the drag was accepted.
    bool enter(const QMimeData* dragged)
    {
        QDragEnterEvent event(QPoint(1, 1), Qt::CopyAction, dragged, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::IgnoreAction);
        event.accept();
        dragEnterEvent(&event);
        if (event.isAccepted() != (event.dropAction() == Qt::CopyAction))
            QTest::qFail("accepted without an action, or the other way round", __FILE__, __LINE__);
        return event.isAccepted();
    }
    bool drop(const QMimeData* dragged, Qt::DropAction proposed = Qt::CopyAction)
    {
        QDropEvent event(QPointF(1, 1), proposed, dragged, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::IgnoreAction);
        dropEvent(&event);
        return event.isAccepted() && event.dropAction() == proposed;
    }
};

} // namespace

class cProfileTrashcanWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void signalsStandInTheirOrder();
    void startsWithoutPicturesAndTakesDrops();
    void hoverPictureIsShownAtOnceAndTheNormalOneIsNot();
    void picturesFollowThePointer();
    void nullPicturesAreShownAsNone();
    void dragChangesNoPicture();
    void knownFormatsAreAccepted();
    void eachFormatIsSignalled();
    void dragGoesThroughTheApplication();
    void dropOfForeignDataIsAcceptedInSilence();
};

void cProfileTrashcanWidgetTest::signalsStandInTheirOrder()
{
    const QMetaObject& meta = cProfileTrashcanWidget::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Signal);
        methods += meta.method(i).methodSignature();
    }
    QCOMPARE(methods,
        QStringList({"profilesDropped(QStringList)", "macrosDropped(QStringList)",
            "assignmentsDropped(QStringList)"}));
}

void cProfileTrashcanWidgetTest::startsWithoutPicturesAndTakesDrops()
{
    QWidget parent;
    const cProfileTrashcanWidget widget(&parent);
    QCOMPARE(widget.parentWidget(), &parent);
    QVERIFY(widget.acceptDrops());
    QVERIFY(!shown(widget).isValid());
}

void cProfileTrashcanWidgetTest::hoverPictureIsShownAtOnceAndTheNormalOneIsNot()
{
    Trashcan widget;
    widget.setNormalPixmap(filledPicture(8, 8, Qt::red));
    QVERIFY(!shown(widget).isValid());
    widget.setHoverPixmap(filledPicture(8, 8, Qt::blue));
    QCOMPARE(shown(widget), QColor(Qt::blue));
    widget.setNormalPixmap(filledPicture(8, 8, Qt::green));
    QCOMPARE(shown(widget), QColor(Qt::blue));
}

void cProfileTrashcanWidgetTest::picturesFollowThePointer()
{
    Trashcan widget;
    widget.setNormalPixmap(filledPicture(8, 8, Qt::red));
    widget.setHoverPixmap(filledPicture(8, 8, Qt::blue));
    send(widget, QEvent::Leave);
    QCOMPARE(shown(widget), QColor(Qt::red));
    send(widget, QEvent::Enter);
    QCOMPARE(shown(widget), QColor(Qt::blue));
}

void cProfileTrashcanWidgetTest::nullPicturesAreShownAsNone()
{
    Trashcan widget;
    widget.setNormalPixmap(filledPicture(8, 8, Qt::red));
    widget.setHoverPixmap(QPixmap());
    QVERIFY(!shown(widget).isValid());
    send(widget, QEvent::Leave);
    QCOMPARE(shown(widget), QColor(Qt::red));
    send(widget, QEvent::Enter);
    QVERIFY(!shown(widget).isValid());
}

void cProfileTrashcanWidgetTest::dragChangesNoPicture()
{
    Trashcan widget;
    widget.setNormalPixmap(filledPicture(8, 8, Qt::red));
    widget.setHoverPixmap(filledPicture(8, 8, Qt::blue));
    send(widget, QEvent::Leave);
    const auto data = DragFormats::makeMacros({"1"});
    widget.enter(data.get());
    QCOMPARE(shown(widget), QColor(Qt::red));
    widget.drop(data.get());
    QCOMPARE(shown(widget), QColor(Qt::red));
}

void cProfileTrashcanWidgetTest::knownFormatsAreAccepted()
{
    Trashcan widget;
    QVERIFY(widget.enter(DragFormats::makeProfiles({"1"}).get()));
    QVERIFY(widget.enter(DragFormats::makeMacros({"1", "2"}).get()));
    QVERIFY(widget.enter(DragFormats::makeAssignment({"1", "G1"}).get()));
    QMimeData text;
    text.setText("#%1%2%3");
    QVERIFY(!widget.enter(&text));
}

void cProfileTrashcanWidgetTest::eachFormatIsSignalled()
{
    Trashcan widget;
    QSignalSpy profiles(&widget, SIGNAL(profilesDropped(const QStringList&)));
    QSignalSpy macros(&widget, SIGNAL(macrosDropped(const QStringList&)));
    QSignalSpy assignments(&widget, SIGNAL(assignmentsDropped(const QStringList&)));
    QVERIFY(widget.drop(DragFormats::makeProfiles({"{1}", "{2}"}).get()));
    QVERIFY(widget.drop(DragFormats::makeMacros({"{3}"}).get()));
    QVERIFY(widget.drop(DragFormats::makeAssignment({"{4}", "G4"}).get(), Qt::MoveAction));
    QCOMPARE(profiles, QList<QVariantList>({{QStringList({"{1}", "{2}"})}}));
    QCOMPARE(macros, QList<QVariantList>({{QStringList({"{3}"})}}));
    QCOMPARE(assignments, QList<QVariantList>({{QStringList({"G4"})}}));
}

void cProfileTrashcanWidgetTest::dragGoesThroughTheApplication()
{
    Trashcan widget;
    QSignalSpy macros(&widget, SIGNAL(macrosDropped(const QStringList&)));
    const auto data = DragFormats::makeMacros({"{1}"});
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(1, 1), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(macros, QList<QVariantList>({{QStringList({"{1}"})}}));
}

void cProfileTrashcanWidgetTest::dropOfForeignDataIsAcceptedInSilence()
{
    Trashcan widget;
    QSignalSpy macros(&widget, SIGNAL(macrosDropped(const QStringList&)));
    QMimeData text;
    text.setText("{1}");
    QVERIFY(widget.drop(&text));
    QVERIFY(macros.isEmpty());
}

VELTRANO_TEST_MAIN(cProfileTrashcanWidgetTest)
#include "cProfileTrashcanWidgetTest.moc"
