#include "RowStage.h"

#include <cClickableLabel.h>
#include <cMacroItem.h>
#include <MetaMembers.h>
#include <MethodText.h>
#include <TestCase.h>

#include <QHBoxLayout>
#include <QLabel>

using namespace CommandSupport;

/// How the row is built, its pictures, and what it makes of a changed command.
class cMacroItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembersInOrder();
    void parametersBearTheirNames();
    void constructionAsksTheHost();
    void constructionMakesTheRow();
    void rowWithoutTypeHasNoIcon_data();
    void rowWithoutTypeHasNoIcon();
    void firstMatchingTypeEndsTheWalk();
    void missingTypesArePassedOver();
    void nameIsNoMarkup();
    void longNameEndsInDots();
    void picturesShowTheState_data();
    void picturesShowTheState();
    void missingPicturesAreHarmless();
    void changedNameIsShownAndTold();
    void changedIconIsShownOnly();
    void changedRecordKeepsTheAssignedMark();
    void rowGetsItsIconWhenTheTypeComesLater();
};

void cMacroItemTest::hasItsMembersInOrder()
{
    const QMetaObject& meta = cMacroItem::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta),
        QStringList({"macroDoubleClicked(cJsonValue)", "macroContextMenuIconClicked(QPoint)",
            "dragStart(cJsonValue)", "hoverIn()", "hoverOut()", "nameChanged(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"contextMenuIconClicked(QPoint)"}));
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
}

void cMacroItemTest::parametersBearTheirNames()
{
    const QStringList all = methodTexts(cMacroItem::staticMetaObject);
    for (const char* text :
        {"macroDoubleClicked(cJsonValue macro)", "dragStart(cJsonValue macro)", "nameChanged(QString name)"})
        QVERIFY2(all.contains(text), text);
}

void cMacroItemTest::constructionAsksTheHost()
{
    const RowStage stage;
    QCOMPARE(stage.log, QStringList({assignedCall("{1}"), allTypesCall()}));
}

void cMacroItemTest::constructionMakesTheRow()
{
    const RowStage stage;
    QCOMPARE(stage.row->size(), QSize(220, 30));
    QCOMPARE(stage.row->minimumSize(), stage.row->maximumSize());
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
    QCOMPARE(stage.row->toolTip(), QString("Jump"));
    QCOMPARE(stage.row->macroId(), QString("{1}"));
    QCOMPARE(stage.row->macro(), macro("{1}", "Jump"));
    QCOMPARE(stage.nameLabel()->text(), QString("Jump"));
    QCOMPARE(stage.iconSize(), QSize(28, 28));
    QVERIFY(stage.contextIcon().isHidden());

    const auto* layout = qobject_cast<QHBoxLayout*>(stage.row->layout());
    QCOMPARE(layout->contentsMargins(), QMargins(10, 1, 1, 1));
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->itemAt(0)->widget(), stage.iconLabel());
    QCOMPARE(layout->itemAt(1)->widget(), stage.nameLabel());
    QVERIFY(layout->itemAt(2)->spacerItem());
    QCOMPARE(layout->stretch(2), 1);
    auto* column = dynamic_cast<QVBoxLayout*>(layout->itemAt(3)->layout());
    QVERIFY(column->itemAt(0)->spacerItem());
    QCOMPARE(column->stretch(0), 0);
    QCOMPARE(column->itemAt(1)->widget(), &stage.contextIcon());
}

void cMacroItemTest::rowWithoutTypeHasNoIcon_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::newRow("another namespace") << macro("{1}", "Jump", "urn:unknown");
    cJsonValue record = macro("{1}", "Jump");
    record.deleteKey("namespace");
    QTest::newRow("none") << record;
    cJsonValue empty = macro("{1}", "Jump", "");
    QTest::newRow("empty") << empty;
}

void cMacroItemTest::rowWithoutTypeHasNoIcon()
{
    QFETCH(cJsonValue, record);
    RowStage stage;
    // A type without an id matches nothing, not even a command without a namespace.
    auto* nameless = new FakeType(QString(), QString());
    nameless->m_info.deleteKey("uid");
    stage.panel.types.prepend(cMacroTypePtr(nameless));
    stage.make(record);
    QCOMPARE(stage.iconLabel(), nullptr);
    QCOMPARE(stage.row->layout()->itemAt(0)->widget(), stage.nameLabel());
    // By position the stretch falls on the column of the context icon.
    QVERIFY(stage.row->layout()->itemAt(2)->layout());
    QCOMPARE(qobject_cast<QHBoxLayout*>(stage.row->layout())->stretch(2), 1);
    stage.row->grab();
}

void cMacroItemTest::firstMatchingTypeEndsTheWalk()
{
    RowStage stage;
    stage.panel.types.append(
        cMacroTypePtr(new FakeType(Keys, stage.pictures.add("late.png", filledPicture(5, 5, Qt::blue)))));
    stage.make(macro("{1}", "Jump"));
    QCOMPARE(stage.iconSize(), QSize(28, 28));
}

void cMacroItemTest::missingTypesArePassedOver()
{
    RowStage stage;
    stage.panel.types.prepend(cMacroTypePtr());
    stage.make(macro("{1}", "Jump"));
    QCOMPARE(stage.iconSize(), QSize(28, 28));
}

