#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cClickableLabel.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cSearchBox.h>
#include <DialogDriver.h>
#include <TestCase.h>

#include <QFocusEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPen>
#include <QScreen>
#include <QSignalSpy>
#include <QTranslator>

namespace {

QWidget* searchLine(const ViewFixture& fixture)
{
    return fixture.commandFrame()->findChild<QLineEdit*>();
}

} // namespace

/// The frame on the canvas that holds the commands, and the hint below it.
class ViewCommandPaneTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void commandFrameHasItsPlace();
    void titleStandsInTheFrame();
    void syncButtonIsReadyAndHidden();
    void newCommandButtonHasItsPicturesAndPlace();
    void newCommandButtonOpensTheEditor();
    void searchBoxAndListHaveTheirPlaces();
    void searchedTextReachesTheList();
    void keysOfTheSearchBoxReachTheList_data();
    void keysOfTheSearchBoxReachTheList();
    void listIsConnected();
    void hintFollowsTheCategory_data();
    void hintFollowsTheCategory();
    void hintIsDrawnAsItIsMeant();
    void textsAreTranslatedInTheirContexts();
};

void ViewCommandPaneTest::commandFrameHasItsPlace()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const QFrame* const frame = fixture.commandFrame();
    QVERIFY(frame);
    QCOMPARE(frame->parentWidget(), fixture.canvas.get());
    QCOMPARE(frame->frameStyle(), 0);
    QCOMPARE(frame->pos(), QPoint(38, 157));
    QCOMPARE(frame->minimumSize(), QSize(238, 380));
    QCOMPARE(frame->maximumSize(), QSize(238, 380));
    QVERIFY(frame->autoFillBackground());
}

void ViewCommandPaneTest::titleStandsInTheFrame()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const QLabel* title = nullptr;
    for (const QLabel* label :
        fixture.commandFrame()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!qobject_cast<const cClickableLabel*>(label))
            title = label;
    }
    if (!title)
        QFAIL("there is no title");
    QCOMPARE(title->text(), QString("Commands"));
    QCOMPARE(title->pos(), QPoint(0, 2));
    QCOMPARE(title->property("uiType").toString(), QString("PanelTitle"));
}

void ViewCommandPaneTest::syncButtonIsReadyAndHidden()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    cAnimatedPixmapWidget* const button = fixture.syncButton();
    QVERIFY(button);
    QCOMPARE(button->parentWidget(), fixture.commandFrame());
    QCOMPARE(button->pos(), QPoint(180, -1));
    QCOMPARE(button->frameCount(), 29);
    QCOMPARE(button->size(), QSize(29, 29));
    QCOMPARE(button->toolTip(), QString("Synchronize the profile to your device"));
    QVERIFY(button->isHidden());
    QVERIFY(!button->isEnabled());
    QVERIFY(!button->isRunning());

    fixture.boundDevice = "{D}";
    fixture.showProfile("{P}");
    Q_EMIT button->clicked();
    QCOMPARE(fixture.host.takeCalls(), QStringList({"commitDevice(\"{D}\")"}));
    QCOMPARE(connections(*button, SIGNAL(clicked())), 1);
    QCOMPARE(fixture.pulsatingModes(), QStringList({"M1"}));
    Q_EMIT button->enter();
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    Q_EMIT button->leave();
    QCOMPARE(fixture.pulsatingModes(), QStringList({"M1"}));
}

