#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <TestCase.h>

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

/// When the profile is offered to be written to its device, and when it is being written.
class ViewSyncButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void syncButtonOfAProfile_data();
    void syncButtonOfAProfile();
    void busyDeviceRunsTheSyncButton_data();
    void busyDeviceRunsTheSyncButton();
    void idleDeviceHidesTheSyncButton();
    void pointerShowsThePictureUnlessTheDeviceIsBusy();
    void syncIsAskedForTheBoundDevice();
};

void ViewSyncButtonTest::syncButtonOfAProfile_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<bool>("isDirty");
    QTest::addColumn<bool>("isBusy");
    QTest::addColumn<bool>("isShown");
    QTest::addColumn<bool>("isRunning");
    QTest::newRow("on no device") << "" << false << false << false << false;
    QTest::newRow("on no device, dirty and busy") << "" << true << true << false << false;
    QTest::newRow("clean") << "{D}" << false << false << false << false;
    QTest::newRow("dirty") << "{D}" << true << false << true << false;
    QTest::newRow("busy") << "{D}" << false << true << true << true;
    QTest::newRow("dirty and busy") << "{D}" << true << true << true << true;
}

void ViewSyncButtonTest::syncButtonOfAProfile()
{
    QFETCH(QString, device);
    QFETCH(bool, isDirty);
    QFETCH(bool, isBusy);
    QFETCH(bool, isShown);
    QFETCH(bool, isRunning);
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = device;
    fixture.isDirty = isDirty;
    fixture.isBusy = isBusy;
    fixture.syncButton()->setFrame(4);
    fixture.showProfile("{P}");
    QCOMPARE(!fixture.syncButton()->isHidden(), isShown);
    QCOMPARE(fixture.syncButton()->isRunning(), isRunning);
    QCOMPARE(fixture.syncButton()->currentFrame(), isRunning ? 0 : 4);
    // The next profile is on no device.
    fixture.boundDevice.clear();
    fixture.showProfile("{Q}");
    QVERIFY(fixture.syncButton()->isHidden());
}

void ViewSyncButtonTest::busyDeviceRunsTheSyncButton_data()
{
    QTest::addColumn<QString>("bound");
    QTest::addColumn<QString>("busy");
    QTest::addColumn<bool>("runs");
    QTest::newRow("the bound one") << "{D}"
                                   << "{D}" << true;
    QTest::newRow("another one") << "{D}"
                                 << "{E}" << false;
    QTest::newRow("none bound") << ""
                                << "{D}" << false;
    QTest::newRow("none bound, none named") << ""
                                            << "" << true;
}

void ViewSyncButtonTest::busyDeviceRunsTheSyncButton()
{
    QFETCH(QString, bound);
    QFETCH(QString, busy);
    QFETCH(bool, runs);
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = bound;
    fixture.showProfile("{P}");
    fixture.syncButton()->setFrame(4);
    fixture.host.publishProfilesToGoDeviceBusy("any name", busy);
    QCOMPARE(fixture.syncButton()->isRunning(), runs);
    QCOMPARE(fixture.syncButton()->currentFrame(), runs ? 0 : 4);
    QVERIFY(fixture.syncButton()->isHidden());
}

void ViewSyncButtonTest::idleDeviceHidesTheSyncButton()
{
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = "{D}";
    fixture.isDirty = true;
    fixture.showProfile("{P}");
    fixture.host.publishProfilesToGoDeviceBusy("", "{D}");
    fixture.syncButton()->setFrame(4);
    fixture.host.publishProfilesToGoDeviceIdle("{E}");
    QVERIFY(fixture.syncButton()->isRunning());
    fixture.host.publishProfilesToGoDeviceIdle("{D}");
    QVERIFY(!fixture.syncButton()->isRunning());
    QVERIFY(fixture.syncButton()->isHidden());
    QVERIFY(!fixture.syncButton()->isEnabled());
    QCOMPARE(fixture.syncButton()->currentFrame(), 0);
}

void ViewSyncButtonTest::pointerShowsThePictureUnlessTheDeviceIsBusy()
{
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = "{D}";
    fixture.isDirty = true;
    fixture.showProfile("{P}");
    const QPixmap picture("MacroBindingView:Resources/images/sync_button_hover.png");
    QVERIFY(!picture.isNull());
    QImage hovered(29, 29, QImage::Format_ARGB32_Premultiplied);
    hovered.fill(fixture.syncButton()->palette().color(QPalette::Window));
    QPainter(&hovered).drawPixmap(0, 0, picture);
    const auto shown = [&fixture] {
        QImage image(29, 29, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        fixture.syncButton()->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    };
    QVERIFY(shown() != hovered);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(fixture.syncButton(), &enter);
    QCOMPARE(shown(), hovered);
    fixture.host.publishProfilesToGoDeviceBusy("", "{D}");
    QVERIFY(shown() != hovered);
    fixture.host.publishProfilesToGoDeviceIdle("{D}");
    QCOMPARE(shown(), hovered);
}

void ViewSyncButtonTest::syncIsAskedForTheBoundDevice()
{
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = "{D}";
    fixture.showProfile("{P}");
    QVERIFY(fixture.call("onForceProfilesToGoSync"));
    QCOMPARE(fixture.host.takeCalls(), QStringList(R"(commitDevice("{D}"))"));
}

VELTRANO_TEST_MAIN(ViewSyncButtonTest)
#include "ViewSyncButtonTest.moc"
