#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cClickableLabel.h>
#include <cGraphicsButton.h>
#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <cSearchBox.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <ServiceNames.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QFontMetrics>
#include <QFrame>
#include <QGraphicsPathItem>
#include <QGraphicsPixmapItem>
#include <QGuiApplication>
#include <QLabel>
#include <QLoggingCategory>
#include <QPainter>
#include <QPen>
#include <QScreen>
#include <QTranslator>

namespace {

/// The log without the lines of clients that are made, and without what the lists and panes say of
/// themselves.
QStringList callsOf(RecordingHost& host)
{
    QStringList found;
    for (const QString& line : host.takeLog()) {
        if (!line.startsWith("require "))
            found.append(line);
    }
    return found;
}

int connections(const QObject& sender, const char* signal)
{
    // receivers() is for the class itself and its heirs.
    class Peek : public QObject
    {
    public:
        static int count(const QObject& object, const char* name)
        {
            return static_cast<const Peek&>(object).receivers(name);
        }
    };
    return Peek::count(sender, signal);
}

} // namespace

/// onDeviceTransformEnd(): what it makes of a record, in which order.
class ViewSceneTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hostSeesTheStepsInOrder();
    void hostSeesNoModesOfADeviceWithoutThem();
    void endWithoutInitBuildsNothing();
    void endWithoutCanvasBuildsNothing();
    void factsOfTheDeviceAreRead();

    void cornersAreTold();
    void polygonIsTheKeysShape();
    void polygonGoesBeforeAPixmap();
    void onePointGivesAKeyOfNoSize();
    void pixmapHasItsShapeFromTheOutline();
    void pixmapWithoutPicturesHasNoShape();
    void controlWithoutAShapeIsAKeyAllTheSame();
    void pathIsPaintedLikeAKeyWouldBe();
    void contextButtonHasItsPlace();
    void genericAssignmentReachesTheKey();
    void labelPlaceReachesTheKey();
    void typesReachTheKey();
    void controlsKeepTheirOrder();
    void twoControlsOfOneNameAreTwoKeys();
    void keyIsConnected_data();
    void keyIsConnected();
    void tooltipStandsInTheScene();

    void commandFrameHasItsPlace();
    void titleStandsInTheFrame();
    void syncButtonIsReadyAndHidden();
    void newCommandButtonHasItsPicturesAndPlace();
    void searchBoxAndListHaveTheirPlaces();
    void listIsConnected();
    void hintFollowsTheCategory_data();
    void hintFollowsTheCategory();
    void hintIsDrawnAsItIsMeant();
    void textsAreTranslatedInTheirContexts();

    void overlayIsForOneModelAlone_data();
    void overlayIsForOneModelAlone();
    void modeButtonsStandAndTheCurrentOnePulsates();
    void modeButtonsStandStillInTheBackground();
    void unknownModeSelectsNothing();
    void deviceWithoutModesKeepsTheForeground();
    void glowTakesTheTypeOfItsOwnNumber();
    void glowWithoutTypesIsLeftOut();
    void eachGlowConnectsTheListOnce();
    void glowsAreHiddenAtTheirPlaces();

    void framesAreShownAtTheEnd();
    void deinitTakesItAllAway();
    void deinitKeepsItsOrder();
    void sceneIsBuiltAnewAfterDeinit();
    void secondEndBuildsASecondTime();
    void emptyManifestGivesPanelsWithoutKeys_data();
    void emptyManifestGivesPanelsWithoutKeys();
    void missingServicesStillGiveAScene();
};

