#include "CommandEditorTestCase.h"

#include <cMacroTypeIconItem.h>
#include <cMacroTypeIconList.h>
#include <FixedIds.h>
#include <MetaMembers.h>
#include <PaintCount.h>
#include <ServiceNames.h>

#include <QSignalSpy>
#include <QVBoxLayout>

using namespace TestIds;

class cMacroTypeIconListTest : public CommandEditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembers();
    void showsTypesInOrderWithoutPrivateOnes();
    void hasItsLook();
    void hasNoItemForAMissingType();
    void isEmptyWithoutTheService();
    void placeIsChosenOnce();
    void placeOutsideIsIgnored_data();
    void placeOutsideIsIgnored();
    void typeIsChosenById();
    void unknownIdChoosesNothing();
    void placeIsFoundById_data();
    void placeIsFoundById();
    void clickLeavesTheStoredPlaceBehind();
    void arrowKeysChoose_data();
    void arrowKeysChoose();
    void focusIsSeen();
    void nameIsNeverClipped_data();
    void nameIsNeverClipped();

private:
    /// Places of the highlighted items.
    static QList<int> highlighted(const cMacroTypeIconList& list)
    {
        QList<int> places;
        const auto items = list.findChildren<cMacroTypeIconItem*>();
        for (int i = 0; i < items.size(); ++i) {
            if (items[i]->isHighlighted())
                places << i;
        }
        return places;
    }
    /// What was sent since the last take.
    static QList<int> take(QSignalSpy& spy)
    {
        QList<int> places;
        while (!spy.isEmpty())
            places << spy.takeFirst().constFirst().toInt();
        return places;
    }
};

void cMacroTypeIconListTest::hasItsMembers()
{
    const QMetaObject& type = cMacroTypeIconList::staticMetaObject;
    QCOMPARE(type.superClass(), &QFrame::staticMetaObject);
    QCOMPARE(MetaMembers::signalsOf(type), QStringList({"macroTypeSelected(int)"}));
    QCOMPARE(MetaMembers::slotsOf(type), QStringList({"onMacroTypeItemClicked(QString)"}));
    QCOMPARE(type.method(type.indexOfSlot("onMacroTypeItemClicked(QString)")).access(), QMetaMethod::Private);
}

void cMacroTypeIconListTest::showsTypesInOrderWithoutPrivateOnes()
{
    const cMacroTypeIconList list;
    QCOMPARE(takeLog(), QStringList({"getAllMacroTypes()"}));
    QStringList ids;
    for (const cMacroTypeIconItem* item : list.findChildren<cMacroTypeIconItem*>())
        ids << item->macroTypeID();
    QCOMPARE(ids, QStringList({Keys, Text, MacroNamespaces::Media}));
    QCOMPARE(list.count(), 3);
    QCOMPARE(highlighted(list), QList<int>());
}

void cMacroTypeIconListTest::hasItsLook()
{
    const cMacroTypeIconList list;
    QCOMPARE(list.accessibleName(), QString("Command types"));
    QCOMPARE(list.focusPolicy(), Qt::TabFocus);
    QCOMPARE(list.property("uiType").toString(), QString("MacroTypeIconList"));
    QCOMPARE(list.styleSheet(),
        QString("QWidget {background: transparent;}QFrame[uiType=\"MacroTypeIconList\"] {border-image: "
                "url(MainApp:/Resources/images/sprite_panel.png) 14 14 14 14;border-top: 14px "
                "transparent;border-bottom: 14px transparent;border-right: 14px transparent;border-left: "
                "14px transparent}"));
    const auto* const layout = qobject_cast<QVBoxLayout*>(list.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(10, 10, 10, 10));
    QCOMPARE(layout->spacing(), 10);
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->stretch(3), 1);
    QVERIFY(layout->itemAt(3)->spacerItem());
}

void cMacroTypeIconListTest::hasNoItemForAMissingType()
{
    const IMacroTypePtrList types = host().types();
    host().setTypes({cMacroTypePtr(), types[0], cMacroTypePtr()});
    const cMacroTypeIconList list;
    QCOMPARE(list.count(), 1);
}

void cMacroTypeIconListTest::isEmptyWithoutTheService()
{
    host().remove(ServiceNames::MacroTypeMgr);
    const ExpectedMessage message(
        QtCriticalMsg, "Failed to call 'getAllMacroTypes' on service Profiler.MacroTypeMgr");
    cMacroTypeIconList list;
    QCOMPARE(list.count(), 0);
    list.setCurrentIndex(0);
    list.show();
    list.setFocus();
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&list, key);
    QCOMPARE(highlighted(list), QList<int>());
}

