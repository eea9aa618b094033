#pragma once

#include <cMacroBindingView.h>
#include <Gkey.h>
#include <MKey.h>
#include <RecordingHost.h>
#include <SignalLog.h>
#include <TestPictures.h>

#include <QGraphicsScene>
#include <QMimeData>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class cGraphicsButton;
class MagnetTextItem;
class QGraphicsPixmapItem;

/// What the tests of the key share.
namespace KeySupport {

// What the view shows.
inline const QString Profile = QStringLiteral("{P}");
inline const QString Category = QStringLiteral("Controller");
inline constexpr MKey::MKey_t Mode = MKey::M2;

inline constexpr QSize GlowSize(64, 64);
inline constexpr QSize ButtonSize(16, 16);

inline const QString Mouse = QStringLiteral("{8AE557B2-4775-4BC2-9877-DD627CE43692}");
inline const QString Joystick = QStringLiteral("{93F34A3F-7081-4D53-A99D-E858D4D86800}");
inline const QString Tip = QStringLiteral("To assign a command to this G-key, drag the command here");

/// A key that takes events from a test without a scene in between.
class TestKey : public Gkey
{
public:
    using Gkey::contextMenuEvent;
    using Gkey::dragEnterEvent;
    using Gkey::dragLeaveEvent;
    using Gkey::dropEvent;
    using Gkey::Gkey;
    using Gkey::sceneEventFilter;

    QGraphicsPixmapItem& glow() const;
    cGraphicsButton& button() const;
    /// True if both children are visible, false if both are hidden; anything else fails the test.
    bool isLit() const;
};

/// A scene with one key, "G7", and its label, joined as the view joins them, on a host that has a main
/// window.
class KeyScene
{
    Q_DISABLE_COPY(KeyScene)

public:
    explicit KeyScene(const QString& contextID = QStringLiteral("G7"));
    ~KeyScene();

    /// Shows the window with the pointer in it, which a drag needs to get under way.
    void showWindow();
    /// Puts a command on the key; the log does not show it.
    void setMacro(const QString& macroID, bool isHidden = false);
    /// What reached the host since the last take, calls in full and the key's signals, in order.
    QStringList takeLog();

    TestPictures pictures;
    RecordingHost host;
    cMacroBindingView view;
    QWidget window;
    QGraphicsScene scene;
    QPointer<TestKey> key;
    QPointer<MagnetTextItem> label;
    std::unique_ptr<SignalLog> signalLog;
};

/// The line of the log for one of the calls that a key makes.
QString getMacroByID(const QString& macroID);
QString macros();
QString canMacroBeAssignedTo(const QString& macroID, const QString& contextID = QStringLiteral("G7"));
QString assignmentHasBackup(const QString& contextID = QStringLiteral("G7"));
QString setAssignment(const QString& macroID, const QString& contextID);
QStringList addStickMacro(const QString& operation);
QString stringToGKey(const QString& contextID = QStringLiteral("G7"));
QString gKeyToString(int key);
QString mainWindow();

} // namespace KeySupport