void ViewSceneTest::hostSeesTheStepsInOrder()
{
    ViewFixture fixture;
    fixture.setManifest(makeManifest(PlainDevice));
    fixture.mode = MKey::M2;
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    const QStringList expected {
        "subscribe ProfileMgr_Events on",
        "subscribe Profiler_Events on",
        "subscribe DevMgr_Events on",
        "subscribe ProfilesToGo_Events on",
        "Profiler.Profiler getMState(const QString \"pad\") -> MKey::MKey_t",
        // The list of commands.
        "subscribe Profiler_Events on",
        "subscribe ProfileMgr_Events on",
        // The list of profiles, and the bar around it.
        "subscribe ProfileMgr_Events on",
        "Profiler.ProfileMgr profiles() -> cJsonValue",
        "subscribe ProfileMgr_Events on",
        "MainApp.MainApp inForeground() -> bool",
        "Profiler.Profiler mKeyToString(MKey::MKey_t 1) -> QString",
        "VGFSettings.Settings getPropertyBool(const QString \"profiler/autoScannedForGames\", bool false) -> "
        "bool",
        "MainUI.MainUI raiseDeviceBar()",
    };
    QCOMPARE(callsOf(fixture.host), expected);
}

void ViewSceneTest::hostSeesNoModesOfADeviceWithoutThem()
{
    ViewFixture fixture;
    fixture.setManifest(makeManifest("<controls><control id='G1'/></controls>"));
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.host.takeCalls(),
        QStringList({"getMState(\"pad\")", "profiles()",
            "getPropertyBool(\"profiler/autoScannedForGames\", false)", "raiseDeviceBar()"}));
    QCOMPARE(fixture.items<cGraphicsItemGroup>().size(), 0);
    QVERIFY(fixture.key("G1"));
}

void ViewSceneTest::endWithoutInitBuildsNothing()
{
    ViewFixture fixture;
    fixture.host.clear();
    QVERIFY(fixture.call("onDeviceTransformEnd"));
    QCOMPARE(fixture.host.takeLog(), QStringList());
    QVERIFY(fixture.scene->items().isEmpty());
}

void ViewSceneTest::endWithoutCanvasBuildsNothing()
{
    ViewFixture fixture;
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.canvas.reset();
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.host.takeLog(), QStringList());
    QCOMPARE(fixture.scene->items().size(), 1);
}

void ViewSceneTest::factsOfTheDeviceAreRead()
{
    ViewFixture fixture;
    fixture.mode = MKey::M3;
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.view.getDeviceCategory(), QString("pad"));
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M3);
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G1", "G2", "G3"}));
    QCOMPARE(fixture.view.getProfileId(), QString());
}

void ViewSceneTest::cornersAreTold()
{
    ViewFixture fixture;
    QLoggingCategory::setFilterRules(QString());
    const ExpectedMessage first(QtDebugMsg, "point is  10 -- 20");
    const ExpectedMessage second(QtDebugMsg, "point is  -30 -- 5");
    fixture.open(
        makeManifest("<controls><control id='G1'><points><point x='10' y='20'/><point x='-30' y='5'/>"
                     "</points></control></controls>"));
}

void ViewSceneTest::polygonIsTheKeysShape()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const Gkey* const key = fixture.key("G2");
    QVERIFY(key);
    QCOMPARE(key->parentItem(), fixture.rootItem());
    QCOMPARE(key->pos(), QPointF(0, 0));
    QCOMPARE(key->shapeKind(), 0);
    QPainterPath path;
    path.addPolygon(QPolygonF({QPointF(500, 200), QPointF(540, 200), QPointF(540, 230)}));
    QCOMPARE(key->path(), path);
    QCOMPARE(key->keyRect(), QRectF(500, 200, 40, 30));
}

void ViewSceneTest::polygonGoesBeforeAPixmap()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G1'><pixmap image='a.png' outline='b.png' x='1' y='2'/>"
                     "<points><point x='1' y='2'/><point x='11' y='22'/></points></control></controls>"));
    QCOMPARE(fixture.key("G1")->shapeKind(), 0);
    QCOMPARE(fixture.key("G1")->path().elementCount(), 2);
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(1, 2, 10, 20));
}

