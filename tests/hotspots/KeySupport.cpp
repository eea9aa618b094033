#include "KeySupport.h"

#include <cGraphicsButton.h>
#include <MagnetTextItem.h>
#include <ShownInView.h>
#include <ValueText.h>

#include <QCursor>
#include <QGraphicsPixmapItem>
#include <QPainterPath>
#include <QtTest>

using namespace KeySupport;

namespace {

QString argument(const char* type, const QVariant& value)
{
    return QLatin1String(type) + ' ' + valueText(value);
}

QString profileCall(const QString& operation, const QStringList& arguments, const char* result = nullptr)
{
    const QString call = QStringLiteral("Profiler.ProfileMgr %1(%2)").arg(operation, arguments.join(", "));
    return result ? call + " -> " + QLatin1String(result) : call;
}

} // namespace

QGraphicsPixmapItem& TestKey::glow() const
{
    return *qgraphicsitem_cast<QGraphicsPixmapItem*>(childItems().at(0));
}

cGraphicsButton& TestKey::button() const
{
    return *dynamic_cast<cGraphicsButton*>(childItems().at(1));
}

bool TestKey::isLit() const
{
    if (glow().isVisible() != button().isVisible())
        QTest::qFail("only one of glow and button is visible", __FILE__, __LINE__);
    return glow().isVisible();
}

KeyScene::KeyScene(const QString& contextID)
{
    setShownInView(view, Profile, Category, Mode);
    host.answer("window", static_cast<QWidget*>(&window));
    pictures.add("key_target_glow.png", filledPicture(GlowSize.width(), GlowSize.height(), Qt::cyan));
    pictures.add("pointer_left-click.png", filledPicture(ButtonSize.width(), ButtonSize.height(), Qt::white));

    key = new TestKey(&view);
    const QPolygonF polygon(QRectF(100, 100, 40, 30));
    QPainterPath path;
    path.addPolygon(polygon);
    key->setPath(path);
    key->setShapeKind(Gkey::PolygonShape);
    key->setPolygon(polygon);
    key->setKeyRect(100, 100, 40, 30);
    key->setContextID(contextID);
    scene.addItem(key);

    label = new MagnetTextItem(contextID, false, nullptr);
    scene.addItem(label);
    label->setCollapsedWidth(60);
    label->setExpandedMaxWidth(150);
    label->setText(QStringLiteral("Command"));
    label->setCenter(120, 90);
    label->installSceneEventFilter(key);

    signalLog = std::make_unique<SignalLog>(*key, host);
    host.clear();
}

KeyScene::~KeyScene()
{
    // Items before the view that they ask.
    scene.clear();
}

void KeyScene::showWindow()
{
    window.setGeometry(60, 50, 400, 400);
    window.show();
    QCursor::setPos(window.mapToGlobal(window.rect().center()));
}

void KeyScene::setMacro(const QString& macroID, bool isHidden)
{
    cJsonValue macro;
    macro["uid"] = macroID;
    macro["hidden"] = isHidden;
    host.answer("getMacroByID", macro);
    key->setMacro(macroID);
    host.clear();
}

QStringList KeyScene::takeLog()
{
    QStringList lines = host.takeLog();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                    [](const QString& line) { return line.startsWith(QLatin1String("require ")); }),
        lines.end());
    return lines;
}

QString KeySupport::getMacroByID(const QString& macroID)
{
    return profileCall(
        "getMacroByID", {argument("QString", Profile), argument("QString", macroID)}, "cJsonValue");
}

QString KeySupport::macros()
{
    return profileCall("macros", {argument("QString", Profile)}, "cJsonValue");
}

QString KeySupport::canMacroBeAssignedTo(const QString& macroID, const QString& contextID)
{
    return profileCall("canMacroBeAssignedTo",
        {argument("const QString", macroID), argument("const QString", Profile),
            argument("const QString", Category), argument("MKey::MKey_t", QVariant::fromValue(Mode)),
            argument("const QString", contextID)},
        "bool");
}

QString KeySupport::assignmentHasBackup(const QString& contextID)
{
    return profileCall("assignmentHasBackup",
        {argument("const QString", Profile), argument("const QString", Category),
            argument("MKey::MKey_t", QVariant::fromValue(Mode)), argument("const QString", contextID)},
        "bool");
}

QString KeySupport::setAssignment(const QString& macroID, const QString& contextID)
{
    return profileCall("setAssignment",
        {argument("QString", Profile), argument("QString", Category), argument("QString", macroID),
            argument("MKey::MKey_t", QVariant::fromValue(Mode)), argument("const QString", contextID)});
}

QStringList KeySupport::addStickMacro(const QString& operation)
{
    return {profileCall(operation, {argument("const QString", Profile)}, "bool")};
}

QString KeySupport::stringToGKey(const QString& contextID)
{
    return QStringLiteral("Profiler.Profiler stringToGKey(%1) -> GKey::GKey_t")
        .arg(argument("const QString", contextID));
}

QString KeySupport::gKeyToString(int key)
{
    return QStringLiteral("Profiler.Profiler gKeyToString(GKey::GKey_t %1) -> QString").arg(key);
}

QString KeySupport::mainWindow()
{
    return QStringLiteral("MainUI.MainUI window() -> QWidget*");
}