void cMacroTypeIconListTest::placeIsChosenOnce()
{
    cMacroTypeIconList list;
    QSignalSpy spy(&list, SIGNAL(macroTypeSelected(int)));
    list.setCurrentIndex(1);
    QCOMPARE(take(spy), QList<int>({1}));
    QCOMPARE(highlighted(list), QList<int>({1}));
    list.setCurrentIndex(1);
    QCOMPARE(take(spy), QList<int>());
    list.setCurrentIndex(0);
    QCOMPARE(take(spy), QList<int>({0}));
    QCOMPARE(highlighted(list), QList<int>({0}));
}

void cMacroTypeIconListTest::placeOutsideIsIgnored_data()
{
    QTest::addColumn<int>("place");
    for (int place : {-2, -1, 3, 100})
        QTest::newRow(qPrintable(QString::number(place))) << place;
}

void cMacroTypeIconListTest::placeOutsideIsIgnored()
{
    QFETCH(int, place);
    cMacroTypeIconList list;
    list.setCurrentIndex(2);
    QSignalSpy spy(&list, SIGNAL(macroTypeSelected(int)));
    list.setCurrentIndex(place);
    QCOMPARE(take(spy), QList<int>());
    QCOMPARE(highlighted(list), QList<int>({2}));
}

void cMacroTypeIconListTest::typeIsChosenById()
{
    cMacroTypeIconList list;
    QSignalSpy spy(&list, SIGNAL(macroTypeSelected(int)));
    list.setCurrentMacroType(Text);
    QCOMPARE(take(spy), QList<int>({1}));
    QCOMPARE(highlighted(list), QList<int>({1}));
    list.setCurrentMacroType(Text);
    QCOMPARE(take(spy), QList<int>());
}

void cMacroTypeIconListTest::unknownIdChoosesNothing()
{
    cMacroTypeIconList list;
    QSignalSpy spy(&list, SIGNAL(macroTypeSelected(int)));
    for (const QString& id : {QString("urn:none"), QString(), Hidden, Keys.toUpper()})
        list.setCurrentMacroType(id);
    QCOMPARE(take(spy), QList<int>());
    QCOMPARE(highlighted(list), QList<int>());
}

void cMacroTypeIconListTest::placeIsFoundById_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("place");
    QTest::newRow("first") << Keys << 0;
    QTest::newRow("behind a private one") << Text << 1;
    QTest::newRow("last") << QString(MacroNamespaces::Media) << 2;
    QTest::newRow("private") << Hidden << 0;
    QTest::newRow("unknown") << "urn:none" << 0;
}

void cMacroTypeIconListTest::placeIsFoundById()
{
    QFETCH(QString, id);
    QFETCH(int, place);
    const cMacroTypeIconList list;
    QCOMPARE(list.indexOf(id), place);
}

void cMacroTypeIconListTest::clickLeavesTheStoredPlaceBehind()
{
    cMacroTypeIconList list;
    list.show();
    list.setCurrentIndex(0);
    QSignalSpy spy(&list, SIGNAL(macroTypeSelected(int)));
    const auto items = list.findChildren<cMacroTypeIconItem*>();
    QTest::mouseClick(items[2], Qt::LeftButton);
    QCOMPARE(take(spy), QList<int>({2}));
    QCOMPARE(highlighted(list), QList<int>({2}));
    // Each click counts.
    QTest::mouseClick(items[2], Qt::LeftButton);
    QCOMPARE(take(spy), QList<int>({2}));
    // The list still holds 0 for chosen.
    list.setCurrentIndex(0);
    QCOMPARE(take(spy), QList<int>());
    QCOMPARE(highlighted(list), QList<int>({2}));
    list.setCurrentMacroType(Keys);
    QCOMPARE(take(spy), QList<int>());
    list.setCurrentIndex(2);
    QCOMPARE(take(spy), QList<int>({2}));
}

void cMacroTypeIconListTest::arrowKeysChoose_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QList<int>>("sent");
    const auto row = [](const char* name, int start, Qt::Key key, const QList<int>& sent) {
        QTest::newRow(name) << start << key << sent;
    };
    row("down", 0, Qt::Key_Down, {1});
    row("right", 1, Qt::Key_Right, {2});
    row("up", 2, Qt::Key_Up, {1});
    row("left", 1, Qt::Key_Left, {0});
    row("down at the end", 2, Qt::Key_Down, {});
    row("up at the beginning", 0, Qt::Key_Up, {});
    row("home", 2, Qt::Key_Home, {0});
    row("end", 0, Qt::Key_End, {2});
    row("down with nothing chosen", -1, Qt::Key_Down, {0});
    row("up with nothing chosen", -1, Qt::Key_Up, {0});
    row("another key", 1, Qt::Key_A, {});
}