void ViewSceneTest::onePointGivesAKeyOfNoSize()
{
    ViewFixture fixture;
    fixture.open(makeManifest(
        "<controls><control id='G1'><points><point x='7' y='8'/></points></control></controls>"));
    QCOMPARE(fixture.key("G1")->path().elementCount(), 1);
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(7, 8, 0, 0));
}

void ViewSceneTest::pixmapHasItsShapeFromTheOutline()
{
    ViewFixture fixture;
    QPixmap outline(20, 10);
    outline.fill(Qt::transparent);
    {
        QPainter painter(&outline);
        painter.fillRect(5, 2, 10, 6, Qt::black);
    }
    TestPictures files;
    const QString glowPath = files.add("glow.png", filledPicture(40, 30, Qt::red));
    const QString outlinePath = files.add("outline.png", outline);
    fixture.open(makeManifest(qPrintable(
        QStringLiteral("<controls><control id='G1'><pixmap image='%1' outline='%2' x='100' y='-50'/>"
                       "</control></controls>")
            .arg(glowPath, outlinePath))));
    const Gkey* const key = fixture.key("G1");
    QCOMPARE(key->shapeKind(), 1);
    QCOMPARE(key->path().boundingRect(), QRectF(105, -48, 10, 6));
    QVERIFY(key->contains(QPointF(110, -45)));
    QVERIFY(!key->contains(QPointF(102, -45)));
    // The pen counts.
    QCOMPARE(key->keyRect(), QRectF(key->boundingRect().toRect()));
    QVERIFY(key->keyRect().width() > 10);
    bool hasGlow = false;
    for (const QGraphicsItem* child : key->childItems()) {
        if (const auto* const glow = qgraphicsitem_cast<const QGraphicsPixmapItem*>(child))
            hasGlow = glow->pixmap().size() == QSize(40, 30);
    }
    QVERIFY(hasGlow);
}

void ViewSceneTest::pixmapWithoutPicturesHasNoShape()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'><pixmap image='missing.png' outline='missing.png' "
                              "x='100' y='50'/></control></controls>"));
    QCOMPARE(fixture.key("G1")->shapeKind(), 1);
    QVERIFY(fixture.key("G1")->path().isEmpty());
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(0, 0, 0, 0));
}

void ViewSceneTest::controlWithoutAShapeIsAKeyAllTheSame()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'/><anything/></controls>"));
    QCOMPARE(fixture.items<Gkey>().size(), 2);
    QCOMPARE(fixture.key("G1")->shapeKind(), 0);
    QVERIFY(fixture.key("G1")->path().isEmpty());
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(0, 0, 0, 0));
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G1", ""}));
    QVERIFY(fixture.key(""));
}

void ViewSceneTest::pathIsPaintedLikeAKeyWouldBe()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'/></controls>"));
    const Gkey* const key = fixture.key("G1");
    QCOMPARE(key->brush(), QBrush(QColor(0, 80, 80, 255), Qt::SolidPattern));
    QCOMPARE(key->pen(),
        QPen(
            QBrush(QColor(0, 80, 80, 255), Qt::SolidPattern), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void ViewSceneTest::contextButtonHasItsPlace()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'><context_button><point x='31' y='32'/>"
                              "<point x='1' y='1'/></context_button></control></controls>"));
    const QList<QGraphicsItem*> children = fixture.key("G1")->childItems();
    QPointF place;
    for (QGraphicsItem* child : children) {
        if (const auto* const button = dynamic_cast<cGraphicsButton*>(child))
            place = button->pos();
    }
    QCOMPARE(place, QPointF(31, 32));
}

