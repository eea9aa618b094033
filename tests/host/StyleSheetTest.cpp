#include <RealLook.h>
#include <TestCase.h>

#include <QDir>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace {

using Maker = std::function<QWidget*()>;

QImage pictureOf(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

template<typename Widget>
Maker withText()
{
    return [] {
        auto* const widget = new Widget;
        widget->setObjectName("widget");
        if constexpr (std::is_same_v<Widget, QGroupBox>)
            widget->setTitle("Title");
        else
            widget->setText("Text");
        return widget;
    };
}

template<typename Widget>
Maker plain()
{
    return [] {
        return new Widget;
    };
}

QWidget* makeList()
{
    auto* const list = new QListWidget;
    list->addItems({"First", "Second"});
    list->item(0)->setSelected(true);
    return list;
}

} // namespace

Q_DECLARE_METATYPE(Maker)

/// The style sheet of the application: each kind of widget that plug-ins and the host name gets a look of its
/// own.
class StyleSheetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void kindHasALookOfItsOwn_data();
    void kindHasALookOfItsOwn();
    void framesFillThemselvesWithBlack();
    void horizontalScrollBarIsTransparent();
    void kindsAreToldApart();
};

void StyleSheetTest::initTestCase()
{
    TestCase::initTestCase();
    QVERIFY(applyRealLook(QStringLiteral(SHARE_FOLDER)));
}

void StyleSheetTest::cleanupTestCase()
{
    qApp->setStyleSheet(QString());
    TestCase::cleanupTestCase();
}

void StyleSheetTest::kindHasALookOfItsOwn_data()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("MacroOrProfileList") << Maker(makeList);
    QTest::newRow("PanelTitle") << withText<QLabel>();
    QTest::newRow("MacroTypeIcon") << plain<QFrame>();
    QTest::newRow("MacroTypeIconList") << plain<QFrame>();
    QTest::newRow("grayButton") << withText<QPushButton>();
    QTest::newRow("acceptbutton") << withText<QPushButton>();
    QTest::newRow("meBackground") << plain<QWidget>();
    QTest::newRow("meForm") << plain<QWidget>();
    QTest::newRow("meNameLabel") << withText<QLabel>();
    QTest::newRow("meMessage") << withText<QLabel>();
    QTest::newRow("meLineEdit") << withText<QLineEdit>();
    QTest::newRow("DialogTitle") << withText<QLabel>();
    QTest::newRow("GroupBoxTitleWhite") << withText<QGroupBox>();
}

void StyleSheetTest::kindHasALookOfItsOwn()
{
    QFETCH(Maker, make);
    const auto picture = [&](const QString& kind) {
        const std::unique_ptr<QWidget> widget(make());
        widget->setProperty("uiType", kind);
        widget->resize(160, 60);
        return pictureOf(*widget);
    };
    const QImage ordinary = picture(QString());
    QCOMPARE(picture("no such kind"), ordinary);
    QVERIFY(picture(QTest::currentDataTag()) != ordinary);
}

void StyleSheetTest::framesFillThemselvesWithBlack()
{
    QFrame frame;
    frame.setAutoFillBackground(true);
    frame.resize(20, 20);
    QCOMPARE(pictureOf(frame).pixelColor(10, 10), QColor(Qt::black));
}

void StyleSheetTest::horizontalScrollBarIsTransparent()
{
    QFrame frame;
    frame.setAutoFillBackground(true);
    QScrollBar bar(Qt::Horizontal, &frame);
    bar.setRange(0, 10000);
    bar.resize(200, 10);
    frame.resize(200, 10);
    // Right of the handle, which is short.
    QCOMPARE(pictureOf(frame).pixelColor(150, 5), QColor(Qt::black));
}

/// All of them side by side, as the one who draws them looks at them.
void StyleSheetTest::kindsAreToldApart()
{
    QWidget sheet;
    sheet.setAutoFillBackground(true);
    auto* const layout = new QVBoxLayout(&sheet);
    const auto add = [&](QWidget* widget, const char* kind, int height) {
        widget->setProperty("uiType", kind);
        widget->setFixedHeight(height);
        layout->addWidget(widget);
    };
    for (const char* kind : {"PanelTitle", "DialogTitle", "meNameLabel", "meMessage"})
        add(new QLabel(kind), kind, 24);
    add(new QLineEdit("meLineEdit"), "meLineEdit", 30);
    add(new QGroupBox("GroupBoxTitleWhite"), "GroupBoxTitleWhite", 50);
    auto* const accept = new QPushButton("acceptbutton");
    add(accept, "acceptbutton", 32);
    auto* const gray = new QPushButton("grayButton");
    add(gray, "grayButton", 32);
    auto* const disabled = new QPushButton("acceptbutton");
    disabled->setEnabled(false);
    add(disabled, "acceptbutton", 32);
    add(makeList(), "MacroOrProfileList", 50);
    add(new QFrame, "MacroTypeIcon", 40);
    add(new QFrame, "MacroTypeIconList", 40);
    sheet.resize(300, sheet.sizeHint().height());
    QVERIFY(QDir().mkpath(QStringLiteral(PICTURES_FOLDER)));
    QVERIFY(pictureOf(sheet).save(QStringLiteral(PICTURES_FOLDER "/style-kinds.png")));
    const auto fill = [](QWidget* button) {
        const QImage picture = pictureOf(*button);
        return picture.pixelColor(10, picture.height() / 2);
    };
    QVERIFY(fill(accept).green() > fill(gray).green() + 20);
    QVERIFY(fill(disabled) != fill(accept));
}

VELTRANO_TEST_MAIN(StyleSheetTest)
#include "StyleSheetTest.moc"
