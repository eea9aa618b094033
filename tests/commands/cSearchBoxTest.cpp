#include "CommandSupport.h"

#include <cClickableLabel.h>
#include <cSearchBox.h>
#include <cSearchEditLine.h>
#include <MetaMembers.h>
#include <PluginFolder.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QHBoxLayout>
#include <QTemporaryDir>

namespace {

QString styleSheet(const char* color)
{
    const QString indent(28, ' ');
    QString text = indent + "QLineEdit {" + indent + "color: " + color + ";" + indent
        + "border-image: url(MainApp:/Resources/images/text_field.png) 7 7 7 7;";
    for (const char* side : {"top", "bottom", "right", "left"})
        text += indent + "border-" + side + ": 7px transparent;";
    return text + indent + '}' + QString(12, ' ') + '}';
}

const char* const Idle = "#606060";
const char* const Active = "black";

class Stage
{
public:
    explicit Stage(int width = 244)
    {
        QDir(folder.path()).mkpath("Resources/images");
        filledPicture(17, 17, Qt::red).save(folder.filePath("Resources/images/search_icon.png"));
        filledPicture(16, 16, Qt::green).save(folder.filePath("Resources/images/btn_clear_field_normal.png"));
        filledPicture(16, 16, Qt::blue).save(folder.filePath("Resources/images/btn_clear_field_pressed.png"));
        // The field's picture, which is the host's.
        filledPicture(20, 28, Qt::white).save(folder.filePath("Resources/images/text_field.png"));
        QDir::setSearchPaths("MainApp", {folder.path()});
        mounted = std::make_unique<PluginFolder>(folder.path());
        box = std::make_unique<cSearchBox>(width, 28);
        spy = std::make_unique<QSignalSpy>(box.get(), SIGNAL(textEdited(QString)));
    }
    ~Stage() { QDir::setSearchPaths("MainApp", {}); }

    cSearchEditLine& edit() const { return *box->findChild<cSearchEditLine*>(); }
    cClickableLabel& clear() const { return *box->findChild<cClickableLabel*>(); }
    void focusIn()
    {
        QFocusEvent event(QEvent::FocusIn, Qt::MouseFocusReason);
        QCoreApplication::sendEvent(&edit(), &event);
    }
    /// Leaving sends what the field tells at its end.
    void focusOut()
    {
        QFocusEvent event(QEvent::FocusOut, Qt::MouseFocusReason);
        QCoreApplication::sendEvent(&edit(), &event);
    }
    QStringList heard()
    {
        QStringList texts;
        for (const QVariantList& each : qAsConst(*spy))
            texts.append(each[0].toString());
        spy->clear();
        return texts;
    }

    QTemporaryDir folder;
    std::unique_ptr<PluginFolder> mounted;
    std::unique_ptr<cSearchBox> box;
    std::unique_ptr<QSignalSpy> spy;
};

} // namespace

class cSearchBoxTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembersInOrder();
    void startsIdle();
    void standsAsDesigned_data();
    void standsAsDesigned();
    void firstFocusEmptiesTheField();
    void typingIsTold();
    void deletingEveryLetterKeepsTheActiveLook();
    void leavingAnEmptyFieldBringsTheWordBack();
    void leavingAFieldWithTextKeepsIt();
    void clearButtonEmptiesAndStaysActive();
    void typingTheWordItselfIsASearch();
    void wordIsNotToldWhenItReturns();
};

void cSearchBoxTest::hasItsMembersInOrder()
{
    const QMetaObject& meta = cSearchBox::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList({"textEdited(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta),
        QStringList({"onTextEdited(QString)", "onEditingFinished()", "onClear()"}));
    for (int i = meta.methodOffset() + 1; i < meta.methodCount(); ++i)
        QCOMPARE(meta.method(i).access(), QMetaMethod::Private);
}

void cSearchBoxTest::startsIdle()
{
    Stage stage;
    QCOMPARE(stage.edit().text(), QString("Search"));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Idle));
    QVERIFY(stage.clear().isHidden());
    QCOMPARE(stage.heard(), QStringList());
    QVERIFY(stage.box->autoFillBackground());
    QCOMPARE(stage.box->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(stage.edit().contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(stage.edit().textMargins(), QMargins(15, 0, 5, 0));
    const auto* layout = qobject_cast<QHBoxLayout*>(stage.box->layout());
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), &stage.edit());
}

void cSearchBoxTest::standsAsDesigned_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("commands") << 244;
    QTest::newRow("profiles") << 135;
}