void ViewSceneTest::genericAssignmentReachesTheKey()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G1'><generic_assignment type='t' name='n' required='true' "
                     "hidden='false' cannotbeunassigned='true'/></control>"
                     "<control id='G2'><generic_assignment type='t2' name='n2' hidden='true'/></control>"
                     "<control id='G3'/></controls>"));
    const Gkey* const one = fixture.key("G1");
    QCOMPARE(one->genericType(), QString("t"));
    QCOMPARE(one->genericName(), QString("n"));
    QVERIFY(one->isGenericRequired());
    QVERIFY(!one->isGenericHidden());
    QVERIFY(one->cannotBeUnassignedFlag());
    const Gkey* const two = fixture.key("G2");
    QCOMPARE(two->genericType(), QString("t2"));
    QVERIFY(!two->isGenericRequired());
    QVERIFY(two->isGenericHidden());
    QVERIFY(!two->cannotBeUnassignedFlag());
    const Gkey* const three = fixture.key("G3");
    QCOMPARE(three->genericType(), QString());
    QCOMPARE(three->genericName(), QString());
    QVERIFY(!three->isGenericRequired());
    QVERIFY(!three->isGenericHidden());
    QVERIFY(!three->cannotBeUnassignedFlag());
}

void ViewSceneTest::labelPlaceReachesTheKey()
{
    ViewFixture fixture;
    fixture.open(makeManifest(
        "<controls><control id='G1'><assignment_label x='11' y='12' min_width='13' max_width='14'>"
        "<connect_line x1='21' y1='22' x2='-23' y2='-24'/></assignment_label></control>"
        "<control id='G2'><assignment_label x='1' y='2' min_width='3' max_width='4'/></control>"
        "<control id='G3'/></controls>"));
    const Gkey* const one = fixture.key("G1");
    QVERIFY(one->hasLabelRect());
    QCOMPARE(one->labelPos(), QPoint(11, 12));
    QCOMPARE(one->labelMinWidth(), 13);
    QCOMPARE(one->labelMaxWidth(), 14);
    QVERIFY(one->hasConnectLine());
    QCOMPARE(one->connectLineP1(), QPointF(21, 22));
    QCOMPARE(one->connectLineP2(), QPointF(-23, -24));
    QVERIFY(fixture.key("G2")->hasLabelRect());
    QVERIFY(!fixture.key("G2")->hasConnectLine());
    QVERIFY(!fixture.key("G3")->hasLabelRect());
}

void ViewSceneTest::typesReachTheKey()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G1'><types><type name='b'/><type name='a'/><type/></types>"
                     "</control><control id='G2'/></controls>"));
    QCOMPARE(fixture.key("G1")->controlTypes(), QStringList({"b", "a", ""}));
    QCOMPARE(fixture.key("G2")->controlTypes(), QStringList());
}

void ViewSceneTest::controlsKeepTheirOrder()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G10'/><control id='G2'/><control id='G1'/></controls>"));
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G10", "G2", "G1"}));
    QStringList painted;
    for (const Gkey* key : fixture.items<Gkey>())
        painted.append(key->contextID());
    QCOMPARE(painted, QStringList({"G10", "G2", "G1"}));
}

void ViewSceneTest::twoControlsOfOneNameAreTwoKeys()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'/><control id='G1'/></controls>"));
    QCOMPARE(fixture.items<Gkey>().size(), 2);
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G1", "G1"}));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(fixture.items<Gkey>().size(), 0);
}

void ViewSceneTest::keyIsConnected_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QStringList>("calls");
    const auto row = [](const char* signal, const QStringList& calls) {
        QTest::newRow(signal) << QByteArray(signal) << calls;
    };
    const QString place = "\"{P}\", \"pad\", 0, \"G1\"";
    row("edit",
        {"getAssignment(" + place + ")", "getMacroByID(\"{P}\", \"\")", "getMacroByID(\"{P}\", \"\")",
            "getMacroTypeByID(\"\")"});
    row("useDefault", {"setDefaultAssignment(" + place + ")"});
    row("useGeneric", {"setGenericAssignment(\"{P}\", \"pad\", \"\", \"\", false, 0, \"G1\")"});
    row("unassign", {"removeAssignment(" + place + ")"});
    row("macroMoved", {"removeAssignment(" + place + ")"});
}