void cMacroItemTest::nameIsNoMarkup()
{
    const RowStage stage(macro("{1}", "<b>Jump</b> & run"));
    QCOMPARE(stage.nameLabel()->text(), QString("<b>Jump</b> & run"));
    QCOMPARE(stage.nameLabel()->textFormat(), Qt::PlainText);
}

void cMacroItemTest::longNameEndsInDots()
{
    const QString name = QString("Wide ").repeated(30);
    RowStage stage(macro("{1}", name));
    const QImage full = stage.nameLabel()->grab().toImage();
    QCOMPARE(stage.nameLabel()->text(), name);
    const QString shown = stage.nameLabel()->fontMetrics().elidedText(name, Qt::ElideRight, 160);
    QVERIFY(shown != name);
    stage.make(macro("{1}", shown));
    QCOMPARE(stage.nameLabel()->grab().toImage(), full);
    // What is compared is not two empty pictures.
    stage.make(macro("{1}", QString()));
    QVERIFY(stage.nameLabel()->grab().toImage() != full);
}

void cMacroItemTest::picturesShowTheState_data()
{
    QTest::addColumn<bool>("hover");
    QTest::addColumn<bool>("assigned");
    QTest::addColumn<bool>("selected");
    for (int state = 0; state < 8; ++state) {
        const bool hover = state & 4;
        const bool selected = state & 2;
        const bool assigned = state & 1;
        QTest::newRow(qPrintable(RowStage::looks()[state])) << hover << assigned << selected;
    }
}

void cMacroItemTest::picturesShowTheState()
{
    QFETCH(bool, hover);
    QFETCH(bool, assigned);
    QFETCH(bool, selected);
    RowStage stage;
    stage.row->setAssigned(assigned);
    stage.row->setRowSelected(selected);
    if (hover)
        stage.enter();
    QCOMPARE(stage.background(), RowStage::colorOf(QTest::currentDataTag()));
    // The picture fills the row.
    const QImage drawn = stage.row->grab().toImage();
    QCOMPARE(drawn.pixelColor(0, 0), RowStage::colorOf(QTest::currentDataTag()));
    QCOMPARE(drawn.pixelColor(219, 29), RowStage::colorOf(QTest::currentDataTag()));
    // The mark that the host gives at construction is the same.
    stage.panel.host.answer("isMacroAssigned", assigned);
    stage.make(macro("{1}", "Jump"));
    stage.row->setRowSelected(selected);
    if (hover)
        stage.enter();
    QCOMPARE(stage.background(), RowStage::colorOf(QTest::currentDataTag()));
}

void cMacroItemTest::missingPicturesAreHarmless()
{
    RowStage stage;
    const TestPictures none;
    stage.make(macro("{1}", "Jump"));
    stage.enter();
    stage.row->grab();
    stage.leave();
    QCOMPARE(stage.nameLabel()->text(), QString("Jump"));
}

void cMacroItemTest::changedNameIsShownAndTold()
{
    RowStage stage;
    stage.row->setMacro(macro("{1}", "Fire"));
    QCOMPARE(stage.nameLabel()->text(), QString("Fire"));
    QCOMPARE(stage.row->toolTip(), QString("Fire"));
    QCOMPARE(stage.row->macro(), macro("{1}", "Fire"));
    QCOMPARE(stage.panel.takeLog(), QStringList({"nameChanged(\"Fire\")", allTypesCall()}));
}

void cMacroItemTest::changedIconIsShownOnly()
{
    RowStage stage;
    stage.row->setMacro(macro("{1}", "Jump", Text));
    QCOMPARE(stage.iconSize(), QSize(20, 20));
    QCOMPARE(stage.panel.takeLog(), QStringList({allTypesCall()}));
    // A type that nobody knows leaves the icon.
    stage.row->setMacro(macro("{1}", "Jump", "urn:unknown"));
    QCOMPARE(stage.iconSize(), QSize(20, 20));
}

void cMacroItemTest::changedRecordKeepsTheAssignedMark()
{
    RowStage stage;
    stage.row->setAssigned(true);
    stage.panel.host.takeCalls();
    stage.row->setMacro(macro("{1}", "Fire"));
    QCOMPARE(stage.background(), RowStage::colorOf("normal_assigned"));
    QCOMPARE(stage.panel.host.takeCalls(), QStringList({"getAllMacroTypes()"}));
}

void cMacroItemTest::rowGetsItsIconWhenTheTypeComesLater()
{
    RowStage stage(macro("{1}", "Jump", "urn:late"));
    QCOMPARE(stage.iconLabel(), nullptr);
    stage.panel.types.append(cMacroTypePtr(
        new FakeType("urn:late", stage.pictures.add("late.png", filledPicture(9, 9, Qt::blue)))));
    stage.row->setMacro(macro("{1}", "Jump", "urn:late"));
    QCOMPARE(stage.iconSize(), QSize(9, 9));
    QCOMPARE(stage.row->layout()->itemAt(0)->widget(), stage.iconLabel());
    QCOMPARE(stage.row->layout()->itemAt(1)->widget(), stage.nameLabel());
    stage.row->grab();
}

VELTRANO_TEST_MAIN(cMacroItemTest)
#include "cMacroItemTest.moc"