void ViewCommandPaneTest::newCommandButtonHasItsPicturesAndPlace()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    auto* const button =
        fixture.commandFrame()->findChild<cClickableLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(button);
    QCOMPARE(button->pos(), QPoint(212, -1));
    QCOMPARE(button->toolTip(), QString("Create new command"));
    const auto picture = [](const char* name) {
        return QPixmap(QStringLiteral("MacroBindingView:Resources/images/icon_new_%1.png").arg(name))
            .toImage();
    };
    const auto shown = [&] {
        return button->pixmap(Qt::ReturnByValue).toImage();
    };
    QVERIFY(!picture("normal").isNull());
    QCOMPARE(shown(), picture("normal"));
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(button, &enter);
    QCOMPARE(shown(), picture("hover"));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    QTest::mousePress(button, Qt::LeftButton);
    QCOMPARE(shown(), picture("pressed"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    QCOMPARE(shown(), picture("normal"));
    QCOMPARE(fixture.pulsatingModes(), QStringList({"M1"}));
    QCOMPARE(connections(*button, SIGNAL(clicked())), 1);
    QCOMPARE(connections(*button, SIGNAL(clicked(QPoint))), 0);
}

void ViewCommandPaneTest::newCommandButtonOpensTheEditor()
{
    ViewFixture fixture;
    fixture.open();
    auto* const button =
        fixture.commandFrame()->findChild<cClickableLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(button);
    QString title;
    const DialogDriver driver([&title](QDialog& dialog) { title = dialog.windowTitle(); });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(driver.hasRun());
    QCOMPARE(title, QString("Command Editor"));
}

void ViewCommandPaneTest::searchBoxAndListHaveTheirPlaces()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const auto* const box = fixture.canvas->findChild<cSearchBox*>();
    QVERIFY(box);
    QCOMPARE(box->parentWidget(), fixture.commandFrame());
    QCOMPARE(box->pos(), QPoint(-3, 31));
    QCOMPARE(box->size(), QSize(244, 28));
    QCOMPARE(fixture.macroList()->pos(), QPoint(-1, 64));
}

void ViewCommandPaneTest::searchedTextReachesTheList()
{
    ViewFixture fixture;
    fixture.openWithCommands();
    QFocusEvent focus(QEvent::FocusIn);
    QCoreApplication::sendEvent(searchLine(fixture), &focus);
    QTest::keyClicks(searchLine(fixture), "ru");
    const cMacroList& list = *fixture.macroList();
    QCOMPARE(list.isRowHidden(0), true);
    QCOMPARE(list.isRowHidden(1), false);
}

void ViewCommandPaneTest::keysOfTheSearchBoxReachTheList_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("before");
    // The row that is current then; -1 if the key opens the editor of the one that is.
    QTest::addColumn<int>("after");
    QTest::newRow("up") << int(Qt::Key_Up) << 1 << 0;
    QTest::newRow("down") << int(Qt::Key_Down) << 0 << 1;
    QTest::newRow("page up") << int(Qt::Key_PageUp) << 1 << 0;
    QTest::newRow("page down") << int(Qt::Key_PageDown) << 0 << 1;
    QTest::newRow("return") << int(Qt::Key_Return) << 1 << -1;
    QTest::newRow("enter") << int(Qt::Key_Enter) << 1 << -1;
    // Any other is the box's own.
    QTest::newRow("home") << int(Qt::Key_Home) << 1 << 1;
    QTest::newRow("end") << int(Qt::Key_End) << 0 << 0;
    QTest::newRow("delete") << int(Qt::Key_Delete) << 0 << 0;
}

void ViewCommandPaneTest::keysOfTheSearchBoxReachTheList()
{
    QFETCH(int, key);
    QFETCH(int, before);
    QFETCH(int, after);
    ViewFixture fixture;
    fixture.openWithCommands();
    cMacroList& list = *fixture.macroList();
    list.setCurrentRow(before);
    QSignalSpy edited(&list, SIGNAL(editMacro(cJsonValue)));
    // The editor that this would open is not this case's affair.
    fixture.host.answer("getMacroTypeByID", [](const RecordedCall&) { return QVariant(); });
    fixture.host.clear();
    QTest::keyClick(searchLine(fixture), Qt::Key(key));
    QCoreApplication::processEvents();
    QCOMPARE(list.currentRow(), after < 0 ? before : after);
    QCOMPARE(edited.size(), after < 0 ? 1 : 0);
    QCOMPARE(fixture.host.takeCalls().filter("yesno"), QStringList());
}