void ViewSceneTest::keyIsConnected()
{
    QFETCH(QByteArray, signal);
    QFETCH(QStringList, calls);
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    fixture.showProfile("{P}");
    Gkey* const key = fixture.key("G1");
    QVERIFY(QMetaObject::invokeMethod(key, signal, Q_ARG(QString, "G1")));
    QCOMPARE(fixture.host.takeCalls(), calls);
}

void ViewSceneTest::tooltipStandsInTheScene()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    cTooltip* const tooltip = fixture.item<cTooltip>();
    QVERIFY(tooltip);
    QCOMPARE(tooltip->parentItem(), fixture.rootItem());
    QVERIFY(!tooltip->isVisible());
    Q_EMIT fixture.key("G1")->showTooltip(QPointF(100, 40.5), "a tip");
    QVERIFY(tooltip->isVisible());
    QCOMPARE(tooltip->pos(), QPointF(115, 40.5));
}

void ViewSceneTest::commandFrameHasItsPlace()
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

void ViewSceneTest::titleStandsInTheFrame()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const QLabel* title = nullptr;
    for (const QLabel* label :
        fixture.commandFrame()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!qobject_cast<const cClickableLabel*>(label))
            title = label;
    }
    QVERIFY(title);
    QCOMPARE(title->text(), QString("Commands"));
    QCOMPARE(title->pos(), QPoint(0, 2));
    QCOMPARE(title->property("uiType").toString(), QString("PanelTitle"));
}

void ViewSceneTest::syncButtonIsReadyAndHidden()
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

void ViewSceneTest::newCommandButtonHasItsPicturesAndPlace()
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

void ViewSceneTest::searchBoxAndListHaveTheirPlaces()
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

void ViewSceneTest::listIsConnected()
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

void ViewSceneTest::hintFollowsTheCategory_data()
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

void ViewSceneTest::hintFollowsTheCategory()
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

void ViewSceneTest::hintIsDrawnAsItIsMeant()
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

void ViewSceneTest::textsAreTranslatedInTheirContexts()
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

void ViewSceneTest::overlayIsForOneModelAlone_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<bool>("hasOverlay");
    QTest::newRow("K13") << QByteArray("Veltrano.Gaming.LeftHandedController.K13") << true;
    QTest::newRow("small letters") << QByteArray("veltrano.gaming.lefthandedcontroller.k13") << false;
    QTest::newRow("other") << QByteArray("Veltrano.Gaming.LeftHandedController.K14") << false;
    QTest::newRow("none") << QByteArray("") << false;
}

void ViewSceneTest::overlayIsForOneModelAlone()
{
    QFETCH(QByteArray, model);
    QFETCH(bool, hasOverlay);
    QDir::setSearchPaths("K13Device", {QStringLiteral(PROJECT_FOLDER "/host/devices/K13Device")});
    ViewFixture fixture;
    // The category plays no part.
    fixture.open(makeManifest("", model.constData(), "Veltrano.Gaming.Mouse"));
    QDir::setSearchPaths("K13Device", {});
    QList<QGraphicsPixmapItem*> pictures;
    for (QGraphicsPixmapItem* item : fixture.items<QGraphicsPixmapItem>()) {
        if (item->parentItem() == fixture.rootItem())
            pictures.append(item);
    }
    QCOMPARE(pictures.size(), hasOverlay ? 1 : 0);
    if (hasOverlay) {
        QCOMPARE(pictures.constFirst()->pos(), QPointF(820, 461));
        QCOMPARE(pictures.constFirst()->opacity(), 0.3);
        QVERIFY(!pictures.constFirst()->pixmap().isNull());
    }
}