void cSearchBoxTest::standsAsDesigned()
{
    QFETCH(int, width);
    Stage stage(width);
    QCOMPARE(stage.box->minimumSize(), QSize(width, 28));
    QCOMPARE(stage.box->maximumSize(), QSize(width, 28));
    QCOMPARE(stage.clear().geometry(), QRect(width - 23, 6, 16, 16));
    QCOMPARE(stage.clear().parentWidget(), &stage.edit());
    QLabel* magnifier = nullptr;
    for (QLabel* label : stage.edit().findChildren<QLabel*>()) {
        if (label != &stage.clear())
            magnifier = label;
    }
    QCOMPARE(magnifier->geometry(), QRect(5, 5, 17, 17));
    QCOMPARE(magnifier->pixmap(Qt::ReturnByValue).size(), QSize(17, 17));
    QTest::mousePress(&stage.clear(), Qt::LeftButton);
    QCOMPARE(stage.clear().pixmap(Qt::ReturnByValue).toImage().pixelColor(0, 0), QColor(Qt::blue));
}

void cSearchBoxTest::firstFocusEmptiesTheField()
{
    Stage stage;
    stage.focusIn();
    QCOMPARE(stage.edit().text(), QString());
    // Once, also to a list without a filter.
    QCOMPARE(stage.heard(), QStringList({""}));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Idle));
    QVERIFY(stage.clear().isHidden());
}

void cSearchBoxTest::typingIsTold()
{
    Stage stage;
    stage.focusIn();
    stage.heard();
    QTest::keyClicks(&stage.edit(), "ju");
    QCOMPARE(stage.heard(), QStringList({"j", "ju"}));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Active));
    QVERIFY(!stage.clear().isHidden());
    // The status is no longer the initial one.
    stage.focusIn();
    QCOMPARE(stage.edit().text(), QString("ju"));
    QCOMPARE(stage.heard(), QStringList());
}

void cSearchBoxTest::deletingEveryLetterKeepsTheActiveLook()
{
    Stage stage;
    stage.focusIn();
    QTest::keyClicks(&stage.edit(), "j");
    QTest::keyClick(&stage.edit(), Qt::Key_Backspace);
    QCOMPARE(stage.heard(), QStringList({"", "j", ""}));
    QVERIFY(stage.clear().isHidden());
    QCOMPARE(stage.box->styleSheet(), styleSheet(Active));
    stage.focusOut();
    QCOMPARE(stage.box->styleSheet(), styleSheet(Idle));
    QCOMPARE(stage.edit().text(), QString("Search"));
}

void cSearchBoxTest::leavingAnEmptyFieldBringsTheWordBack()
{
    Stage stage;
    stage.focusIn();
    stage.focusOut();
    QCOMPARE(stage.edit().text(), QString("Search"));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Idle));
    stage.heard();
    // It is idle again.
    stage.focusIn();
    QCOMPARE(stage.edit().text(), QString());
    QCOMPARE(stage.heard(), QStringList({""}));
}

void cSearchBoxTest::leavingAFieldWithTextKeepsIt()
{
    Stage stage;
    stage.focusIn();
    QTest::keyClicks(&stage.edit(), "ju");
    stage.heard();
    stage.focusOut();
    QCOMPARE(stage.edit().text(), QString("ju"));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Active));
    QVERIFY(!stage.clear().isHidden());
    QCOMPARE(stage.heard(), QStringList());
}

void cSearchBoxTest::clearButtonEmptiesAndStaysActive()
{
    Stage stage;
    stage.focusIn();
    QTest::keyClicks(&stage.edit(), "ju");
    stage.heard();
    QTest::mouseClick(&stage.clear(), Qt::LeftButton);
    QCOMPARE(stage.edit().text(), QString());
    QVERIFY(stage.clear().isHidden());
    QCOMPARE(stage.heard(), QStringList({""}));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Active));
    // Until the focus leaves.
    stage.focusIn();
    QCOMPARE(stage.heard(), QStringList());
    stage.focusOut();
    QCOMPARE(stage.edit().text(), QString("Search"));
    QCOMPARE(stage.box->styleSheet(), styleSheet(Idle));
    QCOMPARE(stage.heard(), QStringList());
}

void cSearchBoxTest::typingTheWordItselfIsASearch()
{
    Stage stage;
    stage.focusIn();
    QTest::keyClicks(&stage.edit(), "Search");
    stage.focusOut();
    stage.heard();
    stage.focusIn();
    QCOMPARE(stage.edit().text(), QString("Search"));
    QCOMPARE(stage.heard(), QStringList());
}

void cSearchBoxTest::wordIsNotToldWhenItReturns()
{
    Stage stage;
    stage.focusIn();
    stage.heard();
    stage.focusOut();
    QCOMPARE(stage.heard(), QStringList());
}

VELTRANO_TEST_MAIN(cSearchBoxTest)
#include "cSearchBoxTest.moc"