void ViewCommandPaneTest::listIsConnected()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    cMacroList* const list = fixture.macroList();
    for (const char* signal : {SIGNAL(editMacro(cJsonValue)), SIGNAL(hoverIn()), SIGNAL(hoverOut()),
             SIGNAL(MacroSelected(cJsonValue)), SIGNAL(MacroUnSelected(cJsonValue)), SIGNAL(populating()),
             SIGNAL(populated())})
        QCOMPARE(connections(*list, signal), 1);
    QCOMPARE(connections(*fixture.canvas->findChild<cSearchBox*>(), SIGNAL(textEdited(QString))), 1);

    Q_EMIT list->hoverIn();
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    Q_EMIT list->hoverOut();
    QCOMPARE(fixture.pulsatingModes(), QStringList({"M1"}));

    // Editing waits until the list has done what it is at.
    Q_EMIT list->editMacro(makeMacro("{1}", "Jump"));
    QCOMPARE(fixture.host.takeCalls(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(fixture.host.takeCalls(), QStringList({"getMacroTypeByID(\"uri/keystroke\")"}));
}

void ViewCommandPaneTest::hintFollowsTheCategory_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("hint");
    const QString keys = "Drag commands onto G-keys or profile icons";
    QTest::newRow("mouse") << "Veltrano.Gaming.Mouse"
                           << "Drag commands onto buttons or profile icons";
    QTest::newRow("controller") << "Veltrano.Gaming.LeftHandedController" << keys;
    QTest::newRow("small letters") << "veltrano.gaming.mouse" << keys;
    QTest::newRow("none") << "" << keys;
}

void ViewCommandPaneTest::hintFollowsTheCategory()
{
    QFETCH(QString, category);
    QFETCH(QString, hint);
    ViewFixture fixture;
    // The model plays no part.
    fixture.open(makeManifest("", "Veltrano.Gaming.LeftHandedController.K13", qPrintable(category)));
    const cGraphicsText* const text = fixture.item<cGraphicsText>();
    QVERIFY(text);
    QCOMPARE(text->text(), hint);
    QCOMPARE(text->pos(), QPointF(28, 588));
    QCOMPARE(text->parentItem(), nullptr);
}

void ViewCommandPaneTest::hintIsDrawnAsItIsMeant()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const cGraphicsText* const text = fixture.item<cGraphicsText>();
    QPen pen;
    pen.setBrush(QBrush(Qt::lightGray, Qt::SolidPattern));
    QCOMPARE(text->pen(), pen);
    // One line however long, in bold Arial of 8 points at 96 dots per inch.
    QFont font("Arial");
    font.setWeight(75);
    font.setPointSizeF(8 * 96.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    const QSize size = QFontMetrics(font).size(Qt::TextSingleLine, text->text());
    QCOMPARE(text->boundingRect().size().toSize().height(), size.height());
    QVERIFY(qAbs(text->boundingRect().width() - size.width()) <= 2);
}

void ViewCommandPaneTest::textsAreTranslatedInTheirContexts()
{
    /// Translates each text to the context in which it was asked for.
    class Contexts : public QTranslator
    {
    public:
        QString translate(const char* context, const char*, const char*, int) const override
        {
            return QString::fromLatin1(context);
        }
        bool isEmpty() const override { return false; }
    };
    Contexts translator;
    for (const auto& [category, context] :
        {std::pair("pad", "cMacroBindingView"), std::pair("Veltrano.Gaming.Mouse", "QObject")}) {
        ViewFixture fixture;
        QCoreApplication::installTranslator(&translator);
        fixture.open(makeManifest("", "Model", category));
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(fixture.item<cGraphicsText>()->text(), QString(context));
        QCOMPARE(fixture.syncButton()->toolTip(), QString("QObject"));
        QStringList labels;
        for (const QLabel* label :
            fixture.commandFrame()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
            labels.append(label->text() + label->toolTip());
        QCOMPARE(labels, QStringList({"cMacroBindingView", "cMacroBindingView"}));
    }
}

VELTRANO_TEST_MAIN(ViewCommandPaneTest)
#include "ViewCommandPaneTest.moc"
