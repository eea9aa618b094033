#include <ImageWidget.h>
#include <MetaMembers.h>
#include <TestCase.h>

#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

/// Hears what its children leave to it.
class Parent : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

} // namespace

class ImageWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void hasOneSignal();
    void nullPathLoadsNothing();
    void pictureGivesTheSizes();
    void unreadablePictureLeavesTheWidgetEmpty();
    void anotherPictureReplacesTheFirst();
    void everyButtonIsReportedAndEndsHere_data();
    void everyButtonIsReportedAndEndsHere();
    void pictureStandsInTheMiddle_data();
    void pictureStandsInTheMiddle();

private:
    QString picture(int width, int height) const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void ImageWidgetTest::init()
{
    m_folder.reset(new QTemporaryDir);
}

QString ImageWidgetTest::picture(int width, int height) const
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString path = m_folder->filePath(QStringLiteral("%1x%2.png").arg(width).arg(height));
    image.save(path);
    return path;
}

void ImageWidgetTest::hasOneSignal()
{
    QCOMPARE(MetaMembers::signalsOf(ImageWidget::staticMetaObject), QStringList({"MouseClicked()"}));
    QCOMPARE(MetaMembers::slotsOf(ImageWidget::staticMetaObject), QStringList());
}

void ImageWidgetTest::nullPathLoadsNothing()
{
    const ImageWidget widget {QString()};
    QCOMPARE(widget.sizeHint(), QWidget().sizeHint());
    QCOMPARE(widget.minimumSize(), QSize(0, 0));
    QCOMPARE(widget.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(widget.parentWidget(), nullptr);
    QCOMPARE(widget.windowFlags(), QWidget().windowFlags());
}

void ImageWidgetTest::pictureGivesTheSizes()
{
    QWidget parent;
    const ImageWidget widget(picture(30, 20), &parent);
    QCOMPARE(widget.parentWidget(), &parent);
    QCOMPARE(widget.sizeHint(), QSize(30, 20));
    QCOMPARE(widget.minimumSize(), QSize(30, 20));
    QCOMPARE(widget.cursor().shape(), Qt::ArrowCursor);
}

void ImageWidgetTest::unreadablePictureLeavesTheWidgetEmpty()
{
    ImageWidget widget(m_folder->filePath("missing.png"));
    QCOMPARE(widget.sizeHint(), QWidget().sizeHint());
    QCOMPARE(widget.minimumSize(), QSize(0, 0));
    // An empty path is none that is null, and there is nothing under it either.
    const ExpectedMessage nameless(QtWarningMsg, "QFSFileEngine::open: No file name specified");
    const ImageWidget empty {QStringLiteral("")};
    QCOMPARE(empty.sizeHint(), QWidget().sizeHint());

    widget.load(picture(4, 4));
    QCOMPARE(widget.sizeHint(), QSize(4, 4));
    widget.load(m_folder->filePath("missing.png"));
    QCOMPARE(widget.sizeHint(), QWidget().sizeHint());
}

void ImageWidgetTest::anotherPictureReplacesTheFirst()
{
    ImageWidget widget(picture(30, 20));
    widget.load(picture(10, 40));
    QCOMPARE(widget.sizeHint(), QSize(10, 40));
    QCOMPARE(widget.minimumSize(), QSize(10, 40));
}

void ImageWidgetTest::everyButtonIsReportedAndEndsHere_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void ImageWidgetTest::everyButtonIsReportedAndEndsHere()
{
    QFETCH(int, button);
    Parent parent;
    ImageWidget widget(picture(30, 20), &parent);
    QSignalSpy clicks(&widget, SIGNAL(MouseClicked()));
    QTest::mousePress(&widget, Qt::MouseButton(button));
    QCOMPARE(clicks.size(), 1);
    QTest::mouseRelease(&widget, Qt::MouseButton(button));
    QCOMPARE(clicks.size(), 1);
    QCOMPARE(parent.presses, 0);
}

void ImageWidgetTest::pictureStandsInTheMiddle_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("widget");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("same size") << QSize(30, 20) << QSize(30, 20) << QPoint(0, 0);
    QTest::newRow("even margins") << QSize(30, 20) << QSize(50, 40) << QPoint(10, 10);
    QTest::newRow("odd margins") << QSize(30, 20) << QSize(33, 27) << QPoint(1, 3);
    // Halves of what is missing lose their fraction as well: 3 and 5 pixels too few.
    QTest::newRow("too small") << QSize(13, 15) << QSize(10, 10) << QPoint(-1, -2);
}

void ImageWidgetTest::pictureStandsInTheMiddle()
{
    QFETCH(QSize, picture);
    QFETCH(QSize, widget);
    QFETCH(QPoint, corner);
    ImageWidget imageWidget(this->picture(picture.width(), picture.height()));
    imageWidget.setMinimumSize(0, 0);
    imageWidget.resize(widget);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    imageWidget.setPalette(palette);
    const QImage image = imageWidget.grab().toImage();
    const QRect expected = QRect(corner, picture).intersected(image.rect());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixelColor(x, y) == QColor(Qt::red), expected.contains(x, y));
    }
}

VELTRANO_TEST_MAIN(ImageWidgetTest)
#include "ImageWidgetTest.moc"