void ViewSceneTest::modeButtonsStandAndTheCurrentOnePulsates()
{
    ViewFixture fixture;
    fixture.mode = MKey::M2;
    fixture.open(makeManifest(PlainDevice));
    cGraphicsItemGroup* const group = fixture.item<cGraphicsItemGroup>();
    QVERIFY(group);
    QCOMPARE(group->parentItem(), fixture.rootItem());
    QCOMPARE(fixture.items<cGraphicsItem>().size(), 3);
    QCOMPARE(fixture.modeButton("M1")->pos(), QPointF(20, 10));
    QCOMPARE(fixture.modeButton("M3")->pos(), QPointF(60, 10));
    QCOMPARE(fixture.modeButton("M3")->parentItem(), fixture.rootItem());
    QCOMPARE(group->itemByID("M3"), fixture.modeButton("M3"));
    QCOMPARE(fixture.selectedModes(), QStringList({"M2"}));
    QCOMPARE(fixture.pulsatingModes(), QStringList({"M2"}));

    group->onClicked("M3");
    QCOMPARE(fixture.host.takeCalls(), QStringList({"stringToMKey(\"M3\")", "setMState(\"pad\", 2)"}));
}

void ViewSceneTest::modeButtonsStandStillInTheBackground()
{
    ViewFixture fixture;
    fixture.isInForeground = false;
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.selectedModes(), QStringList({"M1"}));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewSceneTest::unknownModeSelectsNothing()
{
    ViewFixture fixture;
    fixture.host.answer("mKeyToString", QString("M9"));
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.selectedModes(), QStringList());
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewSceneTest::deviceWithoutModesKeepsTheForeground()
{
    ViewFixture fixture;
    fixture.isInForeground = false;
    fixture.open(makeManifest(PlainDevice));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    fixture.isInForeground = true;
    fixture.open(makeManifest("<controls/>"));
    QCOMPARE(fixture.items<cGraphicsItemGroup>().size(), 0);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    // What was read at the first scene still holds: the host is not asked for what follows.
    fixture.host.answer("inForeground", [](const RecordedCall&) { return QVariant(); });
    fixture.open(makeManifest(PlainDevice));
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.selectedModes(), QStringList({"M2"}));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewSceneTest::glowTakesTheTypeOfItsOwnNumber()
{
    // Three glows of one type each, and a fourth that has a type of its own number.
    ViewFixture fixture;
    fixture.open(
        makeManifest("<pulseGlows>"
                     "<pulseGlow x='1' y='0'><types><type name='a'/><type name='b'/></types></pulseGlow>"
                     "<pulseGlow x='2' y='0'><types><type name='a'/><type name='b'/></types></pulseGlow>"
                     "<pulseGlow x='3' y='0'><types><type name='a'/></types></pulseGlow>"
                     "<pulseGlow x='4' y='0'><types><type name='a'/><type name='b'/><type name='c'/><type "
                     "name='d'/></types>"
                     "</pulseGlow></pulseGlows>"));
    // Of all glows those light whose one type fits.
    const auto lit = [&fixture](const char* type) {
        QStringList places;
        fixture.host.answer("getMacroTypeByID",
            [type](const RecordedCall&) { return QVariant::fromValue(makeMacroType({QString(type)})); });
        fixture.call("onStartGkeyPulsate", Q_ARG(cJsonValue, makeMacro("{1}", "Jump")));
        for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>()) {
            if (glow->isVisible())
                places.append(QString::number(glow->x()));
        }
        fixture.call("onStopGkeyPulsate");
        return places;
    };
    QCOMPARE(lit("a"), QStringList({"1"}));
    QCOMPARE(lit("b"), QStringList({"2"}));
    QCOMPARE(lit("c"), QStringList());
    QCOMPARE(lit("d"), QStringList({"4"}));
    // The third has no third type; what it reads is the empty one.
    QCOMPARE(lit(""), QStringList({"3"}));
}

void ViewSceneTest::glowWithoutTypesIsLeftOut()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<pulseGlows><pulseGlow x='1' y='0'/><pulseGlow x='2' y='0'><types/></pulseGlow>"
                     "</pulseGlows>"));
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 0);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroStartDrag(cJsonValue))), 0);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroEndDrag())), 0);
}