void cMacroTypeIconListTest::arrowKeysChoose()
{
    QFETCH(int, start);
    QFETCH(Qt::Key, key);
    QFETCH(QList<int>, sent);
    cMacroTypeIconList list;
    list.setCurrentIndex(start);
    QSignalSpy spy(&list, SIGNAL(macroTypeSelected(int)));
    QTest::keyClick(&list, key);
    QCOMPARE(take(spy), sent);
    if (!sent.isEmpty())
        QCOMPARE(highlighted(list), sent);
}

void cMacroTypeIconListTest::focusIsSeen()
{
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const list = new cMacroTypeIconList;
    layout->addWidget(list);
    layout->addWidget(new QLineEdit);
    list->setCurrentIndex(1);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.findChild<QLineEdit*>()->setFocus();
    // The middle of the frame's upper edge, which is three pixels outside the type that is chosen.
    const auto markColor = [list] {
        const QRect chosen = list->findChildren<cMacroTypeIconItem*>()[1]->geometry();
        return list->grab().toImage().pixelColor(chosen.center().x(), chosen.top() - 3);
    };
    const QColor bright(0x93c7c7);
    QVERIFY(markColor() != bright);
    QCoreApplication::processEvents();
    PaintCount paints(*list);
    list->setFocus(Qt::TabFocusReason);
    QVERIFY(list->hasFocus());
    QTRY_VERIFY(paints.count() > 0);
    QCOMPARE(markColor(), bright);
    QCoreApplication::processEvents();
    paints.clear();
    window.findChild<QLineEdit*>()->setFocus();
    QTRY_VERIFY(paints.count() > 0);
    // A click leaves the focus where the user types.
    QTest::mouseClick(list->findChildren<cMacroTypeIconItem*>().constFirst(), Qt::LeftButton);
    QVERIFY(window.findChild<QLineEdit*>()->hasFocus());
    QVERIFY(markColor() != bright);
}

void cMacroTypeIconListTest::nameIsNeverClipped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("textSize");
    for (const char* name : {"Media", "Mouse Function", "Donaudampfschifffahrtsgesellschaftskapitaen",
             "Everything that anybody could ever want a key to do"}) {
        for (int size : {13, 16, 20})
            QTest::newRow(qPrintable(QString("%1 at %2").arg(name).arg(size))) << QString(name) << size;
    }
}

void cMacroTypeIconListTest::nameIsNeverClipped()
{
    QFETCH(QString, name);
    QFETCH(int, textSize);
    const QFont usualFont = QApplication::font();
    QFont font = usualFont;
    font.setPixelSize(textSize);
    QApplication::setFont(font);
    host().setTypes({cMacroTypePtr(new FakeMacroType(host(), Keys, name)),
        cMacroTypePtr(new FakeMacroType(host(), Text, QString()))});
    QWidget window;
    auto* const list = new cMacroTypeIconList;
    (new QVBoxLayout(&window))->addWidget(list);
    // Smaller than it wants to be.
    window.resize(10, 10);
    window.show();
    const auto* const item = list->findChildren<cMacroTypeIconItem*>().constFirst();
    const auto labels = item->findChildren<QLabel*>();
    QString brokenName;
    for (int place : {1, 0, 1}) {
        list->setCurrentIndex(place);
        QCoreApplication::processEvents();
        QVERIFY(item->width() >= 70 && item->width() <= 140);
        QVERIFY(item->contentsRect().contains(labels[1]->geometry()));
        QVERIFY(!labels[0]->geometry().intersects(labels[1]->geometry()));
        const QRect text = labels[1]->fontMetrics().boundingRect(
            QRect(QPoint(), labels[1]->size()), Qt::AlignHCenter | Qt::TextWordWrap, labels[1]->text());
        QVERIFY(labels[1]->rect().contains(text));
        QVERIFY(brokenName.isNull() || brokenName == labels[1]->text());
        brokenName = labels[1]->text();
        QCOMPARE(labels[1]->font().pixelSize(), textSize);
    }
    QCOMPARE(brokenName.remove(QChar(0x200b)), name);
    QApplication::setFont(usualFont);
}

VELTRANO_TEST_MAIN(cMacroTypeIconListTest)
#include "cMacroTypeIconListTest.moc"
