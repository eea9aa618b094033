#include "DeviceBar.h"

#include "AppConstants.h"
#include "DeviceButton.h"
#include "FeatureViewButton.h"

#include <DeviceFolder.h>
#include <HostDevice.h>
#include <TestCase.h>

#include <QSignalSpy>
#include <QTemporaryDir>

/// The bar and its buttons.
class DeviceBarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void devicesHaveNameAndIcon();
    void clickChoosesADevice();
    void markingChoosesNothing();
    void focusFollowsTheMark();
    void arrowKeysChooseTheNeighbour();
    void tabReachesDevicesAndViews();
    void viewButtonAsksAndKeepsItsMark();
    void viewIconFollowsTheState();
    void missingIconsShowTheInitial();
    void statesDiffer();
    void manyDevicesScrollWithTheFocus();
    void sameViewsKeepTheirButtons();

private:
    static cJsonValue viewInfos(const QString& folder);
    static QImage picture(QWidget& widget) { return widget.grab().toImage(); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<DeviceBar> m_bar;
    QList<QSharedPointer<HostDevice>> m_devices;
};

void DeviceBarTest::init()
{
    m_folder.reset(new QTemporaryDir);
    m_devices.clear();
    for (const char* name : {"Alpha", "Beta", "Gamma"}) {
        DeviceFolder::make(m_folder->path(), name);
        QDir::setSearchPaths(name, {m_folder->filePath(name)});
        m_devices.append(QSharedPointer<HostDevice>::create(m_folder->filePath(name)));
    }
    m_bar.reset(new DeviceBar);
    m_bar->setDevices(m_devices);
    m_bar->setViews(viewInfos(m_folder->path()));
    m_bar->resize(900, AppConstants::DeviceBarHeight);
    m_bar->show();
    m_bar->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_bar.get()));
}

void DeviceBarTest::cleanup()
{
    m_bar.reset();
}

cJsonValue DeviceBarTest::viewInfos(const QString& folder)
{
    cJsonValue info;
    info["view_id"] = "v1";
    info["tooltip"] = "First view";
    for (const auto& [key, color] :
        {std::pair("on", Qt::red), std::pair("off", Qt::green), std::pair("hover", Qt::blue)}) {
        QPixmap icon(32, 32);
        icon.fill(color);
        const QString path = QStringLiteral("%1/icon_%2.png").arg(folder, key);
        icon.save(path);
        info[QStringLiteral("icon_%1_path").arg(key)] = path;
    }
    return cJsonValue().append(info);
}

void DeviceBarTest::devicesHaveNameAndIcon()
{
    QCOMPARE(m_bar->deviceButtons().size(), 3);
    const DeviceButton* const button = m_bar->deviceButtons().constFirst();
    QCOMPARE(button->text(), QString("Alpha"));
    QCOMPARE(button->accessibleName(), QString("The Alpha"));
    QCOMPARE(button->toolTip(), QString("The Alpha"));
    QCOMPARE(button->model(), QString("Test.Alpha"));
    // The icon is twice as wide as high and centred in its box.
    const QImage image = picture(*m_bar->deviceButtons().constFirst());
    const QPoint center(
        AppConstants::BarButtonPadding + AppConstants::DeviceIconSize / 2, image.height() / 2);
    QCOMPARE(image.pixelColor(center), QColor(Qt::darkCyan));
    QVERIFY(image.pixelColor(center - QPoint(0, 14)) != QColor(Qt::darkCyan));
}

void DeviceBarTest::clickChoosesADevice()
{
    QSignalSpy chosen(m_bar.get(), SIGNAL(deviceChosen(QString)));
    QTest::mouseClick(m_bar->deviceButtons().at(1), Qt::LeftButton);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.constFirst().constFirst().toString(), QString("Test.Beta"));
    QTest::mouseClick(m_bar->deviceButtons().at(1), Qt::LeftButton);
    QCOMPARE(chosen.size(), 1);
}

void DeviceBarTest::markingChoosesNothing()
{
    const QSignalSpy chosen(m_bar.get(), SIGNAL(deviceChosen(QString)));
    m_bar->setActiveDevice("Test.Gamma");
    m_bar->setActiveDevice("Test.Beta");
    m_bar->setActiveDevice("unknown");
    QCOMPARE(chosen.size(), 0);
    QVERIFY(m_bar->deviceButtons().at(1)->isChecked());
    QVERIFY(!m_bar->deviceButtons().at(2)->isChecked());
}

void DeviceBarTest::focusFollowsTheMark()
{
    m_bar->setActiveDevice("Test.Alpha");
    m_bar->focusActiveDevice();
    m_bar->setActiveDevice("Test.Gamma");
    QCOMPARE(m_bar->focusWidget(), m_bar->deviceButtons().at(2));
    m_bar->viewButtons().constFirst()->setFocus();
    m_bar->setActiveDevice("Test.Beta");
    QCOMPARE(m_bar->focusWidget(), m_bar->viewButtons().constFirst());
}

