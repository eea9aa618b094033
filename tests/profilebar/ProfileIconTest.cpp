#include "Tile.h"

#include <FileChoice.h>
#include <IconFiles.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

/// The icon that a user chooses for a profile.
class ProfileIconTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictureIsCutToAnIcon_data();
    void pictureIsCutToAnIcon();
    void iconDialog_data();
    void iconDialog();
    void fileThatIsNoPicture();
    void iconOfAProgram();
    void tileThatGoesDuringTheDialog();
};

void ProfileIconTest::pictureIsCutToAnIcon_data()
{
    QTest::addColumn<QSize>("size");
    // The square that is left of the source.
    QTest::addColumn<QRect>("square");
    QTest::newRow("square") << QSize(96, 96) << QRect(0, 0, 96, 96);
    QTest::newRow("as it should be") << QSize(48, 48) << QRect(0, 0, 48, 48);
    QTest::newRow("one pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
    QTest::newRow("wide") << QSize(192, 96) << QRect(48, 0, 96, 96);
    QTest::newRow("tall") << QSize(96, 192) << QRect(0, 48, 96, 96);
    QTest::newRow("odd and wide") << QSize(51, 48) << QRect(1, 0, 48, 48);
    QTest::newRow("odd and tall") << QSize(48, 51) << QRect(0, 1, 48, 48);
    QTest::newRow("a line") << QSize(100, 1) << QRect(49, 0, 1, 1);
    QTest::newRow("a column") << QSize(1, 101) << QRect(0, 50, 1, 1);
}

void ProfileIconTest::pictureIsCutToAnIcon()
{
    QFETCH(QSize, size);
    QFETCH(QRect, square);
    Tile tile;
    QTemporaryDir folder;
    // Each pixel tells its place.
    QImage source(size, QImage::Format_ARGB32);
    for (int x = 0; x < size.width(); ++x) {
        for (int y = 0; y < size.height(); ++y)
            source.setPixelColor(x, y, QColor(x, y, 100, 255));
    }
    const QString path = folder.filePath("picture.png");
    QVERIFY(source.save(path));
    QImage icon;
    tile.host.host.answer("setProfileIcon",
        [&](const RecordedCall& call) { icon = call.values[1].value<QPixmap>().toImage(); });
    FileChoice choice(path);
    QVERIFY(QMetaObject::invokeMethod(&tile.item, "onChooseIcon"));
    QCOMPARE(icon.size(), QSize(48, 48));
    for (const QPoint& pixel : {QPoint(0, 0), QPoint(47, 47), QPoint(24, 24)}) {
        const QColor color = icon.pixelColor(pixel);
        const int x = square.x() + pixel.x() * square.width() / 48;
        const int y = square.y() + pixel.y() * square.height() / 48;
        QVERIFY2(
            qAbs(color.red() - x) <= square.width() / 48 && qAbs(color.green() - y) <= square.height() / 48,
            qPrintable(QString("%1,%2 instead of %3,%4").arg(color.red()).arg(color.green()).arg(x).arg(y)));
        QCOMPARE(color.blue(), 100);
    }
    // The tile waits for the host's event.
    QVERIFY(isFilled(tile.item.icon().toImage(), QRect(0, 0, 48, 48), TilePictures::Icon));
}

void ProfileIconTest::iconDialog_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("startsAtTarget");
    QTest::newRow("no target") << "" << false;
    QTest::newRow("target") << "game.exe" << true;
    QTest::newRow("target that is gone, in a folder that is there") << "gone.exe" << true;
    QTest::newRow("folder that is gone") << "gone/game.exe" << false;
}

void ProfileIconTest::iconDialog()
{
    QFETCH(QString, target);
    QFETCH(bool, startsAtTarget);
    QTemporaryDir folder;
    QFile file(folder.filePath("game.exe"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Tile tile;
    if (!target.isEmpty())
        tile.item.setTarget(folder.filePath(target));
    FileChoice cancelled((QString()));
    QMetaObject::invokeMethod(&tile.item, "onChooseIcon");
    QVERIFY(cancelled.hasRun());
    QCOMPARE(cancelled.title, QString("Choose Icon..."));
    QVERIFY(!cancelled.hasParent);
    QCOMPARE(cancelled.filters, QStringList({"Images (*.png *.bmp *.jpg *.jpeg)", "All Files (*)"}));
    QCOMPARE(cancelled.filter, cancelled.filters[startsAtTarget ? 1 : 0]);
    QCOMPARE(QDir(cancelled.folder) == QDir(folder.path()), startsAtTarget);
    QCOMPARE(tile.host.host.takeCalls(), QStringList());
}

void ProfileIconTest::fileThatIsNoPicture()
{
    QTemporaryDir folder;
    Tile tile;
    for (const QByteArray& content :
        {QByteArray("no picture"), QByteArray(), QByteArray("\x89PNG\r\n\x1a\n broken")}) {
        const QString path = folder.filePath("100% %1.png");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        FileChoice choice(path);
        QMetaObject::invokeMethod(&tile.item, "onChooseIcon");
        QCOMPARE(tile.host.host.takeCalls(),
            QStringList(QString("warning(\"Choose Icon...\", \"%1\nVeltrano Gaming Software cannot read this "
                                "file.\nThis is not a valid image file, or its format is not currently "
                                "supported.\")")
                            .replace("%1", path)));
    }
}

void ProfileIconTest::iconOfAProgram()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("game.exe");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(IconFiles::executable({{{64, Qt::green}}}));
    file.close();
    Tile tile;
    FileChoice choice(path);
    QMetaObject::invokeMethod(&tile.item, "onChooseIcon");
    QCOMPARE(tile.host.host.takeCalls(), QStringList(R"(setProfileIcon("{id}", 48x48))"));
}

void ProfileIconTest::tileThatGoesDuringTheDialog()
{
    ProfileHost on;
    auto tile = std::make_unique<cProfileItem>("{id}", "Alpha", QPixmap());
    on.clear();
    QTemporaryDir folder;
    const QString path = folder.filePath("picture.png");
    QVERIFY(filledPicture(48, 48, Qt::red).save(path));
    const DialogDriver driver([&](QDialog& dialog) {
        tile.reset();
        FileChoice::give(dialog, path);
    });
    QMetaObject::invokeMethod(tile.get(), "onChooseIcon");
    QVERIFY(driver.hasRun());
    QCOMPARE(on.host.takeCalls(), QStringList());
}

VELTRANO_TEST_MAIN(ProfileIconTest)
#include "ProfileIconTest.moc"