void ViewSceneTest::eachGlowConnectsTheListOnce()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<pulseGlows>"
                              "<pulseGlow><types><type name='a'/></types></pulseGlow><pulseGlow/>"
                              "<pulseGlow><types><type name='a'/></types></pulseGlow>"
                              "<pulseGlow><types><type name='a'/></types></pulseGlow></pulseGlows>"));
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 3);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroStartDrag(cJsonValue))), 3);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroEndDrag())), 3);
    // Three slots, each for three glows.
    Q_EMIT fixture.macroList()->singleMacroStartDrag(makeMacro("{1}", "Jump"));
    QCOMPARE(fixture.host.takeCalls().size(), 9);
}

void ViewSceneTest::glowsAreHiddenAtTheirPlaces()
{
    ViewFixture fixture;
    TestPictures pictures;
    const QString path = pictures.add("glow.png", filledPicture(12, 13, Qt::red));
    fixture.open(
        makeManifest(qPrintable(QStringLiteral("<pulseGlows><pulseGlow image='%1' x='51' y='-52'><types>"
                                               "<type name='a'/></types></pulseGlow></pulseGlows>")
                                    .arg(path))));
    const cPulseGlowImage* const glow = fixture.item<cPulseGlowImage>();
    QVERIFY(glow);
    QCOMPARE(glow->parentItem(), fixture.rootItem());
    QCOMPARE(glow->pos(), QPointF(51, -52));
    QCOMPARE(glow->pixmap().size(), QSize(12, 13));
    QVERIFY(!glow->isVisible());
}

void ViewSceneTest::framesAreShownAtTheEnd()
{
    ViewFixture fixture;
    fixture.canvas->show();
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    bool wasHidden = false;
    fixture.host.answer("mKeyToString", [&](const RecordedCall&) {
        wasHidden = !fixture.commandFrame()->isVisible();
        return QVariant(QString("M1"));
    });
    bool wasShown = false;
    fixture.host.answer(
        "raiseDeviceBar", [&](const RecordedCall&) { wasShown = fixture.commandFrame()->isVisible(); });
    fixture.host.publishDeviceTransformEnd();
    QVERIFY(wasHidden);
    QVERIFY(wasShown);
}

void ViewSceneTest::deinitTakesItAllAway()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.open(makeManifest(PlainDevice));
    fixture.showProfile("{P}");
    QVERIFY(fixture.label("G1"));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QVERIFY(fixture.scene->items().isEmpty());
    QVERIFY(!fixture.macroList());
    QVERIFY(!fixture.syncButton());
    QVERIFY(!fixture.canvas->findChild<cSearchBox*>());
    // And nothing is heard any more.
    fixture.host.clear();
    fixture.host.publishProfileSelectionChanging("{Q}");
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    fixture.host.publishProfilesToGoDeviceBusy("name", "");
    fixture.host.publishMacroAssigned("{P}", "pad", "{1}", MKey::M1, "G1");
    QCOMPARE(fixture.host.takeCalls(), QStringList());
    // Once more, with nothing left.
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
}