void DeviceBarTest::arrowKeysChooseTheNeighbour()
{
    QSignalSpy chosen(m_bar.get(), SIGNAL(deviceChosen(QString)));
    m_bar->setActiveDevice("Test.Alpha");
    m_bar->focusActiveDevice();
    QTest::keyClick(m_bar->focusWidget(), Qt::Key_Right);
    QTest::keyClick(m_bar->focusWidget(), Qt::Key_Right);
    QTest::keyClick(m_bar->focusWidget(), Qt::Key_Left);
    QStringList models;
    for (const QList<QVariant>& arguments : qAsConst(chosen))
        models.append(arguments.constFirst().toString());
    QCOMPARE(models, QStringList({"Test.Beta", "Test.Gamma", "Test.Beta"}));
}

void DeviceBarTest::tabReachesDevicesAndViews()
{
    m_bar->setActiveDevice("Test.Beta");
    m_bar->focusActiveDevice();
    QCOMPARE(m_bar->focusWidget(), m_bar->deviceButtons().at(1));
    QTest::keyClick(m_bar->focusWidget(), Qt::Key_Tab);
    QCOMPARE(m_bar->focusWidget(), m_bar->viewButtons().constFirst());
    QTest::keyClick(m_bar->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(m_bar->focusWidget(), m_bar->deviceButtons().at(1));
}

void DeviceBarTest::viewButtonAsksAndKeepsItsMark()
{
    QSignalSpy toggled(m_bar.get(), SIGNAL(viewToggled(QString)));
    FeatureViewButton* const button = m_bar->viewButtons().constFirst();
    QCOMPARE(button->toolTip(), QString("First view"));
    QCOMPARE(button->accessibleName(), QString("First view"));
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(toggled.size(), 2);
    QCOMPARE(toggled.constFirst().constFirst().toString(), QString("v1"));
    QVERIFY(!button->isChecked());
    m_bar->setWantedView("v1");
    QVERIFY(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->isChecked());
    m_bar->setWantedView(QString());
    QVERIFY(!button->isChecked());
}

void DeviceBarTest::viewIconFollowsTheState()
{
    FeatureViewButton* const button = m_bar->viewButtons().constFirst();
    const auto iconColor = [&] {
        return picture(*button).pixelColor(
            AppConstants::BarButtonPadding + AppConstants::ViewIconSize / 2, button->height() / 2);
    };
    QCOMPARE(iconColor(), QColor(Qt::green));
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(button, &enter);
    QCOMPARE(iconColor(), QColor(Qt::blue));
    m_bar->setWantedView("v1");
    QCOMPARE(iconColor(), QColor(Qt::red));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    QCOMPARE(iconColor(), QColor(Qt::red));
}

void DeviceBarTest::missingIconsShowTheInitial()
{
    cJsonValue info;
    info["view_id"] = "v2";
    info["tooltip"] = "Zebra";
    FeatureViewButton button(info);
    cJsonValue otherInfo = info;
    otherInfo["tooltip"] = "Yebra";
    FeatureViewButton other(otherInfo);
    button.resize(button.sizeHint());
    other.resize(button.sizeHint());
    const QRect iconBox(0, 0, AppConstants::BarButtonPadding + AppConstants::ViewIconSize, button.height());
    QVERIFY(picture(button).copy(iconBox) != picture(other).copy(iconBox));
}

void DeviceBarTest::statesDiffer()
{
    DeviceButton* const button = m_bar->deviceButtons().constFirst();
    m_bar->viewButtons().constFirst()->setFocus();
    const QImage normal = picture(*button).convertToFormat(QImage::Format_Grayscale8);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(button, &enter);
    const QImage hover = picture(*button).convertToFormat(QImage::Format_Grayscale8);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    m_bar->setActiveDevice(button->model());
    const QImage selected = picture(*button).convertToFormat(QImage::Format_Grayscale8);
    button->setFocus();
    const QImage focused = picture(*button).convertToFormat(QImage::Format_Grayscale8);
    const QList<QImage> images {normal, hover, selected, focused};
    for (int i = 0; i < images.size(); ++i) {
        for (int j = i + 1; j < images.size(); ++j)
            QVERIFY2(images[i] != images[j], qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
    }
}

void DeviceBarTest::manyDevicesScrollWithTheFocus()
{
    QList<QSharedPointer<HostDevice>> devices;
    for (int i = 0; i < 30; ++i) {
        const QString name = QStringLiteral("Device%1").arg(i);
        DeviceFolder::make(m_folder->path(), name);
        devices.append(QSharedPointer<HostDevice>::create(m_folder->filePath(name)));
    }
    m_bar->setDevices(devices);
    QVERIFY(m_bar->minimumSizeHint().width() < 900);
    QCoreApplication::processEvents();
    m_bar->setActiveDevice(devices.constLast()->model());
    m_bar->focusActiveDevice();
    const QWidget* const last = m_bar->deviceButtons().constLast();
    QTRY_VERIFY(m_bar->rect().contains(QRect(last->mapTo(m_bar.get(), QPoint(0, 0)), last->size())));
}

void DeviceBarTest::sameViewsKeepTheirButtons()
{
    FeatureViewButton* const button = m_bar->viewButtons().constFirst();
    m_bar->setViews(viewInfos(m_folder->path()));
    QCOMPARE(m_bar->viewButtons().constFirst(), button);
    m_bar->setViews(cJsonValue(cJsonValue::arrayValue));
    QCOMPARE(m_bar->viewButtons().size(), 0);
    QVERIFY(!button->isVisible());
}

VELTRANO_TEST_MAIN(DeviceBarTest)
#include "DeviceBarTest.moc"
