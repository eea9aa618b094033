#include <cMacroTypeIconItem.h>
#include <LayoutText.h>
#include <MetaMembers.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QLabel>
#include <QSignalSpy>
#include <QVBoxLayout>

class cMacroTypeIconItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembers();
    void showsIconAboveNameOfTheType();
    void longWordIsBrokenBetweenCharacters_data();
    void longWordIsBrokenBetweenCharacters();
    void highlightHasItsStyle_data();
    void highlightHasItsStyle();
    void pressOfTheLeftButtonIsAClick_data();
    void pressOfTheLeftButtonIsAClick();

private:
    static cJsonValue info(const QString& displayName, const QString& iconPath = QString())
    {
        cJsonValue info;
        info["uid"] = "urn:type";
        info["displayname"] = displayName;
        info["iconpath"] = iconPath;
        return info;
    }
};

void cMacroTypeIconItemTest::hasItsMembers()
{
    const QMetaObject& type = cMacroTypeIconItem::staticMetaObject;
    QCOMPARE(type.superClass(), &QFrame::staticMetaObject);
    QCOMPARE(MetaMembers::signalsOf(type), QStringList({"clicked(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(type), QStringList());
}

void cMacroTypeIconItemTest::showsIconAboveNameOfTheType()
{
    TestPictures pictures;
    const QString path = pictures.add("type.png", filledPicture(28, 26, Qt::red));
    const cMacroTypeIconItem item(info("Text Block", path));
    QCOMPARE(item.macroTypeID(), QString("urn:type"));
    QCOMPARE(item.displayName(), QString("Text Block"));
    QCOMPARE(item.property("uiType").toString(), QString("MacroTypeIcon"));
    QCOMPARE(item.minimumWidth(), 70);
    QCOMPARE(item.maximumWidth(), 140);
    QVERIFY(!item.isHighlighted());
    QCOMPARE(item.accessibleName(), QString("Text Block"));
    // Those of the style sheet's border, and none of its own.
    QCOMPARE(item.contentsMargins(), QMargins(5, 5, 5, 5));

    const auto* const layout = qobject_cast<QVBoxLayout*>(item.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 5);
    QCOMPARE(layoutText(*layout), QString("V[QLabel, Text B]"));
    const auto* const icon = qobject_cast<QLabel*>(layout->itemAt(0)->widget());
    const auto* const text = qobject_cast<QLabel*>(layout->itemAt(1)->widget());
    QCOMPARE(icon->pixmap(Qt::ReturnByValue).size(), QSize(28, 26));
    QCOMPARE(text->text(), QString("Text Block"));
    QVERIFY(text->wordWrap());
    QCOMPARE(text->textFormat(), Qt::PlainText);
    for (int i : {0, 1})
        QCOMPARE(layout->itemAt(i)->alignment(), Qt::AlignCenter);
    QCOMPARE(icon->alignment(), Qt::AlignCenter);
    QCOMPARE(text->alignment(), Qt::AlignCenter);
}

void cMacroTypeIconItemTest::longWordIsBrokenBetweenCharacters_data()
{
    QTest::addColumn<QString>("character");
    QTest::newRow("letter") << "W";
    QTest::newRow("of two halves") << QString::fromUtf8("\U0001F3AE");
    QTest::newRow("with an accent") << QString::fromUtf8("W\u0301");
}

void cMacroTypeIconItemTest::longWordIsBrokenBetweenCharacters()
{
    QFETCH(QString, character);
    const cMacroTypeIconItem item(info("Go " + character.repeated(40)));
    const auto* const text = qobject_cast<QLabel*>(item.layout()->itemAt(1)->widget());
    const QStringList parts = text->text().section(' ', 1).split(QChar(0x200b));
    QCOMPARE(parts.size(), 40);
    for (const QString& part : parts)
        QCOMPARE(part, character);
    // A word that has room is left as it is.
    QCOMPARE(text->text().section(' ', 0, 0), QString("Go"));
}

void cMacroTypeIconItemTest::highlightHasItsStyle_data()
{
    QTest::addColumn<bool>("isHighlighted");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("textStyle");
    QTest::newRow("on") << true
                        << "QFrame[uiType=\"MacroTypeIcon\"] { border-image: "
                           "url(MacroBindingView:/Resources/images/command_editor_highlight.png) 5 5 5 5; "
                           "border-top: 5px transparent; border-bottom: 5px transparent; border-right: 5px "
                           "transparent; border-left: 5px transparent;} "
                        << "QLabel { color: white; }";
    QTest::newRow("off") << false << "QFrame[uiType=\"MacroTypeIcon\"] { border: 5px solid transparent; }"
                         << "QLabel { color: #999999; }";
}

void cMacroTypeIconItemTest::highlightHasItsStyle()
{
    QFETCH(bool, isHighlighted);
    QFETCH(QString, style);
    QFETCH(QString, textStyle);
    cMacroTypeIconItem item(info("Keys"));
    item.setHighlighted(!isHighlighted);
    item.setHighlighted(isHighlighted);
    QCOMPARE(item.isHighlighted(), isHighlighted);
    QCOMPARE(item.styleSheet(), style);
    QCOMPARE(item.findChildren<QLabel*>().constLast()->styleSheet(), textStyle);
}

void cMacroTypeIconItemTest::pressOfTheLeftButtonIsAClick_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("clicks");
    QTest::newRow("left") << int(Qt::LeftButton) << 1;
    QTest::newRow("right") << int(Qt::RightButton) << 0;
    QTest::newRow("middle") << int(Qt::MiddleButton) << 0;
}

void cMacroTypeIconItemTest::pressOfTheLeftButtonIsAClick()
{
    QFETCH(int, button);
    QFETCH(int, clicks);
    cMacroTypeIconItem item(info("Keys"));
    item.show();
    const QSignalSpy spy(&item, SIGNAL(clicked(QString)));
    QTest::mousePress(&item, Qt::MouseButton(button));
    QCOMPARE(spy.size(), clicks);
    if (clicks)
        QCOMPARE(spy.constFirst().constFirst().toString(), QString("urn:type"));
    QTest::mouseRelease(&item, Qt::MouseButton(button));
    QCOMPARE(spy.size(), clicks);
    // The press on the name counts as well.
    QTest::mousePress(item.findChildren<QLabel*>().constLast(), Qt::MouseButton(button));
    QCOMPARE(spy.size(), 2 * clicks);
}

VELTRANO_TEST_MAIN(cMacroTypeIconItemTest)
#include "cMacroTypeIconItemTest.moc"