void ViewSceneTest::deinitKeepsItsOrder()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.assign("{P}", "G3", "{1}");
    fixture.open(makeManifest(PlainDevice));
    fixture.showProfile("{P}");
    const auto noteEnd = [&fixture](QObject* object, const char* name) {
        QObject::connect(object, &QObject::destroyed, [&fixture, name] { fixture.host.note(name); });
    };
    noteEnd(fixture.label("G1"), "label G1");
    noteEnd(fixture.label("G3"), "label G3");
    noteEnd(fixture.key("G1"), "key G1");
    noteEnd(fixture.key("G2"), "key G2");
    noteEnd(fixture.key("G3"), "key G3");
    noteEnd(fixture.item<cGraphicsItemGroup>(), "modes");
    noteEnd(fixture.macroList(), "list");
    noteEnd(fixture.item<cTooltip>(), "tooltip of the root item");
    noteEnd(fixture.commandFrame(), "command frame");
    fixture.host.clear();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    // A cleared key asks the host about no command.
    const QString clearedKey =
        "Profiler.ProfileMgr getMacroByID(QString \"{P}\", QString \"\") -> cJsonValue";
    QCOMPARE(callsOf(fixture.host),
        QStringList({"label G1", clearedKey, "label G3", clearedKey, "key G1", "key G2", "key G3", "modes",
            "unsubscribe Profiler_Events", "unsubscribe ProfileMgr_Events", "list",
            "tooltip of the root item",
            // The list of profiles goes with its frame.
            "unsubscribe ProfileMgr_Events", "command frame", "unsubscribe ProfileMgr_Events",
            "unsubscribe Profiler_Events", "unsubscribe DevMgr_Events", "unsubscribe ProfilesToGo_Events",
            "unsubscribe MainUI_Events", "unsubscribe MainApp_Events"}));
}

void ViewSceneTest::sceneIsBuiltAnewAfterDeinit()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const int items = fixture.scene->items().size();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.scene->items().size(), items);
    QCOMPARE(fixture.view.getControlIds().size(), 3);
}

void ViewSceneTest::secondEndBuildsASecondTime()
{
    // The host ends a transform once; if it doesn't, nothing breaks when the view goes.
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.items<Gkey>().size(), 6);
    QCOMPARE(fixture.view.getControlIds().size(), 3);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(fixture.items<Gkey>().size(), 0);
}

void ViewSceneTest::emptyManifestGivesPanelsWithoutKeys_data()
{
    QTest::addColumn<QByteArray>("manifest");
    QTest::newRow("no manifest") << QByteArray();
    QTest::newRow("no content") << QByteArray("<device/>");
    QTest::newRow("no controls") << makeManifest("");
    QTest::newRow("empty lists") << makeManifest("<mstates/><pulseGlows/><controls/>");
    QTest::newRow("foreign elements") << makeManifest("<mstates><x/></mstates><pulseGlows><x/></pulseGlows>"
                                                      "<controls><x/></controls>");
}

void ViewSceneTest::emptyManifestGivesPanelsWithoutKeys()
{
    QFETCH(QByteArray, manifest);
    ViewFixture fixture;
    fixture.open(manifest);
    QCOMPARE(fixture.items<Gkey>().size(), 0);
    QCOMPARE(fixture.items<cGraphicsItemGroup>().size(), 0);
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 0);
    QCOMPARE(fixture.view.getControlIds(), QStringList());
    QVERIFY(fixture.macroList());
    QVERIFY(fixture.item<cGraphicsText>());
    QVERIFY(fixture.item<cTooltip>());
    fixture.showProfile("{P}");
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.labels(), QStringList());
}

void ViewSceneTest::missingServicesStillGiveAScene()
{
    ViewFixture fixture;
    fixture.setManifest(makeManifest(PlainDevice));
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    for (QLatin1String service : {ServiceNames::Profiler, ServiceNames::MainApp, ServiceNames::MainUI})
        fixture.host.remove(service);
    {
        const ExpectedMessage mode(QtCriticalMsg, "Failed to call 'getMState' on service Profiler.Profiler");
        const ExpectedMessage name(
            QtCriticalMsg, "Failed to call 'mKeyToString' on service Profiler.Profiler");
        const ExpectedMessage foreground(
            QtCriticalMsg, "Failed to call 'inForeground' on service MainApp.MainApp");
        const ExpectedMessage bar(QtCriticalMsg, "Failed to call 'raiseDeviceBar' on service MainUI.MainUI");
        fixture.host.publishDeviceTransformEnd();
    }
    QCOMPARE(fixture.items<Gkey>().size(), 3);
    QCOMPARE(fixture.selectedModes(), QStringList());
    QVERIFY(fixture.macroList());
}

VELTRANO_TEST_MAIN(ViewSceneTest)
#include "ViewSceneTest.moc"
